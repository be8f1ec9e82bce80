// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"

#include <string>

namespace vantrel::printer {

// A symbolic link to a device, for as long as this lives. Beside the link ("DIR/NAME") stands its
// mark ("DIR/.NAME.lock"), a file that names the device and that this holds locked: a mark that
// nobody holds, beside a link to the device that it names, was left by a printer that was killed.
class DeviceLink {
 public:
  // Makes the link. A symbolic link that leads nowhere, or to this very device, or that a killed
  // printer has left, whoever uses its device now, is a leftover and is replaced. Throws
  // std::runtime_error, in words, when anything else is at `path` or when the link cannot be made;
  // nothing has changed then.
  DeviceLink(std::string path, std::string device);
  // Removes the link, unless it has come to lead elsewhere, and the mark.
  ~DeviceLink();
  DeviceLink(const DeviceLink&) = delete;
  DeviceLink& operator=(const DeviceLink&) = delete;

 private:
  // Takes the mark; throws when another printer holds it. Returns the device that it named.
  std::string TakeMark();
  void Make();

  std::string path_;
  std::string device_;
  std::string mark_path_;
  link::UniqueDescriptor mark_;
};

}  // namespace vantrel::printer
