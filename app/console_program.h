#pragma once

#include "console/guarded_application.h"
#include "dialogs/window_dialogs.h"
#include "link/serial_port.h"

namespace vantrel::app {

// The console as a program of its own: the application object, its dialogs and, while it runs, its
// form.
class ConsoleProgram {
 public:
  ConsoleProgram(int& argc, char** argv);

  // Runs the console on the devices that `device_of` names until it is closed. Returns 0; Exit and
  // a fault of the program end the process at once instead, with status 0 and 1.
  int Run(link::SerialPort::DeviceOf device_of);

 private:
  dialogs::WindowDialogs dialogs_;
  console::GuardedApplication application_;
};

}  // namespace vantrel::app
