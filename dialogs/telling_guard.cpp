// SPDX-License-Identifier: MIT

#include "dialogs/telling_guard.h"

#include "dialogs/dialogs.h"

#include <exception>
#include <string>

namespace vantrel::dialogs {

void TellingGuard::Run(const std::function<void()>& work) {
  std::string fault;
  try {
    work();
    return;
  } catch (const std::exception& error) {
    fault = error.what();
  } catch (...) {
    fault = "Unknown error.";
  }
  // Outside of the catch clauses, because a box runs events of its own.
  dialogs_.MsgBox(
      fault + "\r\n\r\nThis is a fault of the program. Save what you need, then start it again.",
      Buttons::kOk, "Program Error", Icon::kCritical);
}

}  // namespace vantrel::dialogs
