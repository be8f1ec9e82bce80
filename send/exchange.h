// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrel::send {

enum class Outcome { kReply, kReject, kUnknown, kTimeUp, kCancelled, kFailed, kRefused };

// "reply", "time-up" ...
std::string_view NameOf(Outcome outcome);

// Where a command stands among many.
struct Place {
  std::optional<long> line;   // of standard input, from 1
  std::optional<long> round;  // from 1
};

// One frame and what came of it.
struct Exchange {
  Place place;
  std::string command;   // the code; empty where a refused line has none
  std::string sent;      // hex text, as is `received`
  std::string received;  // since the last sending of the frame
  Outcome outcome = Outcome::kReply;
  std::optional<unsigned> status;  // of a good reply
  // The status, or else the outcome, in words; of a refused line, why.
  std::string meaning;
  std::string label;        // what stands before the data: "First Track: "
  std::string data;         // bytes of a good reply
  std::string text;         // the same, as UTF-8 characters of the code page
  double milliseconds = 0;  // from the first byte written to the judgement
  int resends = 0;
  bool is_success = false;
};

}  // namespace vantrel::send
