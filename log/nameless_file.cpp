// SPDX-License-Identifier: MIT

#include "log/nameless_file.h"

#include <fcntl.h>
#include <unistd.h>

namespace vantrel::log {
namespace {

// The name by which this process can give an open file another one.
std::string OwnName(int descriptor) { return "/proc/self/fd/" + std::to_string(descriptor); }

}  // namespace

int OpenNamelessFile(const std::string& folder, mode_t mode) {
  const int descriptor = open(folder.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, mode);
  if (descriptor < 0 || access(OwnName(descriptor).c_str(), F_OK) == 0) return descriptor;
  close(descriptor);
  return -1;
}

int NameFile(int descriptor, const std::string& path) {
  return linkat(AT_FDCWD, OwnName(descriptor).c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW);
}

}  // namespace vantrel::log
