// SPDX-License-Identifier: MIT

// The lines of a script that wait.

#include "printer/model/quoted.h"
#include "printer/service/script_commands.h"
#include "printer/service/script_text.h"

#include <array>
#include <string>

namespace vantrel::printer {
namespace {

using Answer = std::optional<ScriptAnswer>;
using For = ScriptWait::For;

constexpr int kDefaultWait = 10000;  // milliseconds
constexpr int kLongestWait = 3600000;

std::optional<int> MillisecondsIn(std::string_view text) {
  if (text.empty()) return kDefaultWait;
  const auto milliseconds = NumberIn(text);
  return milliseconds && *milliseconds >= 0 && *milliseconds <= kLongestWait ? milliseconds
                                                                             : std::nullopt;
}

// A wait that takes milliseconds alone.
Answer Begin(ScriptContext& context, const std::string& words, ScriptWait wait,
             std::string_view rest) {
  const auto milliseconds = MillisecondsIn(rest);
  if (!milliseconds) {
    return ScriptAnswer::Error(words + " takes milliseconds up to " + std::to_string(kLongestWait) +
                               ", or nothing");
  }
  wait.milliseconds = *milliseconds;
  context.wait = wait;
  return {};
}

// A wait that takes a code before them.
Answer BeginWithCode(ScriptContext& context, const std::string& words, For what,
                     std::string_view rest) {
  const auto [first, second] = Split(rest);
  const auto code = CodeIn(first);
  if (!first.empty() && first != "any" && !code) {
    if (second.empty() && MillisecondsIn(first)) {
      return ScriptAnswer::Error(std::string(first) + " is no code of two hex digits; \"" + words +
                                 " any " + std::string(first) + "\" waits so many milliseconds");
    }
    return ScriptAnswer::Error(words + " takes a code of two hex digits or \"any\", not " +
                               Quoted(first));
  }
  return Begin(context, words + " with a code or \"any\"", {.what = what, .code = code}, second);
}

Answer WaitForFrame(ScriptContext& context, std::string_view rest) {
  return BeginWithCode(context, "wait frame", For::kFrame, rest);
}

Answer WaitForReply(ScriptContext& context, std::string_view rest) {
  return BeginWithCode(context, "wait reply", For::kReply, rest);
}

Answer WaitForIdle(ScriptContext& context, std::string_view rest) {
  return Begin(context, "wait idle", {.what = For::kActivity, .activity = Activity::kIdle}, rest);
}

Answer WaitForCardWait(ScriptContext& context, std::string_view rest) {
  return Begin(context, "wait card-wait", {.what = For::kActivity, .activity = Activity::kCardWait},
               rest);
}

Answer WaitForRemovalWait(ScriptContext& context, std::string_view rest) {
  return Begin(context, "wait removal-wait",
               {.what = For::kActivity, .activity = Activity::kRemovalWait}, rest);
}

Answer WaitForEnd(ScriptContext& context, std::string_view rest) {
  return Begin(context, "wait end", {.what = For::kEnd}, rest);
}

constexpr std::array kCommands{
    ScriptCommand{"wait frame", WaitForFrame},
    ScriptCommand{"wait reply", WaitForReply},
    ScriptCommand{"wait idle", WaitForIdle},
    ScriptCommand{"wait card-wait", WaitForCardWait},
    ScriptCommand{"wait removal-wait", WaitForRemovalWait},
    ScriptCommand{"wait end", WaitForEnd},
};

}  // namespace

std::span<const ScriptCommand> WaitCommands() { return kCommands; }

}  // namespace vantrel::printer
