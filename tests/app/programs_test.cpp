// SPDX-License-Identifier: MIT

// How the programs with windows begin: their command lines, and what they do where there is no
// display.

#include <QProcess>
#include <gtest/gtest.h>

#include <string>

namespace vantrel::app {
namespace {

struct Case {
  const char* name;
  QStringList arguments;  // with which it shows a window
  const char* advice;     // what it says of doing without one

  friend void PrintTo(const Case& program, std::ostream* out) { *out << program.name; }
};

struct Ended {
  int status;
  std::string out;
  std::string errors;
};

class ProgramsTest : public testing::TestWithParam<Case> {
 protected:
  ProgramsTest() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
      environment_.remove(name);
  }

  Ended Run(const QStringList& arguments) {
    QProcess program;
    program.setProcessEnvironment(environment_);
    program.start(QString(VANTREL_PROGRAMS "/") + GetParam().name, arguments);
    EXPECT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    return {program.exitCode(), program.readAllStandardOutput().toStdString(),
            program.readAllStandardError().toStdString()};
  }

  std::string Name() const { return GetParam().name; }

  QProcessEnvironment environment_ = QProcessEnvironment::systemEnvironment();
};

TEST_P(ProgramsTest, HelpNeedsNoDisplay) {
  const Ended ended = Run({"--help"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_TRUE(ended.out.starts_with("Usage: " + Name() + " ")) << ended.out;
  EXPECT_EQ(ended.errors, "");
  const Ended by_letter = Run({"-h"});
  EXPECT_EQ(by_letter.status, 0);
  EXPECT_EQ(by_letter.out, ended.out);
  EXPECT_EQ(Run({"-v"}).out, Run({"--version"}).out);
}

TEST_P(ProgramsTest, VersionIsOneLine) {
  const Ended ended = Run({"--version"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.out, Name() + " 1.01\n");
}

TEST_P(ProgramsTest, AnUnknownOptionIsToldInOneLineWithStatus2) {
  const Ended ended = Run({"--bogus"});
  EXPECT_EQ(ended.status, 2);
  EXPECT_EQ(ended.out, "");
  EXPECT_EQ(ended.errors, Name() + ": Unknown option 'bogus'. Try '" + Name() + " --help'.\n");
}

TEST_P(ProgramsTest, WithoutADisplayOneLineSaysSo) {
  const Ended ended = Run(GetParam().arguments);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.errors,
            Name() + ": there is no display for the window" + GetParam().advice + "\n");
}

TEST_P(ProgramsTest, ADisplayThatCannotBeReachedIsNamedInOneLine) {
  // No server has this number.
  environment_.insert("DISPLAY", ":65000");
  const Ended ended = Run(GetParam().arguments);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.errors,
            Name() + ": the display :65000 cannot be reached" + GetParam().advice + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Programs, ProgramsTest,
    testing::Values(Case{"vantrel", {}, "."}, Case{"vantrel-demo", {}, "."},
                    Case{"vantrel-printer", {}, "; --headless needs none."},
                    Case{"vantrel-log", {"view", "capture.pcapng"}, "; show needs none."}),
    [](const auto& case_info) { return QString(case_info.param.name).remove('-').toStdString(); });

class ConsoleCommandLineTest : public ProgramsTest {};

TEST_P(ConsoleCommandLineTest, AnArgumentIsToldInOneLineWithStatus2) {
  const Ended ended = Run({"COM1"});
  EXPECT_EQ(ended.status, 2);
  EXPECT_EQ(ended.errors, Name() + ": Unexpected argument 'COM1'. Try '" + Name() + " --help'.\n");
}

INSTANTIATE_TEST_SUITE_P(Programs, ConsoleCommandLineTest,
                         testing::Values(Case{"vantrel", {}, ""}, Case{"vantrel-demo", {}, ""}));

class DemoCommandLineTest : public ProgramsTest {};

TEST_P(DemoCommandLineTest, TakesThePrintersOptionsAndChecksThem) {
  EXPECT_EQ(Run({"--card", "--series", "ql9"}).errors,
            "vantrel-demo: --series is ql7 or ql8. Try 'vantrel-demo --help'.\n");
  EXPECT_EQ(Run({"--headless"}).errors,
            "vantrel-demo: Unknown option 'headless'. Try 'vantrel-demo --help'.\n");
  // Taken: it gets as far as the window.
  EXPECT_EQ(Run({"--card", "--series", "ql8", "--instant"}).status, 1);
}

INSTANTIATE_TEST_SUITE_P(Programs, DemoCommandLineTest,
                         testing::Values(Case{"vantrel-demo", {}, ""}));

}  // namespace
}  // namespace vantrel::app
