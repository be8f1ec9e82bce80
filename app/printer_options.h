// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"
#include "link/code_page.h"
#include "printer/commands/printer_state.h"
#include "protocol/tcp_address.h"

#include <optional>
#include <string>

namespace vantrel::app {

// Where a window opens, without its frame, in device-independent pixels.
struct WindowPlace {
  int width = 0;
  int height = 0;
  int x = 0;
  int y = 0;
};

// The command line of the software printer.
struct PrinterOptions {
  bool headless = false;
  bool script = false;
  bool json = false;
  bool card = false;
  bool instant = false;
  // What is served in place of a pseudo-terminal, one of them at most; empty where none is told.
  std::optional<protocol::TcpAddress> tcp;
  std::string socket;
  std::string link;              // empty where none is asked for
  std::string capture;           // a file; empty where none is asked for
  std::string log;               // a file; empty where none is asked for
  std::optional<int> log_limit;  // in megabytes
  std::string replay;            // a capture; empty where none is played back
  bool match_code = false;
  std::string through;  // a device or "tcp:HOST:PORT"; empty where a printer is served
  printer::Series series = printer::Series::kQl7;
  int speed = 9600;  // bits a second
  bool pacing = true;
  bool case_parts = false;
  std::optional<WindowPlace> geometry;
  link::CodePage code_page = link::SystemCodePage();
};

// The options, or the status with which the program ends now; what is to be said has been said.
struct ParsedPrinterOptions {
  PrinterOptions options;
  std::optional<int> end;
};

// `program` has the printer's options, or some of them.
ParsedPrinterOptions ParsePrinterOptions(const commandline::Program& program, int argc,
                                         const char* const* argv);

}  // namespace vantrel::app
