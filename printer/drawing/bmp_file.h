// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/bitmap.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vantrel::printer {

// The most dots of a side.
using protocol::kLongestBmpSide;

// A monochrome BMP file that comes in blocks: one plane of one bit a dot, uncompressed, with an
// information header of 40 bytes or more and a palette of two colours.
class BmpFile {
 public:
  // Adds the next bytes of the file. Returns false, and adds nothing, where the file as far as it
  // is here can no longer be a monochrome BMP of 1 to kLongestBmpSide dots a side, or where the
  // bytes run past its end.
  bool Append(std::span<const std::uint8_t> block);

  // Whether the headers are here, so that width and height are known.
  bool HasHeader() const;
  // 0 before HasHeader().
  int Width() const;
  int Height() const;
  // The dots that have come; those of rows still to come are white. Nothing before HasHeader().
  std::optional<Bitmap> Picture() const;

 private:
  std::vector<std::uint8_t> bytes_;
};

}  // namespace vantrel::printer
