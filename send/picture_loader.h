// SPDX-License-Identifier: MIT
#pragma once

#include "send/picture.h"

namespace vantrel::send {

// Reads a picture of any format that Qt reads, from a regular file of at most 64 MiB, with the
// library vantrel-pictures, which it loads at the first call. A PictureReader.
Picture LoadPicture(const std::string& path, const PictureLimits& limits);

}  // namespace vantrel::send
