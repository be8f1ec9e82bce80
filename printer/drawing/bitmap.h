// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/card_face.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace vantrel::printer {

// A picture of black and white dots. (0, 0) is the top left one, x runs to the right and y down.
class Bitmap {
 public:
  // All dots white.
  Bitmap(int width, int height)
      : width_(width),
        height_(height),
        words_(
            (static_cast<std::size_t>(width) * static_cast<std::size_t>(height) + kWordDots - 1) /
            kWordDots) {}

  int Width() const { return width_; }
  int Height() const { return height_; }
  bool Holds(int x, int y) const { return x >= 0 && x < width_ && y >= 0 && y < height_; }

  // Whether a dot is black. Both throw std::out_of_range outside the picture.
  bool At(int x, int y) const {
    const std::size_t dot = Index(x, y);
    return (words_[dot / kWordDots] & MaskOf(dot)) != 0;
  }
  void Set(int x, int y, bool black) {
    const std::size_t dot = Index(x, y);
    std::uint64_t& word = words_[dot / kWordDots];
    word = black ? word | MaskOf(dot) : word & ~MaskOf(dot);
  }
  // Makes every dot white.
  void Clear() { words_.assign(words_.size(), 0); }
  // Makes every dot black that is black in `other`; the rest stays as it is. Throws
  // std::invalid_argument, and changes nothing, unless both are of the same size.
  void Merge(const Bitmap& other) {
    if (other.width_ != width_ || other.height_ != height_)
      throw std::invalid_argument("Pictures of different sizes cannot be merged.");
    for (std::size_t i = 0; i < words_.size(); ++i) words_[i] |= other.words_[i];
  }

  bool operator==(const Bitmap&) const = default;

 private:
  static constexpr std::size_t kWordDots = 64;

  static std::uint64_t MaskOf(std::size_t dot) { return std::uint64_t{1} << dot % kWordDots; }

  std::size_t Index(int x, int y) const {
    if (!Holds(x, y)) throw std::out_of_range("There is no such dot in the picture.");
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
           static_cast<std::size_t>(x);
  }

  int width_;
  int height_;
  // The dots row by row, the first in the lowest bit; what is over in the last word stays 0.
  std::vector<std::uint64_t> words_;
};

// The dots of a card's rewritable face, the long side lying.
using protocol::kFaceHeight;
using protocol::kFaceWidth;

}  // namespace vantrel::printer
