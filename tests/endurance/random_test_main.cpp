// SPDX-License-Identifier: MIT

#include "console/guarded_application.h"
#include "tests/endurance/jumping_clock.h"
#include "tests/endurance/test_program.h"

#include <gtest/gtest.h>

#include <iostream>

namespace vantrel::endurance {
namespace {

// What is no fault of a window: the platform without a screen says what it cannot do each time.
void Tell(QtMsgType, const QMessageLogContext&, const QString& message) {
  if (!message.startsWith("This plugin does not support"))
    std::cerr << message.toStdString() << '\n';
}

}  // namespace

dialogs::WindowDialogs& TestProgram::Dialogs() {
  static dialogs::WindowDialogs dialogs;
  return dialogs;
}

void TestProgram::KeepMessages() { qInstallMessageHandler(Tell); }

int& TestProgram::EndStatus() {
  static int status = -1;
  return status;
}

}  // namespace vantrel::endurance

int main(int argc, char** argv) {
  using namespace vantrel;
  using endurance::TestProgram;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // The event loop whose waits the clock knows, and tables in the same order in every run.
  qputenv("QT_NO_GLIB", "1");
  qputenv("QT_HASH_SEED", "0");
  testing::InitGoogleTest(&argc, argv);
  endurance::TestProgram::KeepMessages();
  console::GuardedApplication application(argc, argv, TestProgram::Dialogs(),
                                          [](int status) { TestProgram::EndStatus() = status; });
  QApplication::setQuitOnLastWindowClosed(false);
  endurance::JumpingClock::Begin();
  return RUN_ALL_TESTS();
}
