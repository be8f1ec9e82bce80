// SPDX-License-Identifier: MIT
#pragma once

#include "send/poll_clock.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

namespace vantrel::send {

// The longest line of standard input in bytes.
inline constexpr std::size_t kLongestLine = 1'048'576;

// Standard input cannot be read, or has a line that is too long. what() is one sentence.
class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Lines of a descriptor, waited for on the clock.
class LineInput : public EventSource {
 public:
  // `stopped` tells whether the wait is to end. All must outlive this.
  LineInput(int descriptor, PollClock& clock, std::function<bool()> stopped);

  // The next line without its end; nothing at the end of the input and when the wait was ended.
  // Throws InputError.
  std::optional<std::string> Next();
  // The number of the line that Next returned last, from 1.
  long Number() const { return number_; }

  int Descriptor() const override { return waiting_ ? descriptor_ : -1; }
  short Events() const override;
  void OnReady(short events) override;

 private:
  const int descriptor_;
  PollClock& clock_;
  const std::function<bool()> stopped_;
  bool waiting_ = false;
  bool ended_ = false;
  int error_ = 0;
  long number_ = 0;
  std::string pending_;
  std::size_t searched_ = 0;  // so much of it has no end of line
};

}  // namespace vantrel::send
