// The software printer as it is called. It needs no widgets; where a window is wanted, another
// program takes its place, in the same process.

#include "app/printer_options.h"
#include "app/printer_program.h"
#include "app/printer_table.h"

#include <QCoreApplication>

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

namespace {

// Returns only where the program with the window cannot be started, with the status to end with.
int BecomeWindow(char** argv) {
  std::error_code error;
  const auto here = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  const std::string program = (here / VANTREL_PRINTER_WINDOW).lexically_normal().string();
  execv(program.c_str(), argv);
  vantrel::app::ComplainOfPrinter("the window's program " + program + " cannot be started: " +
                                  std::strerror(errno) + "; --headless needs none.");
  return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace vantrel::app;
  BeginPrinter();
  // Help and errors need no display.
  const auto [options, end] = ParsePrinterOptions(PrinterProgram(), argc, argv);
  if (end) return *end;
  if (!options.headless) return BecomeWindow(argv);
  const QCoreApplication application(argc, argv);
  return RunPrinter(options, nullptr);
}
