// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"
#include "send/picture.h"

#include <string>

namespace vantrel::send {

// How many bytes of a file tell whether it is a PNG file.
inline constexpr std::size_t kPngSignatureBytes = 8;

// Whether a file begins as every PNG file does.
bool IsPng(const link::Bytes& file);

// The picture in a PNG file of any depth, interlaced or not; colours are taken as they stand,
// whatever the file tells of their meaning. Throws PictureError, with the path in its sentence,
// where the file is damaged or cut, and for a picture that is larger than the limits, before its
// dots are read.
Picture PictureOfPng(const link::Bytes& file, const std::string& path, const PictureLimits& limits);

}  // namespace vantrel::send
