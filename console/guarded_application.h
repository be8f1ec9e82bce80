// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialogs.h"
#include "dialogs/guard.h"

#include <QApplication>

#include <exception>
#include <functional>

namespace vantrel::console {

// The title of the box that tells a failure of the port.
inline constexpr const char* kPortErrorTitle = "Serial Port Error";

// The application, and the guard inside which the console's windows run what they connect. A
// failure of the port is shown and the program goes on. Any other exception is a fault of the
// program itself: it is shown and ends the run with status 1.
class GuardedApplication : public QApplication, public dialogs::Guard {
 public:
  using EndProgram = std::function<void(int status)>;

  // `dialogs` must outlive the application. `end_program` does not return in the real program.
  GuardedApplication(int& argc, char** argv, dialogs::Dialogs& dialogs, EndProgram end_program);

  void Run(const std::function<void()>& work) override;

  // The last net: deals with what an event throws that nothing above it ran inside the guard, such
  // as want of memory while a window is painted.
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  void Handle(const std::exception_ptr& thrown);

  dialogs::Dialogs& dialogs_;
  const EndProgram end_program_;
};

}  // namespace vantrel::console
