// SPDX-License-Identifier: MIT

#include "send/picture.h"

#include <array>

namespace vantrel::send {
namespace {

constexpr int kOpaque = 128;  // of 255
constexpr int kWhite = 255;

// The shares of an error, in sixteenths, and where they go.
struct Share {
  int right;
  int down;
  int sixteenths;
};
constexpr std::array<Share, 4> kShares = {{{1, 0, 7}, {-1, 1, 3}, {0, 1, 5}, {1, 1, 1}}};

}  // namespace

std::string TooLarge(int width, int height, const PictureLimits& limits) {
  return "The picture has " + std::to_string(width) + " x " + std::to_string(height) + " dots; " +
         std::to_string(limits.width) + " x " + std::to_string(limits.height) + " fit.";
}

std::vector<bool> BlackDots(const Picture& picture, const BlackAndWhite& how) {
  const auto count =
      static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  std::vector<int> grey(picture.grey.begin(), picture.grey.end());
  if (how.invert)
    for (int& value : grey) value = kWhite - value;
  std::vector<bool> black(count);
  std::size_t i = 0;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x, ++i) {
      if (picture.alpha[i] < kOpaque) continue;
      black[i] = grey[i] < how.threshold;
      if (!how.dither) continue;
      const int error = grey[i] - (black[i] ? 0 : kWhite);
      for (const Share& share : kShares) {
        const int to_x = x + share.right;
        if (to_x < 0 || to_x >= picture.width || y + share.down >= picture.height) continue;
        const std::size_t to =
            i + static_cast<std::size_t>(share.right + share.down * picture.width);
        grey[to] += error * share.sixteenths / 16;
      }
    }
  }
  return black;
}

}  // namespace vantrel::send
