// SPDX-License-Identifier: MIT

#include "console/guarded_application.h"

#include "link/port.h"
#include "link/transaction.h"

#include <exception>
#include <optional>
#include <string>
#include <utility>

namespace vantrel::console {

GuardedApplication::GuardedApplication(int& argc, char** argv, dialogs::Dialogs& dialogs,
                                       EndProgram end_program)
    : QApplication(argc, argv), dialogs_(dialogs), end_program_(std::move(end_program)) {
  // A hidden console or a closed box is no reason to quit.
  setQuitOnLastWindowClosed(false);
}

void GuardedApplication::Run(const std::function<void()>& work) {
  std::exception_ptr thrown;
  try {
    work();
  } catch (...) {
    thrown = std::current_exception();
  }
  if (thrown) Handle(thrown);
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  std::exception_ptr thrown;
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    thrown = std::current_exception();
  }
  Handle(thrown);
  return true;
}

// Boxes are shown outside of any catch clause, because they run events of their own.
void GuardedApplication::Handle(const std::exception_ptr& thrown) {
  std::optional<std::string> port_failure;
  std::string fault;
  try {
    std::rethrow_exception(thrown);
  } catch (const link::ExchangeEnded&) {
    return;
  } catch (const link::PortError& error) {
    port_failure = error.what();
  } catch (const std::exception& error) {
    fault = error.what();
  } catch (...) {
    fault = "Unknown error.";
  }
  if (port_failure) {
    dialogs_.MsgBox(*port_failure, dialogs::Buttons::kOk, kPortErrorTitle,
                    dialogs::Icon::kCritical);
    return;
  }
  dialogs_.MsgBox(fault + "\r\n\r\nThis is a fault of the program. It will end now.",
                  dialogs::Buttons::kOk, "Program Error", dialogs::Icon::kCritical);
  end_program_(1);
}

}  // namespace vantrel::console
