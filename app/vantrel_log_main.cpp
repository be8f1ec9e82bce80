#include "app/log_table.h"
#include "app/view_captures.h"
#include "commandline/fault.h"
#include "commandline/parse.h"
#include "log/capture_commands.h"

#include <csignal>
#include <iostream>

// Only view needs a display.
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
  if (command == "view") return vantrel::app::ViewCaptures(argc, argv, parameters);
  return vantrel::log::ConvertCapture(parameters[0], parameters[1], std::cerr);
}
