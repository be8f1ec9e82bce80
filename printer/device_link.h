#pragma once

#include <string>

namespace vantrel {

// A symbolic link to a device, for as long as this lives.
class DeviceLink {
 public:
  // Makes the link. A symbolic link that leads nowhere, or to this very device, is a leftover and
  // is replaced. Throws std::runtime_error, in words, when anything else is at `path` or when the
  // link cannot be made; nothing has changed then.
  DeviceLink(std::string path, std::string device);
  // Removes the link, unless it has come to lead elsewhere.
  ~DeviceLink();
  DeviceLink(const DeviceLink&) = delete;
  DeviceLink& operator=(const DeviceLink&) = delete;

 private:
  std::string path_;
  std::string device_;
};

}  // namespace vantrel
