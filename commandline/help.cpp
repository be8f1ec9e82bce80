// SPDX-License-Identifier: MIT

#include "commandline/help.h"

#include "commandline/parse.h"

#include <algorithm>

namespace vantrel::commandline {
namespace {

constexpr std::size_t kWidth = 80;
constexpr std::size_t kWidestName = 26;

// The words of a text in lines that begin at `indent` and end before kWidth; the first line begins
// where the caller has written up to.
std::string Wrapped(const std::string& text, std::size_t indent) {
  std::string result;
  std::size_t column = indent;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    const std::string word = text.substr(start, end - start);
    if (column > indent && column + 1 + word.size() > kWidth) {
      result += '\n' + std::string(indent, ' ');
      column = indent;
    } else if (column > indent) {
      result += ' ';
      ++column;
    }
    result += word;
    column += word.size();
    start = end + 1;
  }
  return result + '\n';
}

struct Row {
  std::string name;
  std::string help;
};

// Names on the left, help on the right; a name that is too wide stands on a line of its own.
std::string TwoColumns(const std::vector<Row>& rows) {
  std::size_t widest = 0;
  for (const Row& row : rows) widest = std::max(widest, std::min(row.name.size(), kWidestName));
  const std::size_t indent = widest + 4;
  std::string text;
  for (const Row& row : rows) {
    text += "  " + row.name;
    text += row.name.size() <= widest ? std::string(widest - row.name.size() + 2, ' ')
                                      : '\n' + std::string(indent, ' ');
    text += Wrapped(row.help, indent);
  }
  return text;
}

std::vector<Row> RowsOf(const std::vector<Option>& options) {
  std::vector<Row> rows;
  rows.reserve(options.size());
  for (const Option& option : options) {
    // Options without a letter begin where the others' names do.
    rows.push_back({(option.letter == 0 ? "    " : "") + Spelling(option), HelpOf(option)});
  }
  return rows;
}

std::string Limits(const Value& value, const std::string& default_value) {
  std::string text;
  if (value.range)
    text = std::to_string(value.range->lowest) + " to " + std::to_string(value.range->highest);
  if (!value.choices.empty()) text = Listed(value.choices);
  if (!default_value.empty()) text += (text.empty() ? "" : "; ") + default_value + " if not told";
  return text;
}

// The last sentence of a help goes on with the limits.
std::string WithLimits(std::string help, const std::string& limits) {
  if (limits.empty()) return help;
  if (help.empty()) return limits + ".";
  if (help.back() == '.') help.pop_back();
  return help + "; " + limits + ".";
}

std::string Section(const std::string& title, const std::vector<Row>& rows) {
  return rows.empty() ? "" : '\n' + title + ":\n" + TwoColumns(rows);
}

}  // namespace

std::string HelpOf(const Option& option) {
  return WithLimits(option.help, Limits(option.value, option.default_value));
}

std::string HelpOf(const Parameter& parameter) {
  return WithLimits(parameter.help, Limits(parameter.value, ""));
}

std::string HelpText(const Program& program) {
  std::string text;
  for (const std::string& line : SynopsisOf(program)) {
    const std::string lead = (text.empty() ? "Usage: " : "       ") + program.name + ' ';
    text += lead + Wrapped(line, lead.size());
  }
  if (!program.description.empty()) text += '\n' + Wrapped(program.description, 0);
  std::vector<Row> rows;
  for (const Parameter& parameter : program.parameters)
    rows.push_back({parameter.value.name, HelpOf(parameter)});
  text += Section("Parameters", rows);
  std::vector<Option> options = CommonOptions();
  options.insert(options.end(), program.options.begin(), program.options.end());
  text += Section("Options", RowsOf(options));
  rows.clear();
  for (const Command& command : program.commands)
    rows.push_back({SynopsisOf(command), command.summary});
  text += Section("Commands", rows);
  if (!program.notes.empty()) text += '\n' + program.notes;
  return text;
}

std::string HelpText(const Program& program, const Command& command) {
  std::string text =
      "Usage: " + program.name + ' ' + SynopsisOf(command) + "\n\n" + Wrapped(command.summary, 0);
  std::vector<Row> rows;
  for (const Parameter& parameter : command.parameters)
    rows.push_back({parameter.value.name, HelpOf(parameter)});
  text += Section("Parameters", rows);
  return text + Section("Options", RowsOf(command.options));
}

}  // namespace vantrel::commandline
