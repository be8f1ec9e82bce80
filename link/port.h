// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace vantrel::link {

// A failure of the serial port. what() is the whole message for the user: the device, the system's
// words and what to do about it.
class PortError : public std::runtime_error {
 public:
  // `brief` says the same in a few words without an end.
  explicit PortError(const std::string& message, std::string brief = "failed")
      : std::runtime_error(message), brief_(std::move(brief)) {}

  const std::string& Brief() const { return brief_; }

 private:
  std::string brief_;
};

// The device behind port number 1 or 2 in a folder of devices: com1 or com2 where that exists, else
// ttyS0 or ttyS1. A link is returned as it is, also when what it points to is missing.
std::string DeviceIn(const std::string& folder, int port_number);
// The device in /dev.
std::string SystemDevice(int port_number);

// Why opening a device failed, as far as the advice to the user depends on it.
enum class OpenFailure { kNotFound, kNoPermission, kInUse, kOther };

// The texts of port failures. `device` is a path, `system_words` the system's own description.
// `group` is the group that owns the device; empty when it is unknown or would not help.
PortError CannotOpen(const std::string& device, OpenFailure reason, const std::string& system_words,
                     const std::string& group);
PortError NotOpen(const std::string& device);
PortError SettingsRefused(const std::string& device, const std::string& settings,
                          const std::string& system_words);
PortError WriteFailed(const std::string& device, const std::string& system_words);
PortError DeviceGone(const std::string& device, const std::string& system_words);

// Hears what happens on a port. Both calls come from the event loop, never from inside a call to
// the port, and are never nested in each other.
class PortListener {
 public:
  // The event code of received bytes.
  static constexpr int kReceive = 2;

  virtual ~PortListener() = default;
  // A notification of the port: kReceive when at least one byte has arrived. Must not throw and
  // must not wait.
  virtual void OnComm(int event_code) = 0;
  // The device is gone and the port has been closed. Called once. Must not throw.
  virtual void OnLost(const PortError& error) = 0;
};

// A serial port of the console.
class Port {
 public:
  virtual ~Port() = default;

  virtual void SetListener(PortListener* listener) = 0;
  // 1 or 2. Takes effect at the next Open.
  virtual void SetCommPort(int number) = 0;
  // Bits a second and the line's format, such as "9600,N,8,1". Takes effect at once on an open
  // port, without closing it, and at the next Open on a closed one. Throws PortError when an open
  // port refuses.
  virtual void SetSettings(const std::string& settings) = 0;

  virtual bool IsOpen() const = 0;
  // The device that was opened last, else the one that Open would open; empty where that is
  // unknown.
  virtual std::string Device() const { return {}; }
  // Opens the chosen port and leaves nothing unread in it. Throws PortError; the port is closed
  // then.
  virtual void Open() = 0;
  // Closes the port; nothing happens when it is closed already.
  virtual void Close() = 0;

  // All bytes that have arrived and were not read or discarded.
  virtual Bytes Input() = 0;
  // Both do nothing on a closed port.
  virtual void DiscardInput() = 0;
  virtual void DiscardOutput() = 0;
  // Hands bytes to the system at once. Throws PortError when the port is closed or the system
  // refuses them.
  virtual void Output(const Bytes& bytes) = 0;
};

}  // namespace vantrel::link
