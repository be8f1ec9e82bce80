// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/bitmap.h"

#include <string>

namespace vantrel::printer {

enum class PictureFormat {
  kPng,
  kPortableBitmap,  // "P4", one bit a dot
};

// Saves a picture, one pixel a dot, as log::ReplaceFile does. Returns an empty text, or why it was
// not saved: "PATH was not saved: Permission denied.".
std::string SavePicture(const Bitmap& dots, PictureFormat format, const std::string& path);

}  // namespace vantrel::printer
