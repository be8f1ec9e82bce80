// SPDX-License-Identifier: MIT
#pragma once

#include "send/picture.h"

namespace vantrel::send {

// Reads a picture from a regular file of at most 64 MiB, whatever its name: PNG by itself, any
// other format that Qt reads with the library vantrel-pictures, which it loads at the first such
// call. A PictureReader.
Picture LoadPicture(const std::string& path, const PictureLimits& limits);

}  // namespace vantrel::send
