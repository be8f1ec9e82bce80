// SPDX-License-Identifier: MIT
#pragma once

#include "printer/service/printer_server.h"
#include "tests/support/console_fixture.h"
#include "tests/support/installed_fonts.h"

#include <QTimer>

#include <string>
#include <vector>

namespace vantrel::endtoend {

// A software printer beside which someone stands: who puts the card in that a command waits for,
// and takes out the one that is to be removed.
class AttendedPrinter {
 public:
  explicit AttendedPrinter(
      const printer::PrinterServer::LineMaker& make_line = printer::MakePseudoTerminal);

  printer::PrinterServer& Server() { return server_; }

 private:
  void LendAHand();

  printer::PrinterModel model_{support::InstalledFonts(), link::CodePage::kWestern};
  printer::PrinterServer server_;
  QTimer hand_;
};

class AllCommandsTest : public support::ConsoleTest {
 protected:
  // Presses every button with a console on this device and returns what the screen shows after
  // each.
  std::vector<std::string> Session(const std::string& device);

  int went_well_ = 0;  // commands of all sessions whose reply has the normal status

 private:
  // What the console asks for a command, before it is asked.
  void Answer(const std::string& code);
};

}  // namespace vantrel::endtoend
