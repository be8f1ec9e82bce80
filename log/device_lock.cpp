// SPDX-License-Identifier: MIT

#include "log/device_lock.h"

#include "link/unique_descriptor.h"
#include "log/nameless_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>

namespace vantrel::log {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kDevices = "/dev/";

[[noreturn]] void FailBusy() {
  throw std::system_error(EBUSY, std::generic_category(), "The device is locked");
}

// The names by which other programs may know the device: its own, and that of a link to it.
std::vector<std::string> NamesOf(const std::string& device) {
  std::error_code error;
  const fs::path real = fs::canonical(device, error);
  std::vector<std::string> names;
  for (std::string path : {error ? device : real.string(), device}) {
    if (!path.starts_with(kDevices)) continue;
    path.erase(0, kDevices.size());
    std::replace(path.begin(), path.end(), '/', '_');
    if (std::find(names.begin(), names.end(), path) == names.end()) names.push_back(path);
  }
  return names;
}

// The process that a lock file names, as text or as the four bytes that some programs write;
// nothing where it names none.
std::optional<pid_t> HolderOf(int descriptor) {
  std::array<char, 64> text{};
  const ssize_t count = read(descriptor, text.data(), text.size());
  const char* const begin = text.data();
  const char* const end = begin + std::max<ssize_t>(count, 0);
  pid_t process = 0;
  // No process number is so high that none of its four bytes is 0, which no text has.
  if (count == sizeof process && std::find(begin, end, '\0') != end) {
    std::memcpy(&process, begin, sizeof process);
  } else {
    const char* const first = std::find_if(begin, end, [](char each) { return each != ' '; });
    std::from_chars(first, end, process);
  }
  return process > 0 ? std::optional(process) : std::nullopt;
}

// Whether a process has ended but is still listed, because nobody has asked how it ended; in a
// container that may be so for ever.
bool IsZombie(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string text;
  std::getline(file, text);
  // "12 (a name) Z 1 ...": the name may hold anything.
  const std::size_t name_end = text.rfind(')');
  return name_end != std::string::npos && text.substr(name_end, 3) == ") Z";
}

bool IsAlive(pid_t process) {
  return (kill(process, 0) == 0 || errno != ESRCH) && !IsZombie(process);
}

// Removes the lock file of a dead process; false when it stays.
bool RemoveDead(const std::string& path) {
  const link::UniqueDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
  if (!file.IsOpen()) return errno == ENOENT;
  const auto holder = HolderOf(file.Get());
  if (!holder || IsAlive(*holder)) return false;
  return unlink(path.c_str()) == 0 || errno == ENOENT;
}

// Writes this process's number, right-aligned in ten characters. Returns 0 or an error.
int WriteNumber(int descriptor) {
  std::string number = std::to_string(getpid());
  number.insert(0, number.size() < 10 ? 10 - number.size() : 0, ' ');
  number += '\n';
  return write(descriptor, number.data(), number.size()) < 0 ? errno : 0;
}

// Makes a file with this process's number and gives it that name only then, so that nobody ever
// sees a lock without a number. Returns 0 or an error.
int Place(const std::string& path) {
  constexpr mode_t kMode = 0644;
  const link::UniqueDescriptor nameless(
      OpenNamelessFile(fs::path(path).parent_path().string(), kMode));
  if (nameless.IsOpen()) {
    const int error = WriteNumber(nameless.Get());
    return error == 0 && NameFile(nameless.Get(), path) != 0 ? errno : error;
  }
  const std::string own = path + "." + std::to_string(getpid());
  unlink(own.c_str());
  const link::UniqueDescriptor file(
      open(own.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kMode));
  if (!file.IsOpen()) return errno;
  int error = WriteNumber(file.Get());
  if (error == 0 && ::link(own.c_str(), path.c_str()) != 0) error = errno;
  unlink(own.c_str());
  return error;
}

}  // namespace

DeviceLock::DeviceLock(const std::string& device, int descriptor, const std::string& folder) {
  if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) FailBusy();
  for (const std::string& name : NamesOf(device)) {
    const std::string path = std::string(folder).append("/LCK..").append(name);
    int error = Place(path);
    if (error == EEXIST && RemoveDead(path)) error = Place(path);
    if (error == EEXIST) {
      Release();
      FailBusy();
    }
    if (error == 0) files_.push_back(path);
  }
}

DeviceLock::~DeviceLock() { Release(); }

void DeviceLock::Release() {
  for (const std::string& file : files_) unlink(file.c_str());
  files_.clear();
}

}  // namespace vantrel::log
