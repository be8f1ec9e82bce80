#pragma once

#include "dialogs/dialogs.h"

#include <QApplication>

#include <functional>

namespace vantrel {

// The application, and the one place where what an event handler throws is caught, so that no
// exception ever reaches the event loop. A failure of the port is shown and the program goes on.
// Any other exception is a fault of the program itself: it is shown and ends the run with status 1.
class GuardedApplication : public QApplication {
 public:
  using EndProgram = std::function<void(int status)>;

  // `dialogs` must outlive the application. `end_program` does not return in the real program.
  GuardedApplication(int& argc, char** argv, Dialogs& dialogs, EndProgram end_program);

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  Dialogs& dialogs_;
  const EndProgram end_program_;
};

}  // namespace vantrel
