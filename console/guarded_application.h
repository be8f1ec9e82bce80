#pragma once

#include "dialogs/dialogs.h"

#include <QApplication>

#include <exception>
#include <functional>

namespace vantrel {

// The application, and the one place where what an event handler throws is dealt with, so that no
// exception ever reaches the event loop. A failure of the port is shown and the program goes on.
// Any other exception is a fault of the program itself: it is shown and ends the run with status 1.
class GuardedApplication : public QApplication {
 public:
  using EndProgram = std::function<void(int status)>;

  // `dialogs` must outlive the application. `end_program` does not return in the real program.
  GuardedApplication(int& argc, char** argv, Dialogs& dialogs, EndProgram end_program);

  // Runs a handler. What it throws is dealt with here and does not pass through the library's own
  // functions, which would leave their work undone. There must be a GuardedApplication.
  static void Run(const std::function<void()>& handler);

  // Deals with what a handler throws that was not run by Run.
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  void Handle(const std::exception_ptr& thrown);

  Dialogs& dialogs_;
  const EndProgram end_program_;
};

}  // namespace vantrel
