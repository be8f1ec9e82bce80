// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace vantrel::support {

// Another program that has opened a serial device, as the console would: raw bytes, with deadlines.
class DeviceUser {
 public:
  // Not open where the device cannot be opened.
  explicit DeviceUser(const std::string& path);
  ~DeviceUser();
  DeviceUser(const DeviceUser&) = delete;
  DeviceUser& operator=(const DeviceUser&) = delete;

  bool IsOpen() const { return descriptor_ >= 0; }
  int Descriptor() const { return descriptor_; }
  // Writes bytes given as hex with blanks, "02 21 03 22".
  void Write(const std::string& hex) const;
  // Reads until `count` bytes have come, or patience is at an end; as hex with blanks.
  std::string Read(std::size_t count) const;
  // What has come by now, without waiting.
  std::string ReadNow() const;
  // Reads until what has come ends with `tail`; false when that is not so in `milliseconds`.
  bool ReadsTo(const std::string& tail, int milliseconds) const;

 private:
  // Reads until `enough` says so of what has come, or the time is up.
  std::string ReadUntil(const std::function<bool(const std::string&)>& enough,
                        int milliseconds) const;

  int descriptor_;
};

}  // namespace vantrel::support
