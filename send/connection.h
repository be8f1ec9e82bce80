// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace vantrel::send {

// An open line.
class Connection {
 public:
  virtual ~Connection() = default;
  // Reads and writes without blocking.
  virtual int Descriptor() const = 0;
  // What is to be said when it ends of itself: "The device /dev/ttyS0 is gone."
  virtual std::string GoneInWords() const = 0;
  // In bits a second; false where the line does not take it.
  virtual bool SetSpeed(int /*speed*/) { return true; }
};

// Waits until a descriptor is ready for `events` of poll, at most so many milliseconds, or until
// the program is asked to end; false in both these cases.
using WaitFor = std::function<bool(int descriptor, short events, int milliseconds)>;

// Opens a serial device of 8 bits without parity, for this program alone, and leaves nothing unread
// in it. Its settings are put back when the connection is destroyed. Throws link::PortError.
std::unique_ptr<Connection> OpenSerial(const std::string& device, int speed);

// How long a TCP connection may take to come about, the look-up of its name included.
inline constexpr std::chrono::milliseconds kConnectLimit{5000};

// Connects to "HOST:PORT" within the limit. Throws link::PortError.
std::unique_ptr<Connection> OpenTcp(const std::string& host_and_port, const WaitFor& wait_for,
                                    std::chrono::milliseconds limit = kConnectLimit);

}  // namespace vantrel::send
