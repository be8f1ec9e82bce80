// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/fake_port.h"
#include "tests/support/manual_clock.h"

#include <functional>
#include <string>
#include <utility>

namespace vantrel::reliability {

// The printer's end of a line that goes wrong on purpose: what it does with each frame is the
// case's.
class Line {
 public:
  // Called when a frame has come whole, and again when it has been repeated byte by byte.
  using Strike = std::function<void(Line&)>;

  // Both must outlive the line.
  Line(support::FakePort& port, support::ManualClock& clock, Strike strike)
      : port_(port), clock_(clock), strike_(std::move(strike)) {
    port_.WhenWritten([this](const std::string& bytes) { Take(bytes); });
  }
  ~Line() { port_.WhenWritten({}); }
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;

  // From the next frame on.
  void Become(Strike strike) { strike_ = std::move(strike); }

  // The frame's code, how often it has been repeated, and how many frames came before it.
  std::string Code() const { return frame_.substr(2, 2); }
  int Repetition() const { return repetition_; }
  int Number() const { return number_; }
  // The time for which the console waits, from the frame's beginning.
  int TimeLimit() const { return time_limit_; }
  // A good reply to the frame, and one with the status 38h and no data.
  std::string Good() const;
  std::string Jammed() const;

  // Bytes come after so many milliseconds.
  void Send(int milliseconds, const std::string& hex) {
    After(milliseconds, [this, hex] { port_.Receive(hex); });
  }
  // The same, each alone, `interval` milliseconds apart.
  void SendSplit(int milliseconds, int interval, const std::string& hex) {
    for (std::size_t i = 0; i < hex.size(); i += 2)
      Send(milliseconds + interval * static_cast<int>(i / 2), hex.substr(i, 2));
  }
  void After(int milliseconds, std::function<void()> event) {
    clock_.After(milliseconds, std::move(event));
  }
  support::FakePort& Port() { return port_; }
  support::ManualClock& Clock() { return clock_; }

 private:
  void Take(const std::string& bytes);

  support::FakePort& port_;
  support::ManualClock& clock_;
  Strike strike_;
  std::string frame_;
  std::string repeated_;
  int number_ = -1;
  int repetition_ = 0;
  int time_limit_ = 0;
};

// The exclusive-or of the bytes of hex text, in hex text.
std::string ExclusiveOr(const std::string& hex);
// 06h, STX, the bytes from the code on, ETX and the good block check.
std::string ReplyWith(const std::string& code_status_data);

}  // namespace vantrel::reliability
