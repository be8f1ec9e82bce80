// SPDX-License-Identifier: MIT

#include "app/console_table.h"

#include "commandline/this_program.h"

namespace vantrel::app {

const commandline::Program& ConsoleTable() {
  static const commandline::Program kProgram = {
      .name = "vantrel",
      .version = VANTREL_VERSION,
      .summary = "console for a serial rewritable-card printer",
      .description =
          "Shows one button for each of the printer's commands. The port and the speed are chosen "
          "in the menu Setting.",
  };
  return kProgram;
}

}  // namespace vantrel::app

namespace vantrel::commandline {

const Program& ThisProgram() { return app::ConsoleTable(); }

}  // namespace vantrel::commandline
