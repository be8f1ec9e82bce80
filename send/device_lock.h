#pragma once

#include "link/unique_descriptor.h"

#include <string>

namespace vantrel::send {

// The lock by which programs keep a serial device to themselves: a file LCK..NAME in the system's
// folder for locks with the number of the process in it. Given back when destroyed.
class DeviceLock {
 public:
  DeviceLock() = default;
  ~DeviceLock();
  DeviceLock(const DeviceLock&) = delete;
  DeviceLock& operator=(const DeviceLock&) = delete;

  // `device` is its own path, no link to it. False when a program that runs holds the lock. Where
  // this user can make no lock files, only programs that lock the open device itself are seen.
  bool Take(const std::string& device, int descriptor);

 private:
  std::string path_;
  link::UniqueDescriptor file_;
};

}  // namespace vantrel::send
