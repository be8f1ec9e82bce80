// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace vantrel::printer {

// A line that a script may hold. Its answer to "help" and the manual page follow from these rows.
struct ScriptLine {
  // What a line begins with, with one blank between words: "fault add".
  std::string_view words;
  // The whole line, "fault add TEXT".
  std::string_view usage;
  // Sentences for the manual page.
  std::string_view help;
  // Where it works: with a printer, with a capture that is played back, or both.
  enum class Where { kPrinter, kPlayback, kBoth } where = Where::kPrinter;
};

// Every line, in the order in which they are told.
std::span<const ScriptLine> ScriptLines();

}  // namespace vantrel::printer
