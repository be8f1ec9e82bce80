// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vantrel::support {

// The printer's end of a raw pseudo-terminal. It holds a handle to the other end, too, so that a
// console's closing does not end it.
class TestTerminal {
 public:
  // Throws std::system_error where the system gives none.
  TestTerminal();
  ~TestTerminal();
  TestTerminal(const TestTerminal&) = delete;
  TestTerminal& operator=(const TestTerminal&) = delete;

  // The path of the device that a console opens.
  const std::string& Device() const { return device_; }
  // The descriptor of the printer's end; -1 after Vanish.
  int Descriptor() const { return printer_; }

  // Sends bytes to the console, as hex text.
  void Send(std::string_view hex) const;
  // What the console has sent, as hex text: waits for `bytes` bytes and returns all
  // there are, in no case running an event loop.
  std::string Received(std::size_t bytes) const;
  // Bytes that lie at the console's end and that nobody has read.
  int Unread() const;
  // The speed of the line in bits a second.
  unsigned Speed() const;
  // Whether the line is set to 8 data bits, no parity and 1 stop bit.
  bool Is8N1() const;
  // Whether anything holds back bytes: the line's control wires or the characters XON and XOFF.
  bool HasFlowControl() const;
  void SetFlowControl();
  // The device goes away. Its name stays taken until the terminal is destroyed, so that no test
  // that runs beside this one gets a device whose lock a port here still holds: destroy the port
  // first.
  void Vanish();

 private:
  int printer_ = -1;
  int console_ = -1;
  std::string device_;
};

}  // namespace vantrel::support
