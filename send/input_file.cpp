// SPDX-License-Identifier: MIT

#include "send/input_file.h"

#include "commandline/parse.h"
#include "link/unique_descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace vantrel::send {
namespace {

using commandline::WrongUse;

[[noreturn]] void CannotRead(const std::string& path) {
  throw WrongUse(path + " cannot be read: " + std::strerror(errno) + ".");
}

// Without waiting for whoever would write into a pipe of that name.
link::UniqueDescriptor OpenChecked(const std::string& path, std::size_t most) {
  link::UniqueDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status = {};
  if (!file.IsOpen() || fstat(file.Get(), &status) != 0) CannotRead(path);
  if (!S_ISREG(status.st_mode)) throw WrongUse(path + " is no regular file.");
  if (static_cast<std::size_t>(status.st_size) > most)
    throw WrongUse(path + " has " + std::to_string(status.st_size) + " bytes; at most " +
                   std::to_string(most) + " are read.");
  return file;
}

}  // namespace

void CheckInputFile(const std::string& path, std::size_t most) { OpenChecked(path, most); }

link::Bytes ReadInputFile(const std::string& path, std::size_t most) {
  const link::UniqueDescriptor file = OpenChecked(path, most);
  link::Bytes bytes;
  link::Bytes part(65536);
  while (true) {
    const ssize_t got = read(file.Get(), part.data(), part.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) CannotRead(path);
    if (got == 0) return bytes;
    bytes.insert(bytes.end(), part.begin(), part.begin() + got);
    if (bytes.size() > most) throw WrongUse(path + " grows while it is read.");
  }
}

}  // namespace vantrel::send
