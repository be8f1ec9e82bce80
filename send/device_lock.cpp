#include "send/device_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace vantrel::send {
namespace {

constexpr const char* kFolder = "/var/lock";

std::string LockPath(std::string device) {
  if (device.starts_with("/dev/")) device.erase(0, 5);
  std::replace(device.begin(), device.end(), '/', '_');
  return std::string(kFolder) + "/LCK.." + device;
}

// Whether a program that runs made the lock file. The system's lock on the file tells it of
// programs that hold one, the process number of the others.
bool IsHeld(const std::string& path) {
  const link::UniqueDescriptor file(open(path.c_str(), O_RDWR | O_CLOEXEC));
  if (!file.IsOpen()) return errno != ENOENT;
  if (flock(file.Get(), LOCK_EX | LOCK_NB) != 0) return true;
  char text[64] = {};
  const ssize_t count = read(file.Get(), text, sizeof text - 1);
  const long process = count > 0 ? std::strtol(text, nullptr, 10) : 0;
  return process > 0 && process != getpid() &&
         (kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
}

std::string Contents() {
  char host[256] = {};
  gethostname(host, sizeof host - 1);
  return std::to_string(getpid()) + "\nvantrel-send\n" + host + "\n";
}

}  // namespace

DeviceLock::~DeviceLock() {
  if (file_.IsOpen()) unlink(path_.c_str());
}

bool DeviceLock::Take(const std::string& device, int descriptor) {
  if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) return false;
  path_ = LockPath(device);
  constexpr int kTries = 2;
  for (int i = 0; i < kTries; ++i) {
    file_.Reset(open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    if (file_.IsOpen()) {
      flock(file_.Get(), LOCK_EX | LOCK_NB);
      const std::string contents = Contents();
      [[maybe_unused]] const ssize_t count = write(file_.Get(), contents.data(), contents.size());
      return true;
    }
    if (errno != EEXIST) return true;
    if (IsHeld(path_)) return false;
    // A leftover of a program that ended without giving it back.
    unlink(path_.c_str());
  }
  return false;
}

}  // namespace vantrel::send
