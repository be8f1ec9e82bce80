// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/window_dialogs.h"

namespace vantrel::endurance {

// What this program's main function has made.
struct TestProgram {
  // The real boxes.
  static dialogs::WindowDialogs& Dialogs();
  // The status with which a fault of what is tested would have ended the program, -1 while there
  // was none.
  static int& EndStatus();
  // Has the library's warnings told, but for those that are no fault of a window.
  static void KeepMessages();
};

}  // namespace vantrel::endurance
