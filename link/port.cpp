// SPDX-License-Identifier: MIT

#include "link/port.h"

#include <sys/stat.h>

namespace vantrel::link {
namespace {

std::string Message(const std::string& device, const std::string& what,
                    const std::string& system_words, const std::string& advice) {
  std::string text = device + " " + what;
  if (!system_words.empty()) text += ": " + system_words;
  return text + "\r\n\r\n" + advice;
}

constexpr const char* kChooseAgain =
    "choose the port in \"Setting\" - \"Port\" and then a speed in \"Setting\" - \"Baud Rate\" "
    "to open it.";

}  // namespace

std::string DeviceIn(const std::string& folder, int port_number) {
  std::string link = folder + "/com" + std::to_string(port_number);
  struct stat status = {};
  if (lstat(link.c_str(), &status) == 0) return link;
  return folder + "/ttyS" + std::to_string(port_number - 1);
}

std::string SystemDevice(int port_number) { return DeviceIn("/dev", port_number); }

PortError CannotOpen(const std::string& device, OpenFailure reason, const std::string& system_words,
                     const std::string& group) {
  std::string advice;
  std::string brief;
  switch (reason) {
    case OpenFailure::kNotFound:
      brief = "not found";
      advice = "There is no such device. Connect the printer, then ";
      break;
    case OpenFailure::kNoPermission:
      brief = "no permission";
      advice = group.empty()
                   ? "You may not use this device. Ask your administrator for access, then "
                   : "You may not use this device. Join the group \"" + group +
                         "\" (as an administrator: usermod -aG " + group +
                         " YOUR-NAME), log in again, then ";
      break;
    case OpenFailure::kInUse:
      brief = "in use";
      advice = "Another program is using this device. End that program, then ";
      break;
    case OpenFailure::kOther:
      brief = "cannot be opened";
      advice = "Check that a serial port is there and that the printer is connected, then ";
      break;
  }
  return PortError(Message(device, "cannot be opened", system_words, advice + kChooseAgain), brief);
}

PortError NotOpen(const std::string& device) {
  return PortError(Message(device, "is not open, so nothing was sent", "",
                           "Choose a speed in \"Setting\" - \"Baud Rate\" to open it."),
                   "closed");
}

PortError SettingsRefused(const std::string& device, const std::string& settings,
                          const std::string& system_words) {
  return PortError(Message(device, "does not take the settings " + settings, system_words,
                           "Choose another speed in \"Setting\" - \"Baud Rate\"."),
                   "speed refused");
}

PortError WriteFailed(const std::string& device, const std::string& system_words) {
  return PortError(Message(device, "could not be written to", system_words,
                           std::string("Check the cable and the printer, then ") + kChooseAgain),
                   "write failed");
}

PortError DeviceGone(const std::string& device, const std::string& system_words) {
  return PortError(Message(device, "is gone", system_words,
                           std::string("Connect the printer again, then ") + kChooseAgain),
                   "gone");
}

}  // namespace vantrel::link
