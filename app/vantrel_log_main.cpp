// SPDX-License-Identifier: MIT

// The program for captures as it is called. It needs no library for windows; for one, another
// program takes its place, in the same process.

#include "app/become_window.h"
#include "app/log_table.h"
#include "commandline/fault.h"
#include "commandline/parse.h"
#include "log/capture_commands.h"

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  vantrel::commandline::EndOnFaults("vantrel-log");
  const auto [parsed, end] =
      vantrel::commandline::Begin(vantrel::app::LogProgram(), argc, argv, std::cout, std::cerr);
  if (end) return *end;
  // A file that may not grow is told by the call that meets it.
  std::signal(SIGXFSZ, SIG_IGN);
  const auto& parameters = parsed.Parameters();
  const std::string& command = parsed.Command()->name;
  if (command == "show")
    return vantrel::log::ShowCapture(parameters[0], parsed.Has("json"), std::cout, std::cerr);
  if (command == "compare")
    return vantrel::log::CompareCaptures(parameters[0], parameters[1], parsed.Has("json"),
                                         std::cout, std::cerr);
  if (command == "view") {
    const std::string problem = vantrel::app::BecomeWindow(VANTREL_LOG_WINDOW, argv);
    std::cerr << "vantrel-log: " << problem << "; show needs none.\n";
    return EXIT_FAILURE;
  }
  return vantrel::log::ConvertCapture(parameters[0], parameters[1], std::cerr);
}
