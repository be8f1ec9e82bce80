// SPDX-License-Identifier: MIT

#include "printer/line/device_link.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace vantrel::printer {
namespace {

namespace fs = std::filesystem;

bool LeadsTo(const std::string& path, const std::string& device) {
  std::error_code error;
  return fs::read_symlink(path, error) == device && !error;
}

bool IsDangling(const std::string& path) {
  std::error_code error;
  return fs::is_symlink(fs::symlink_status(path, error)) &&
         fs::status(path, error).type() == fs::file_type::not_found;
}

std::string MarkPathOf(const std::string& path) {
  const fs::path link(path);
  return link.parent_path() / ("." + link.filename().string() + ".lock");
}

// Whether an open file is still the one of that name.
bool IsNamed(int descriptor, const std::string& path) {
  struct stat open_file {};
  struct stat named {};
  return fstat(descriptor, &open_file) == 0 && lstat(path.c_str(), &named) == 0 &&
         open_file.st_dev == named.st_dev && open_file.st_ino == named.st_ino;
}

[[noreturn]] void Refuse(const std::string& path, const std::string& reason) {
  throw std::runtime_error("The link " + path + " was not made: " + reason + ".");
}

}  // namespace

DeviceLink::DeviceLink(std::string path, std::string device)
    : path_(std::move(path)), device_(std::move(device)), mark_path_(MarkPathOf(path_)) {
  const std::string marked = TakeMark();
  try {
    std::error_code error;
    const fs::file_status there = fs::symlink_status(path_, error);
    if (there.type() != fs::file_type::not_found && fs::exists(there)) {
      const bool left = !marked.empty() && LeadsTo(path_, marked);
      if (!left && !LeadsTo(path_, device_) && !IsDangling(path_))
        Refuse(path_, "there is something of that name already");
      fs::remove(path_, error);
    }
    Make();
  } catch (...) {
    unlink(mark_path_.c_str());
    throw;
  }
}

void DeviceLink::Make() {
  const bool marked =
      ftruncate(mark_.Get(), 0) == 0 && pwrite(mark_.Get(), device_.data(), device_.size(), 0) ==
                                            static_cast<ssize_t>(device_.size());
  if (!marked) Refuse(path_, std::strerror(errno));
  std::error_code error;
  fs::create_symlink(device_, path_, error);
  if (error) Refuse(path_, error.message());
}

std::string DeviceLink::TakeMark() {
  do {
    mark_.Reset(open(mark_path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0644));
    if (!mark_.IsOpen()) Refuse(path_, std::strerror(errno));
    if (flock(mark_.Get(), LOCK_EX | LOCK_NB) != 0)
      Refuse(path_, "another printer has made it and is running");
    // Its holder may have removed it in between.
  } while (!IsNamed(mark_.Get(), mark_path_));
  std::array<char, 4096> text{};
  const ssize_t count = pread(mark_.Get(), text.data(), text.size(), 0);
  return {text.data(), static_cast<std::size_t>(count > 0 ? count : 0)};
}

DeviceLink::~DeviceLink() {
  std::error_code error;
  if (LeadsTo(path_, device_)) fs::remove(path_, error);
  // While it is still held, so that no other printer's mark is removed.
  unlink(mark_path_.c_str());
}

}  // namespace vantrel::printer
