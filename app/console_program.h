#pragma once

#include "console/guarded_application.h"
#include "dialogs/program_start.h"
#include "dialogs/window_dialogs.h"
#include "link/serial_port.h"

#include <optional>

namespace vantrel::app {

// The console as a program of its own: the application object, its dialogs and, while it runs, its
// form.
class ConsoleProgram {
 public:
  // `name` is the program's. Ends the process with status 1 where there is no display.
  ConsoleProgram(const char* name, int& argc, char** argv);

  // Runs the console on the devices that `device_of` names until it is closed. Returns 0; Exit and
  // a fault of the program end the process at once instead, with status 0 and 1.
  int Run(link::SerialPort::DeviceOf device_of);

 private:
  std::optional<dialogs::DisplayWatch> display_;  // until the application is made
  dialogs::WindowDialogs dialogs_;
  console::GuardedApplication application_;
};

}  // namespace vantrel::app
