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

// Reads into a part of bytes; returns how many came, 0 at the end.
std::size_t ReadPart(const link::UniqueDescriptor& file, const std::string& path,
                     link::Bytes& part) {
  while (true) {
    const ssize_t got = read(file.Get(), part.data(), part.size());
    if (got >= 0) return static_cast<std::size_t>(got);
    if (errno != EINTR) CannotRead(path);
  }
}

}  // namespace

link::Bytes BeginningOfInputFile(const std::string& path, std::size_t most, std::size_t count) {
  link::Bytes bytes(count);
  bytes.resize(ReadPart(OpenChecked(path, most), path, bytes));
  return bytes;
}

link::Bytes ReadInputFile(const std::string& path, std::size_t most) {
  const link::UniqueDescriptor file = OpenChecked(path, most);
  link::Bytes bytes;
  link::Bytes part(65536);
  while (const std::size_t got = ReadPart(file, path, part)) {
    bytes.insert(bytes.end(), part.begin(), part.begin() + static_cast<std::ptrdiff_t>(got));
    if (bytes.size() > most) throw WrongUse(path + " grows while it is read.");
  }
  return bytes;
}

}  // namespace vantrel::send
