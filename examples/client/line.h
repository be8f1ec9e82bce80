// SPDX-License-Identifier: MIT

// A printer's serial line, and an exchange with it.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>
#include <vantrel/link/frame.h>
#include <vantrel/link/reply.h>

#include <stdexcept>
#include <string>

class Line {
 public:
  // Opens the device at 9600 bit/s, 8 data bits, no parity. Throws std::runtime_error.
  explicit Line(const char* device) : descriptor_(open(device, O_RDWR | O_NOCTTY)) {
    termios settings{};
    if (tcgetattr(descriptor_, &settings) != 0) throw std::runtime_error("This is no serial line.");
    cfmakeraw(&settings);
    cfsetspeed(&settings, B9600);
    tcsetattr(descriptor_, TCSANOW, &settings);
  }
  ~Line() { close(descriptor_); }
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;

  // Sends a frame and returns the good reply, both in hex text. Throws std::runtime_error where the
  // printer refuses the frame or is silent for five seconds.
  std::string Exchange(const std::string& frame) {
    using namespace vantrel::link;
    const Bytes bytes = BytesOf(frame);
    if (write(descriptor_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
      throw std::runtime_error("The line takes nothing.");
    std::string received;
    Judgement judgement = Judgement::kWait;
    while (judgement == Judgement::kWait) {
      pollfd readable{descriptor_, POLLIN, 0};
      unsigned char byte = 0;
      if (poll(&readable, 1, 5000) != 1 || read(descriptor_, &byte, 1) != 1)
        throw std::runtime_error("The printer is silent.");
      received += HexOf(byte);
      judgement = JudgeReply(received, frame);
    }
    if (judgement != Judgement::kComplete) throw std::runtime_error("The printer refuses.");
    return received;
  }

 private:
  int descriptor_;
};
