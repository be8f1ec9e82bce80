// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/parse.h"
#include "send/answers.h"
#include "send/job.h"

#include <optional>
#include <string>

namespace vantrel::send {

// What the command line says beside the command itself.
struct Settings {
  std::string address;  // of the line, as LinePort takes it
  int speed = 9600;     // bits a second
  Format format = Format::kText;
  bool dry_run = false;
  bool from_input = false;  // the command is "-"
  bool keep_going = false;
  std::optional<long> rounds;
  bool until_failure = false;
  bool wear = false;
  long from = 1;           // the first line
  bool continues = false;  // --from was given
  std::string report;      // path; empty for none
  std::string capture;     // path; empty for none

  bool HasRounds() const { return rounds || until_failure; }
  bool IsMany() const { return from_input || HasRounds(); }
};

// Throws commandline::WrongUse for options that exclude or need each other.
Settings ReadSettings(const commandline::Parsed& parsed);

// Throws commandline::WrongUse for a command that wears the printer's memory among many without
// --wear.
void CheckWear(const Job& job, const Settings& settings);

}  // namespace vantrel::send
