// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace vantrel::log {

// Where programs that use a serial device leave a file with their process's number.
inline constexpr const char* kLockFolder = "/var/lock";

// Keeps a serial device for this program in the two ways that others look at: a lock on the open
// device, which ends when that is closed, and files "LCK..NAME", for as long as this lives. Where
// the folder cannot be written the first must do.
class DeviceLock {
 public:
  // `descriptor` is the open device. The lock file of a process that is dead is removed. Throws
  // std::system_error with EBUSY when another program has locked the device.
  DeviceLock(const std::string& device, int descriptor, const std::string& folder = kLockFolder);
  ~DeviceLock();
  DeviceLock(const DeviceLock&) = delete;
  DeviceLock& operator=(const DeviceLock&) = delete;

 private:
  void Release();

  std::vector<std::string> files_;
};

}  // namespace vantrel::log
