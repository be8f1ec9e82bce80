#pragma once

#include <cstddef>
#include <vector>

namespace vantrel {

// A picture of black and white dots. (0, 0) is the top left one, x runs to the right and y down.
class Bitmap {
 public:
  // All dots white.
  Bitmap(int width, int height)
      : width_(width),
        height_(height),
        dots_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

  int Width() const { return width_; }
  int Height() const { return height_; }
  bool Holds(int x, int y) const { return x >= 0 && x < width_ && y >= 0 && y < height_; }

  // Whether a dot is black. Throws std::out_of_range outside the picture.
  bool At(int x, int y) const { return dots_.at(Index(x, y)); }
  void Set(int x, int y, bool black) { dots_.at(Index(x, y)) = black; }
  // Makes every dot white.
  void Clear() { dots_.assign(dots_.size(), false); }

  bool operator==(const Bitmap&) const = default;

 private:
  std::size_t Index(int x, int y) const {
    return Holds(x, y) ? static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                             static_cast<std::size_t>(x)
                       : dots_.size();
  }

  int width_;
  int height_;
  std::vector<bool> dots_;
};

// The dots of a card's rewritable face, the long side lying.
inline constexpr int kFaceWidth = 480;
inline constexpr int kFaceHeight = 320;

}  // namespace vantrel
