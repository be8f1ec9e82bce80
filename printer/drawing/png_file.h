// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/bitmap.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantrel::printer {

// A picture's sides in dots.
struct PictureSize {
  int width = 0;
  int height = 0;
};

// The picture as the bytes of a PNG file, one bit a dot. Throws std::runtime_error, in words, where
// it has more dots than such a file can hold.
std::string PngOf(const Bitmap& dots);

// The size of the picture in a PNG file, from its beginning alone; nothing where it is none.
std::optional<PictureSize> SizeOfPng(std::string_view file);

// The dots of a PNG file of any depth; a pixel is black that is darker than middle grey. Nothing
// where it is no PNG file, or none that can be read whole. It takes four bytes a pixel: whoever
// reads files of others looks at their size first.
std::optional<Bitmap> DotsOfPng(std::string_view file);

}  // namespace vantrel::printer
