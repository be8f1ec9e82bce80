// SPDX-License-Identifier: MIT

#include "tests/printer/program/printer_program.h"

#include "tests/support/device_user.h"
#include "tests/support/patience.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <gtest/gtest.h>

#include <termios.h>

#include <string>

namespace vantrel::printer {
namespace {

TEST_F(PrinterProgram, ServesWithoutAWindowUntilItIsEnded) {
  const support::DeviceUser console(Serve());
  ASSERT_TRUE(console.IsOpen());
  // The transport count is "0".
  console.Write("02 95 03 96");
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
  program_.terminate();
  EXPECT_EQ(End(), 0);
}

TEST_F(PrinterProgram, NeedsNoDisplayWithoutAWindow) {
  auto environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    environment.remove(name);
  program_.setProcessEnvironment(environment);
  EXPECT_TRUE(support::DeviceUser(Serve()).IsOpen());
}

TEST_F(PrinterProgram, SaysThatAWindowNeedsADisplay) {
  auto environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    environment.remove(name);
  program_.setProcessEnvironment(environment);
  Start({});
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(program_.readAllStandardError(),
            "vantrel-printer: there is no display for the window; --headless needs none.\n");
}

TEST_F(PrinterProgram, ServesWithAWindowToo) {
  Start({"--instant"});
  ASSERT_TRUE(program_.waitForReadyRead(support::kPatience));
  const support::DeviceUser console(program_.readLine().trimmed().toStdString());
  console.Write("02 95 03 96");
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
  program_.terminate();
  EXPECT_EQ(End(), 0);
}

TEST_F(PrinterProgram, SaysThatTheProgramWithItsWindowIsNotThere) {
  // As where nothing with windows is installed.
  ASSERT_TRUE(QDir(folder_.path()).mkpath("bin"));
  const QString alone = folder_.filePath("bin/vantrel-printer");
  ASSERT_TRUE(QFile::copy(VANTREL_PRINTER_PROGRAM, alone));
  program_.start(alone, {});
  EXPECT_EQ(End(), 1);
  const QString window =
      QFileInfo(folder_.path()).canonicalFilePath() + "/libexec/vantrel/vantrel-printer-window";
  EXPECT_EQ(program_.readAllStandardError(),
            "vantrel-printer: the window's program " + window.toUtf8() +
                " is not installed; it is in the package vantrel, which has all windows; "
                "--headless needs none.\n");
  // As where it is there and cannot be run.
  ASSERT_TRUE(QDir().mkpath(QFileInfo(window).path()));
  ASSERT_TRUE(QFile(window).open(QIODevice::WriteOnly));
  program_.start(alone, {});
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(program_.readAllStandardError(),
            "vantrel-printer: the window's program " + window.toUtf8() +
                " cannot be started: Permission denied; --headless needs none.\n");
  program_.start(alone, {"--headless"});
  ASSERT_TRUE(program_.waitForReadyRead(support::kPatience));
  EXPECT_TRUE(support::DeviceUser(program_.readLine().trimmed().toStdString()).IsOpen());
}

TEST_F(PrinterProgram, BeginsWithACardAtTheFrontAndNoWorkTime) {
  const support::DeviceUser console(Serve({"--card", "--instant"}));
  // Place 1, ordinary card 1, no wait, target 1; buzzer off, green, LED off; cleaning button on.
  console.Write("02 59 03 5A");
  EXPECT_EQ(console.Read(14), "06 02 59 20 31 31 30 31 30 31 30 31 03 7B");
  // Track 2 of the card is "0123456789"; its digits cancel out but for 01h.
  console.Write("02 22 03 21");
  EXPECT_EQ(console.Read(16), "06 02 22 20 30 31 32 33 34 35 36 37 38 39 03 00");
}

TEST_F(PrinterProgram, ServesAConsoleThatComesAfterAnother) {
  const std::string device = Serve();
  for (int i = 0; i < 3; ++i) {
    const support::DeviceUser console(device);
    console.Write("02 54 03 57");
    EXPECT_EQ(console.Read(6), "06 02 54 20 03 77");
  }
}

TEST_F(PrinterProgram, KeepsServingWhenNobodyReads) {
  // At a line's speed all that would take half a minute.
  const std::string device = Serve({"--no-pacing"});
  {
    // More answers than a terminal holds.
    const support::DeviceUser deaf(device);
    for (int i = 0; i < 2000; ++i) deaf.Write("02 59 03 5A");
  }
  const support::DeviceUser console(device);
  // An answer that comes while the device is still full is lost, so the console asks again.
  bool answered = false;
  for (int i = 0; i < 50 && !answered; ++i) {
    console.Write("02 54 03 57");
    answered = console.ReadsTo("06 02 54 20 03 77", 200);
  }
  EXPECT_TRUE(answered);
}

TEST_F(PrinterProgram, GoesOnWhenTheReaderOfItsFirstLineHasGone) {
  const std::string device = Serve();
  program_.closeReadChannel(QProcess::StandardOutput);
  const support::DeviceUser console(device);
  console.Write("02 95 03 96");
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
  program_.terminate();
  EXPECT_EQ(End(), 0);
}

TEST_F(PrinterProgram, EndsWhereItsFirstLineCannotBeWritten) {
  for (const char* output : {">/dev/full", ">&-", ">&0 0</dev/null"}) {
    const QString link = folder_.filePath("printer");
    program_.start("/bin/sh", {"-c", QString("exec \"$0\" --headless --link \"$1\" ") + output,
                               VANTREL_PRINTER_PROGRAM, link});
    EXPECT_EQ(End(), 1) << output;
    EXPECT_EQ(program_.readAllStandardError(),
              "vantrel-printer: standard output cannot be written.\n")
        << output;
    EXPECT_FALSE(QFileInfo(link).isSymLink());
  }
}

TEST_F(PrinterProgram, IsOfTheSeriesThatItIsTold) {
  const support::DeviceUser console(Serve({"--card", "--instant", "--series", "ql8"}));
  console.Write("02 31 31 03 03");
  EXPECT_EQ(console.Read(1), "10");
}

TEST_F(PrinterProgram, HasTheCasePartsFittedWhenTold) {
  const support::DeviceUser console(Serve({"--card", "--instant", "--case-parts"}));
  console.Write("02 48 32 03 79");
  EXPECT_EQ(console.Read(1), "10");
}

TEST_F(PrinterProgram, UnderstandsAConsoleAtItsSpeedOnly) {
  const support::DeviceUser console(Serve({"--speed", "19200"}));
  termios settings{};
  ASSERT_EQ(tcgetattr(console.Descriptor(), &settings), 0);
  // What is asked at 9600 is lost; the first answer is that to the second question.
  console.Write("02 95 03 96");
  EXPECT_FALSE(console.ReadsTo("86", 200));
  cfsetspeed(&settings, B19200);
  ASSERT_EQ(tcsetattr(console.Descriptor(), TCSANOW, &settings), 0);
  console.Write("02 96 03 95");
  EXPECT_EQ(console.Read(7), "06 02 96 20 30 03 85");
}

TEST_F(PrinterProgram, UnderstandsEverySpeedWithoutPacing) {
  const support::DeviceUser console(Serve({"--speed", "19200", "--no-pacing"}));
  console.Write("02 95 03 96");
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
}

// Of 300 bits a second, so that a line with its pacing would answer in 233 ms and understand
// nothing at another speed.
TEST_F(PrinterProgram, InstantTurnsPacingOff) {
  const support::DeviceUser console(Serve({"--instant", "--speed", "300"}));
  console.Write("02 95 03 96");
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
}

TEST_F(PrinterProgram, AnswersNoFasterThanTheLine) {
  const support::DeviceUser console(Serve({"--speed", "300"}));
  termios settings{};
  ASSERT_EQ(tcgetattr(console.Descriptor(), &settings), 0);
  cfsetspeed(&settings, B300);
  ASSERT_EQ(tcsetattr(console.Descriptor(), TCSANOW, &settings), 0);
  QElapsedTimer elapsed;
  elapsed.start();
  console.Write("02 95 03 96");
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
  // 70 bits.
  EXPECT_GE(elapsed.elapsed(), 233);
}

TEST_F(PrinterProgram, MakesALinkAndRemovesIt) {
  const QString link = folder_.filePath("printer");
  const std::string device = Serve({"--link", link});
  EXPECT_EQ(QFile::symLinkTarget(link).toStdString(), device);
  const support::DeviceUser console(link.toStdString());
  console.Write("02 54 03 57");
  EXPECT_EQ(console.Read(6), "06 02 54 20 03 77");
  program_.terminate();
  EXPECT_EQ(End(), 0);
  EXPECT_FALSE(QFileInfo(link).isSymLink());
}

TEST_F(PrinterProgram, RefusesALinkWhereThereIsAFile) {
  QFile file(folder_.filePath("printer"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  EXPECT_EQ(Serve({"--link", file.fileName()}), "");
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(program_.readAllStandardError(),
            "vantrel-printer: The link " + file.fileName().toUtf8() +
                " was not made: there is something of that name already.\n");
  EXPECT_TRUE(file.exists());
}

TEST_F(PrinterProgram, RefusesALinkThatCannotBeMade) {
  Start({"--headless", "--link", folder_.filePath("missing/printer")});
  EXPECT_EQ(End(), 1);
  EXPECT_TRUE(program_.readAllStandardError().contains("No such file or directory"));
}

TEST_F(PrinterProgram, ExplainsEachOption) {
  Start({"--help"});
  EXPECT_EQ(End(), 0);
  const QByteArray help = program_.readAllStandardOutput().simplified();
  for (const char* text : {"--help",
                           "Tells these options",
                           "--version",
                           "Tells the version",
                           "--headless",
                           "Shows no window",
                           "--link PATH",
                           "Makes the symbolic link PATH",
                           "--card",
                           "--series SERIES",
                           "ql7 or ql8",
                           "--speed BPS",
                           "bits a second",
                           "--no-pacing",
                           "at any speed",
                           "--case-parts",
                           "accessory parts fitted",
                           "Starts with a card inserted at the front.",
                           "--instant",
                           "take no time.",
                           "--script",
                           "Takes commands from standard input",
                           "--through DEVICE",
                           "passes on every byte",
                           "The data of the reply to 59h are eight digits:"}) {
    EXPECT_TRUE(help.contains(text)) << text;
  }
}

TEST_F(PrinterProgram, TellsItsVersion) {
  Start({"--version"});
  EXPECT_EQ(End(), 0);
  EXPECT_EQ(program_.readAllStandardOutput(), "vantrel-printer " VANTREL_VERSION "\n");
}

TEST_F(PrinterProgram, RejectsWhatItDoesNotKnow) {
  Start({"--haste"});
  EXPECT_EQ(End(), 2);
  EXPECT_TRUE(program_.readAllStandardError().startsWith(
      "vantrel-printer: Unknown option 'haste'. Try 'vantrel-printer --help'.\n"));
  for (const char* speed : {"", "fast", "0", "-9600", "49", "4000001", "9600.5"}) {
    Start({"--speed", speed});
    EXPECT_EQ(End(), 2) << speed;
    EXPECT_EQ(program_.readAllStandardError(),
              "vantrel-printer: --speed needs a number from 50 to 4000000. "
              "Try 'vantrel-printer --help'.\n");
  }
  Start({"--series", "ql9"});
  EXPECT_EQ(End(), 2);
  EXPECT_EQ(program_.readAllStandardError(),
            "vantrel-printer: --series is ql7 or ql8. "
            "Try 'vantrel-printer --help'.\n");
  Start({"COM1"});
  EXPECT_EQ(End(), 2);
  EXPECT_TRUE(program_.readAllStandardError().startsWith(
      "vantrel-printer: Unexpected argument 'COM1'. Try"));
  Start({"--link"});
  EXPECT_EQ(End(), 2);
  EXPECT_TRUE(program_.readAllStandardError().contains("link"));
  Start({"--script"});
  EXPECT_EQ(End(), 2);
  EXPECT_TRUE(program_.readAllStandardError().startsWith(
      "vantrel-printer: --script needs --headless. Try"));
  Start({"--through", "/dev/null", "--card"});
  EXPECT_EQ(End(), 2);
  EXPECT_TRUE(program_.readAllStandardError().startsWith(
      "vantrel-printer: --card has no meaning with --through"));
}

}  // namespace
}  // namespace vantrel::printer
