// SPDX-License-Identifier: MIT

// With what status the console's program ends. Each end is that of a process of its own.

#include "app/console_program.h"

#include "console/frm_vantrel.h"
#include "tests/support/missing_device.h"
#include "tests/support/scripted_dialogs.h"

#include <QApplication>
#include <QIcon>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace vantrel::app {
namespace {

class ConsoleProgramDeathTest : public testing::Test {
 protected:
  ConsoleProgramDeathTest() {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
  }

  // Runs the program, does something to its form once it is up, and ends with the status that it
  // returns.
  [[noreturn]] static void RunAndEnd(void (*act)(console::FrmVantrel& form)) {
    std::string name = "console_program_test";
    char* arguments[] = {name.data(), nullptr};
    int count = 1;
    support::ScriptedDialogs dialogs;
    // There is no such device, which is told when the window is up.
    dialogs.Answers(dialogs::Answer::kOk);
    // Told if the program has a fault.
    dialogs.Answers(dialogs::Answer::kOk);
    ConsoleProgram program("vantrel", count, arguments, dialogs);
    const int status = program.Run([](int) { return support::MissingDevice(); },
                                   [act](console::FrmVantrel& form) {
                                     QTimer::singleShot(0, &form, [act, &form] { act(form); });
                                   });
    std::_Exit(status);
  }
};

TEST_F(ConsoleProgramDeathTest, EndsWith0WhenItsWindowIsClosed) {
  EXPECT_EXIT(RunAndEnd([](console::FrmVantrel& form) { form.close(); }),
              testing::ExitedWithCode(0), "");
}

TEST_F(ConsoleProgramDeathTest, EndsWith0ByExit) {
  EXPECT_EXIT(RunAndEnd([](console::FrmVantrel& form) {
                form.findChild<QPushButton*>("CmdExit")->click();
              }),
              testing::ExitedWithCode(0), "");
}

TEST_F(ConsoleProgramDeathTest, EndsWith1ByAFaultOfTheProgram) {
  EXPECT_EXIT(RunAndEnd([](console::FrmVantrel&) { throw std::logic_error("No memory."); }),
              testing::ExitedWithCode(1), "");
}

TEST_F(ConsoleProgramDeathTest, HasTheNameAndTheIconOfTheProgram) {
  EXPECT_EXIT(RunAndEnd([](console::FrmVantrel& form) {
                const bool good = QApplication::applicationName() == "vantrel" &&
                                  QApplication::applicationVersion() == VANTREL_VERSION &&
                                  !form.windowIcon().isNull();
                std::_Exit(good ? 7 : 8);
              }),
              testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace vantrel::app
