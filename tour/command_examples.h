// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace vantrel::tour {

// What the tables of the programs do not know of a command.
struct CommandExample {
  std::string_view code;
  // What the console asks before it sends, in sentences.
  std::string_view asks = "Nothing.";
  // An example's parameters for vantrel-send. A parameter "logo.bmp" stands for a small picture.
  std::vector<std::string_view> parameters{};
  // What the software printer may answer of its own accord beside 20h, but for the 22h of a command
  // that needs a card.
  std::string_view statuses{};
};

// A row for each command of which there is something to say.
std::span<const CommandExample> CommandExamples();

}  // namespace vantrel::tour
