// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <string>

namespace vantrel::log {

// Makes an empty file that has no name yet, to write, where that folder is; with the process, it
// goes without a trace. Returns its descriptor, or -1 where the file system has no such files or
// none that can be named later.
int OpenNamelessFile(const std::string& folder, mode_t mode);

// Gives it a name that nothing has yet, in the file system where it was made. Returns 0, or -1 with
// errno set.
int NameFile(int descriptor, const std::string& path);

}  // namespace vantrel::log
