// SPDX-License-Identifier: MIT

#include "app/printer_table.h"
#include "commandline/this_program.h"

// In a file of its own, because the demonstration's table is made from the printer's.

namespace vantrel::app {

const commandline::Program& PrinterProgram() {
  static const commandline::Program kProgram = MakePrinterProgram();
  return kProgram;
}

}  // namespace vantrel::app

namespace vantrel::commandline {

const Program& ThisProgram() { return app::PrinterProgram(); }

}  // namespace vantrel::commandline
