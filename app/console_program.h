// SPDX-License-Identifier: MIT
#pragma once

#include "console/guarded_application.h"
#include "dialogs/program_start.h"
#include "link/serial_port.h"

#include <functional>
#include <optional>

namespace vantrel::console {
class FrmVantrel;
}

namespace vantrel::app {

// The console as a program of its own: the application object, its dialogs and, while it runs, its
// form.
class ConsoleProgram {
 public:
  // Does what is still to be done before the form is shown.
  using Prepare = std::function<void(console::FrmVantrel& form)>;

  // `name` is the program's, `dialogs` outlives it. Ends the process with status 1 where there is
  // no display.
  ConsoleProgram(const char* name, int& argc, char** argv, dialogs::Dialogs& dialogs);

  // Runs the console on the devices that `device_of` names until it is closed. Returns 0; Exit and
  // a fault of the program end the process at once instead, with status 0 and 1.
  int Run(link::SerialPort::DeviceOf device_of, const Prepare& prepare = {});

 private:
  std::optional<dialogs::DisplayWatch> display_;  // until the application is made
  dialogs::Dialogs& dialogs_;
  console::GuardedApplication application_;
};

}  // namespace vantrel::app
