// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::commandline {

// What a program takes on its command line, told once. Parsing, --help, the manual page and the
// shell's completion all follow from it. Fill these structures in place, naming the members.

// Whole numbers from `lowest` to `highest`, both included, written as decimal digits alone.
struct NumberRange {
  int lowest = 0;
  int highest = 0;
};

// What a shell offers for a value that has no choices.
enum class Completion { kNothing, kFiles };

// The value of an option, or a parameter.
struct Value {
  std::string name{};                  // in capitals, "DEVICE"; empty for an option without a value
  std::optional<NumberRange> range{};  // any other value is wrong use
  std::vector<std::string> choices{};  // so is one that is none of these, where there are some
  Completion completion = Completion::kNothing;
};

struct Option {
  std::string name{};  // without the dashes, "port"
  char letter = 0;     // "-h" for 'h'; 0 for none
  Value value{};
  std::string help{};  // sentences; "DEVICE" and "--port" in them are set off in the manual
  std::string default_value{};  // what Parsed::Value gives, and help tells, where it is not given
  bool repeated = false;        // may be given more than once; else the last one counts
  // Stands in place of all parameters of its command.
  bool replaces_parameters = false;
};

struct Parameter {
  Value value{};
  std::string help{};
  bool optional = false;  // only optional ones follow
  bool repeated = false;  // any number of them; the last of its command
};

// A command of a program that has several. Options of the program stand beside its own.
struct Command {
  std::string name{};
  std::string summary{};  // a few words without an end
  std::vector<Option> options{};
  std::vector<Parameter> parameters{};
};

// A line that a program takes on its standard input.
struct InputLine {
  std::string usage{};  // "fault add TEXT"
  std::string help{};   // sentences; words in capitals of `usage` are set off in the manual
};

struct Program {
  std::string name{};
  std::string version{};
  std::string summary{};      // a few words without an end, "a card printer in software"
  std::string description{};  // sentences, for --help alone
  // The lines of the synopsis without the program's name; empty for the usual one.
  std::vector<std::string> synopsis{};
  std::vector<Option> options{};
  std::vector<Parameter> parameters{};  // where there are no commands
  std::vector<Command> commands{};
  bool commands_ignore_case = false;
  // For the manual page alone.
  std::vector<InputLine> input_lines{};
  // Lines that --help ends with, shown as they stand.
  std::string notes{};
};

// The command of that name; null where there is none.
const Command* FindCommand(const Program& program, std::string_view name);

// "-h, --help", "--port DEVICE": how an option is written.
std::string Spelling(const Option& option);
// "TRACKS", "[FILE]", "LINE...".
std::string Spelling(const Parameter& parameter);
// What may follow the program's name: the synopsis told, or "[OPTIONS] COMMAND [PARAMETERS]".
std::vector<std::string> SynopsisOf(const Program& program);
// The same of one command: "41 [OPTIONS] TEXT".
std::string SynopsisOf(const Command& command);

// The options of every program: --help and --version.
const std::vector<Option>& CommonOptions();

}  // namespace vantrel::commandline
