// SPDX-License-Identifier: MIT
#pragma once

#include "send/picture.h"

namespace vantrel::send {

// vantrel-send from its command line to its status.
int Main(int argc, const char* const* argv, PictureReader read_picture);

}  // namespace vantrel::send
