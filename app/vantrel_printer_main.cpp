// SPDX-License-Identifier: MIT

// The software printer as it is called. It needs no widgets; where a window is wanted, another
// program takes its place, in the same process.

#include "app/become_window.h"
#include "app/printer_options.h"
#include "app/printer_program.h"
#include "app/printer_table.h"

#include <QCoreApplication>

#include <cstdlib>

int main(int argc, char** argv) {
  using namespace vantrel::app;
  BeginPrinter();
  // Help and errors need no display.
  const auto [options, end] = ParsePrinterOptions(PrinterProgram(), argc, argv);
  if (end) return *end;
  if (!options.headless) {
    ComplainOfPrinter(BecomeWindow(VANTREL_PRINTER_WINDOW, argv) + "; --headless needs none.");
    return EXIT_FAILURE;
  }
  const QCoreApplication application(argc, argv);
  return RunPrinter(options, nullptr);
}
