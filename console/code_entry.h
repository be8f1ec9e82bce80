// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace vantrel::console {

// Puts the two characters of a command code, typed one after the other, together.
class CodeEntry {
 public:
  static constexpr std::chrono::milliseconds kPatience{1000};

  // A hex digit, in either case, was typed at `now`, on a clock that never goes back. Returns the
  // two digits in capitals where another was typed within the patience before it. Both count
  // anew from there, unless Reject says that the two are no code.
  std::optional<std::string> Type(char digit, std::chrono::milliseconds now);
  // The two last digits were no code: the second of them may begin one.
  void Reject() { first_ = second_; }
  // Something else was typed.
  void Clear() { first_ = 0; }

 private:
  char first_ = 0;
  char second_ = 0;
  std::chrono::milliseconds typed_{};
};

}  // namespace vantrel::console
