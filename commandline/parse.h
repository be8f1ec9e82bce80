// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"

#include <iosfwd>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::commandline {

inline constexpr int kFailureStatus = 1;
inline constexpr int kWrongUseStatus = 2;

// The command line is not one that the table allows. what() is one sentence.
class WrongUse : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A command line as the table understands it.
class Parsed {
 public:
  // Whether the option was given.
  bool Has(std::string_view option) const { return values_.contains(option); }
  // Its last value, else its default; "" where it has neither.
  std::string Value(std::string_view option) const;
  // Its values in their order; none where it was not given.
  std::vector<std::string> Values(std::string_view option) const;
  // Value of an option with a range, as a number. Throws std::invalid_argument where there is none.
  int Number(std::string_view option) const { return std::stoi(Value(option)); }

  // Null for a program without commands.
  const commandline::Command* Command() const { return command_; }
  const std::vector<std::string>& Parameters() const { return parameters_; }

 private:
  friend class Parser;

  const commandline::Command* command_ = nullptr;
  std::vector<std::string> parameters_;
  std::map<std::string, std::vector<std::string>, std::less<>> values_;
  std::map<std::string, std::string, std::less<>> defaults_;
};

// Reads the arguments that follow the program's name. Options stand anywhere before "--", as
// "--x 5" or "--x=5"; after "--" everything is a parameter, and "-" alone always is one. Throws
// WrongUse for what the table does not allow; where --help or --version comes before the mistake,
// returns with that option alone. `program` must outlive what is returned.
Parsed Parse(const Program& program, std::span<const std::string> arguments);

// A parsed command line, or the status with which the program ends now.
struct Start {
  Parsed parsed;
  std::optional<int> end;
};

// Parses what main was given and answers what every program answers alike: --help and --version on
// `out` as TellText does, wrong use on `errors` with status 2.
Start Begin(const Program& program, int argc, const char* const* argv, std::ostream& out,
            std::ostream& errors);

// Writes a text that was asked for to `out`. Returns the status 0, or 1, with a sentence on
// `errors`, where it cannot be written.
int TellText(const Program& program, const std::string& text, std::ostream& out,
             std::ostream& errors);

// Writes "PROGRAM: sentence" with the hint at --help, one line; returns the status of wrong use.
// Also for what the table cannot see.
int TellWrongUse(const Program& program, const std::string& sentence, std::ostream& errors);

// A value within its range or among its choices comes back as it is to be used: a number without
// leading zeros. Throws WrongUse, in a sentence that begins with `subject`, for any other.
std::string Checked(const Value& value, const std::string& subject, const std::string& text);

// "a, b or c".
std::string Listed(const std::vector<std::string>& words);

}  // namespace vantrel::commandline
