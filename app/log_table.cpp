// SPDX-License-Identifier: MIT

#include "app/log_table.h"

#include "commandline/this_program.h"

namespace vantrel::app {
namespace {

using commandline::Completion;
using commandline::Parameter;
using commandline::Program;

Parameter File(const char* name, const char* help) {
  return {.value = {.name = name, .completion = Completion::kFiles}, .help = help};
}

Program MakeProgram() {
  return {
      .name = "vantrel-log",
      .version = VANTREL_VERSION,
      .summary = "shows, compares and converts captures of a printer's line",
      .description =
          "Shows, compares and converts captures of what went over the line of a card "
          "printer, as vantrel-printer --capture writes them: pcapng files of link type "
          "250, or 147.",
      .commands =
          {{.name = "show",
            .summary = "shows the rows of a capture",
            .options = {{.name = "json",
                         .help = "Shows each row as one JSON object a line, its time in UTC."}},
            .parameters = {File("FILE", "The capture.")}},
           {.name = "compare",
            .summary = "tells what differs between two captures",
            .options = {{.name = "json",
                         .help = "Tells each difference as one JSON object a line."}},
            .parameters = {File("A", "A capture; exchanges are counted in it."),
                           File("B", "The capture to compare with it.")}},
           {.name = "view",
            .summary = "shows a capture, or two side by side, in a window",
            .parameters = {File("FILE", "The capture."),
                           {.value = {.name = "OTHER", .completion = Completion::kFiles},
                            .help = "A capture to show beside it, with the differences marked.",
                            .optional = true}}},
           {.name = "convert",
            .summary = "makes a capture, CSV or text of a capture or CSV",
            .parameters = {File("IN", "A capture, or a log as CSV; its contents decide."),
                           File("OUT",
                                "The file to make, replaced whole; its ending .pcapng, .csv "
                                "or .txt decides.")}}},
  };
}

}  // namespace

const Program& LogProgram() {
  static const Program kProgram = MakeProgram();
  return kProgram;
}

}  // namespace vantrel::app

namespace vantrel::commandline {

const Program& ThisProgram() { return app::LogProgram(); }

}  // namespace vantrel::commandline
