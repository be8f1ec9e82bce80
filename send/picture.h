// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel::send {

// A picture as it is in its file, row after row from the left top.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> grey;   // 0 is black, 255 white
  std::vector<std::uint8_t> alpha;  // 0 is transparent
};

// The most dots of a picture's sides.
struct PictureLimits {
  int width = 0;
  int height = 0;
};

// A picture cannot be had. what() is one sentence.
class PictureError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Reads a picture from a file. Throws PictureError where it is none, and for one that is larger
// than the limits, before it is read.
using PictureReader = std::function<Picture(const std::string& path, const PictureLimits& limits)>;

// What a picture's size must not be more than, told in a sentence: "The picture has 500 x 320 dots;
// 480 x 320 fit."
std::string TooLarge(int width, int height, const PictureLimits& limits);

struct BlackAndWhite {
  int threshold = 128;  // what is darker is black
  bool dither = false;  // spreads what a dot's black or white is too much over those after it
  bool invert = false;
};

// Which dots are black, row after row. A dot that is half transparent or more is clear, also when
// inverted.
std::vector<bool> BlackDots(const Picture& picture, const BlackAndWhite& how);

}  // namespace vantrel::send
