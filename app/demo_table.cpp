// SPDX-License-Identifier: MIT

#include "app/demo_table.h"

#include "app/printer_table.h"
#include "commandline/this_program.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vantrel::app {
namespace {

constexpr std::array<std::string_view, 9> kTaken = {
    "replay", "match", "capture", "card", "instant", "series", "speed", "no-pacing", "case-parts"};

commandline::Program MakeProgram() {
  commandline::Program program = {
      .name = "vantrel-demo",
      .version = VANTREL_VERSION,
      .summary = "card printer console beside a software printer",
      .description =
          "Starts a software printer (vantrel-printer) and the console (vantrel) with that printer "
          "at COM 1. Put a card in, then press a button of the console. The options are the "
          "printer's.",
  };
  const commandline::Program printer = MakePrinterProgram();
  for (const commandline::Option& option : printer.options)
    if (std::find(kTaken.begin(), kTaken.end(), option.name) != kTaken.end())
      program.options.push_back(option);
  return program;
}

}  // namespace

const commandline::Program& DemoProgram() {
  static const commandline::Program kProgram = MakeProgram();
  return kProgram;
}

}  // namespace vantrel::app

namespace vantrel::commandline {

const Program& ThisProgram() { return app::DemoProgram(); }

}  // namespace vantrel::commandline
