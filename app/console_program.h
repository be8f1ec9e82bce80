#pragma once

#include "link/serial_port.h"

namespace vantrel {

// Runs the console on the devices that `device_of` names, until it is closed or left. Returns the
// status of the run: 0, or 1 after a fault of the program.
int RunConsole(int& argc, char** argv, SerialPort::DeviceOf device_of);

}  // namespace vantrel
