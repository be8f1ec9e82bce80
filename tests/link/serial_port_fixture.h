// SPDX-License-Identifier: MIT
#pragma once

#include "link/serial_port.h"
#include "tests/support/missing_device.h"
#include "tests/support/test_terminal.h"

#include <QString>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace vantrel::link {

// A listener that keeps what it hears and, like the console, reads at each receive event.
class Ears : public PortListener {
 public:
  explicit Ears(Port& port) : port_(port) { port_.SetListener(this); }
  ~Ears() override { port_.SetListener(nullptr); }
  Ears(const Ears&) = delete;
  Ears& operator=(const Ears&) = delete;

  void OnComm(int event_code) override {
    codes.push_back(event_code);
    received += HexTextOf(port_.Input());
  }
  void OnLost(const PortError& error) override {
    port_was_open = port_.IsOpen();
    losses.emplace_back(error.what());
  }

  std::vector<int> codes;
  std::string received;  // as hex text
  std::vector<std::string> losses;
  bool port_was_open = false;  // at the loss

 private:
  Port& port_;
};

// A console's port on a pseudo-terminal, closed; COM 2 is a device that does not exist.
class SerialPortTest : public testing::Test {
 protected:
  std::string LockFile() const {
    // "/dev/pts/5" is locked by "LCK..pts_5".
    const std::string number = terminal.Device().substr(std::string("/dev/pts/").size());
    return "/var/lock/LCK..pts_" + number;
  }
  bool IsLocked() const { return std::filesystem::exists(LockFile()); }
  // The message of the failure to open a port; empty when it opens.
  static std::string OpenFailureOf(Port& candidate) {
    try {
      candidate.Open();
    } catch (const PortError& error) {
      return error.what();
    }
    return "";
  }

  support::TestTerminal terminal;
  const std::string missing = support::MissingDevice();
  static constexpr int kWatchInterval = 20;  // milliseconds
  SerialPort port{[this](int number) { return number == 1 ? terminal.Device() : missing; },
                  kWatchInterval};
  Ears ears{port};
};

}  // namespace vantrel::link
