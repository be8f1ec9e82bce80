// SPDX-License-Identifier: MIT

#include "commandline/table.h"

#include <algorithm>
#include <cctype>

namespace vantrel::commandline {
namespace {

bool SameWithoutCase(std::string_view one, std::string_view other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) ==
           std::tolower(static_cast<unsigned char>(b));
  });
}

void AppendParameters(std::string& text, const std::vector<Parameter>& parameters) {
  for (const Parameter& parameter : parameters) text += " " + Spelling(parameter);
}

}  // namespace

const Command* FindCommand(const Program& program, std::string_view name) {
  const auto found =
      std::find_if(program.commands.begin(), program.commands.end(), [&](const Command& command) {
        return program.commands_ignore_case ? SameWithoutCase(command.name, name)
                                            : command.name == name;
      });
  return found == program.commands.end() ? nullptr : &*found;
}

std::string Spelling(const Option& option) {
  std::string text;
  if (option.letter != 0) text = std::string("-") + option.letter + ", ";
  text += "--" + option.name;
  if (!option.value.name.empty()) text += " " + option.value.name;
  return text;
}

std::string Spelling(const Parameter& parameter) {
  const std::string name = parameter.value.name + (parameter.repeated ? "..." : "");
  return parameter.optional ? "[" + name + "]" : name;
}

std::vector<std::string> SynopsisOf(const Program& program) {
  if (!program.synopsis.empty()) return program.synopsis;
  std::string usual = "[OPTIONS]";
  if (!program.commands.empty()) usual += " COMMAND [PARAMETERS]";
  AppendParameters(usual, program.parameters);
  return {usual};
}

std::string SynopsisOf(const Command& command) {
  std::string text = command.name;
  if (!command.options.empty()) text += " [OPTIONS]";
  AppendParameters(text, command.parameters);
  return text;
}

const std::vector<Option>& CommonOptions() {
  static const std::vector<Option> kCommon = {
      {.name = "help", .letter = 'h', .help = "Tells these options and ends."},
      {.name = "version", .letter = 'v', .help = "Tells the version and ends."},
  };
  return kCommon;
}

}  // namespace vantrel::commandline
