// SPDX-License-Identifier: MIT
#pragma once

#include "send/picture.h"

#include <string>

// Reads a picture; false, and a sentence in `error`, where that fails.
extern "C" bool VantrelReadPicture(const char* path, const vantrel::send::PictureLimits& limits,
                                   vantrel::send::Picture& picture, std::string& error);
