// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/parse.h"
#include "link/code_page.h"
#include "send/picture.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel::send {

// A command that is ready to be sent.
struct Job {
  std::string code;                 // two upper-case hex digits
  std::vector<std::string> frames;  // hex text from STX to block check, in their order
  int time_limit = 0;               // milliseconds, for each frame
  // The statuses that are no failure; only 20h is none where it is empty.
  std::vector<unsigned> expected;

  bool IsExpected(unsigned status) const;
};

// What composing needs from outside, and what holds where a command does not say otherwise.
struct Means {
  link::CodePage page = link::CodePage::kWestern;
  PictureReader read_picture{};
  std::optional<int> time_limit{};
  std::vector<unsigned> expected{};
};

// The command of a command line that SendTable or LineTable has parsed, with its frames as the
// console would send them. Throws commandline::WrongUse, naming the range, for parameters that the
// command does not take; nothing is left half done.
Job Compose(const commandline::Parsed& parsed, const Means& means);

// "22,20" as numbers. Throws commandline::WrongUse for anything but pairs of hex digits with commas
// between them.
std::vector<unsigned> ParseStatuses(const std::string& text);

// Whether the command wears the printer's memory.
bool WearsMemory(std::string_view code);

}  // namespace vantrel::send
