// SPDX-License-Identifier: MIT
#pragma once

#include "log/line_log.h"

#include <string>

namespace vantrel::log {

// Tells where the exchanges of a line begin. One begins with each whole frame to the printer, but
// for one that is sent again: right after a 15h, and the same as the frame before or one of the two
// with a bad block check, as what was spoilt on the line is sent again as it was meant.
class ExchangeStarts {
 public:
  // Takes the next row; whether an exchange begins with it.
  bool Add(const LogEntry& row);
  // Whether what the latest frame to the printer was meant to say is in a later one.
  bool WasSpoilt() const { return was_spoilt_; }

 private:
  bool IsSentAgain(const LogEntry& row, bool spoilt) const;

  std::string frame_;         // the latest to the printer; empty before the first
  bool was_spoilt_ = false;   // whether its block check was bad
  bool asked_again_ = false;  // whether the latest that the printer said is 15h
};

}  // namespace vantrel::log
