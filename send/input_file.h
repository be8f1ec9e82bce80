// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"

#include <cstddef>
#include <string>

namespace vantrel::send {

// All bytes of a regular file. Throws commandline::WrongUse, in a sentence, where it cannot be
// read, is no regular file, or has more than `most` bytes.
link::Bytes ReadInputFile(const std::string& path, std::size_t most);

// The same of its first `count` bytes alone, or of all where it has fewer.
link::Bytes BeginningOfInputFile(const std::string& path, std::size_t most, std::size_t count);

}  // namespace vantrel::send
