// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/bitmap.h"
#include "printer/drawing/bmp_file.h"

#include <array>
#include <cstddef>
#include <optional>

namespace vantrel::printer {

inline constexpr std::size_t kRegisters = 16;

// What a console has registered for expansion into the print expansion buffer.
struct PrintRegisters {
  // External characters of 44h (24 x 24 or 16 x 16 dots) and 45h (12 x 24 or 8 x 16).
  std::array<std::optional<Bitmap>, kRegisters> double_byte_characters;
  std::array<std::optional<Bitmap>, kRegisters> single_byte_characters;
  // Internal image data 2: the BMP files of 4Bh as far as they came, and the one that a
  // continuation block goes to.
  std::array<BmpFile, kRegisters> images;
  std::optional<std::size_t> open_image;
};

}  // namespace vantrel::printer
