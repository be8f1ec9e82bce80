// SPDX-License-Identifier: MIT

#include "printer/service/script_commands.h"

#include "printer/model/quoted.h"
#include "printer/service/script_text.h"
#include "printer/service/script_words.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>
#include <vector>

namespace vantrel::printer {
namespace {

using Where = ScriptLine::Where;

bool WorksHere(const ScriptContext& context, const ScriptLine& line) {
  return line.where == Where::kBoth ||
         (context.playback != nullptr) == (line.where == Where::kPlayback);
}

std::optional<ScriptAnswer> Help(const ScriptContext& context, std::string_view rest) {
  std::string text;
  std::vector<std::optional<std::string>> usages;
  for (const ScriptLine& line : ScriptLines()) {
    const bool asked = rest.empty() || line.words == rest || Split(line.words).first == rest;
    if (!asked || !WorksHere(context, line)) continue;
    if (!text.empty()) text += " | ";
    text += line.usage;
    if (!rest.empty()) text += ": " + std::string(line.help);
    usages.emplace_back(line.usage);
  }
  if (usages.empty()) return ScriptAnswer::Error("there is no line " + Quoted(rest));
  log::JsonObject members;
  members.Add("lines", usages);
  if (!rest.empty()) members.Add("help", text);
  return ScriptAnswer::Ok(text, members);
}

// The row whose words a line begins with, and what follows them.
std::pair<const ScriptLine*, std::string_view> RowOf(std::string_view line) {
  const auto [word, rest] = Split(line);
  const auto [second, further] = Split(rest);
  const std::string both = std::string(word) + ' ' + std::string(second);
  std::pair<const ScriptLine*, std::string_view> found{nullptr, rest};
  for (const ScriptLine& row : ScriptLines()) {
    if (row.words == both) return {&row, further};
    if (row.words == word) found.first = &row;
  }
  return found;
}

// What may follow a word that is no line alone: "new", "choose" or "list".
std::vector<std::string> FollowersOf(const ScriptContext& context, std::string_view word) {
  std::vector<std::string> followers;
  for (const ScriptLine& row : ScriptLines()) {
    const auto [first, second] = Split(row.words);
    if (first == word && !second.empty() && WorksHere(context, row))
      followers.push_back(Quoted(second));
  }
  return followers;
}

ScriptAnswer Unknown(const ScriptContext& context, std::string_view line) {
  const std::string_view word = Split(line).first;
  const std::vector<std::string> followers = FollowersOf(context, word);
  if (followers.empty())
    return ScriptAnswer::Error("unknown command " + Quoted(word) + "; help tells the commands");
  std::string text = std::string(word) + " takes ";
  for (std::size_t i = 0; i < followers.size(); ++i) {
    if (i > 0) text += i + 1 < followers.size() ? ", " : " or ";
    text += followers[i];
  }
  return ScriptAnswer::Error(text);
}

const ScriptCommand& CommandOf(const ScriptLine& row) {
  for (const auto& commands : {CardCommands(), PrinterCommands(), WaitCommands()}) {
    for (const ScriptCommand& command : commands) {
      if (command.words == row.words) return command;
    }
  }
  // A test holds that there is one for each row.
  std::terminate();
}

}  // namespace

ScriptAnswer ScriptAnswer::PathError(const std::string& path, const std::string& error) {
  const std::string quoted = Quoted(path);
  const bool is_long = quoted.ends_with("...\"");
  return Error(is_long && error.starts_with(path) ? quoted + error.substr(path.size()) : error);
}

std::optional<ScriptAnswer> DoScriptLine(ScriptContext& context, std::string_view line) {
  constexpr std::string_view kHelp = "help";
  constexpr std::string_view kTrack = "track";
  const auto [row, rest] = RowOf(line);
  if (row == nullptr) return Unknown(context, line);
  if (!WorksHere(context, *row)) {
    if (context.playback == nullptr) return Unknown(context, line);
    return ScriptAnswer::Error("a capture is played back; there is no printer to which " +
                               std::string(Split(line).first) + " could be done");
  }
  // This one tells of the rows themselves.
  if (row->words == kHelp) return Help(context, Trimmed(rest));
  return CommandOf(*row).run(context, row->words == kTrack ? rest : Trimmed(rest));
}

}  // namespace vantrel::printer
