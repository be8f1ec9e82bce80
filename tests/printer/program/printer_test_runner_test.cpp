// SPDX-License-Identifier: MIT

// The built program as a test runner uses it: answers in JSON, an exit status, a log of its own.

#include "tests/printer/program/printer_program.h"
#include "tests/support/device_user.h"
#include "tests/support/file_folder.h"
#include "tests/support/socket_user.h"

#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <string>

namespace vantrel::printer {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class RunnersPrinter : public PrinterProgram {
 protected:
  std::string Begin(const QStringList& options = {}) {
    return Serve(QStringList{"--script", "--instant"} + options);
  }
  // Gives all of the input at once and returns the status.
  int Run(const std::string& input) {
    program_.write(input.c_str());
    program_.closeWriteChannel();
    return End();
  }
  std::string WrongUse(const QStringList& options) {
    Start(QStringList{"--headless"} + options);
    EXPECT_EQ(End(), 2);
    return program_.readAllStandardError().split('\n').first().toStdString();
  }
  QString Errors() { return QString::fromLocal8Bit(program_.readAllStandardError()); }

  support::FileFolder files_;
};

TEST_F(RunnersPrinter, TellsItsDeviceInJson) {
  EXPECT_THAT(Begin({"--json"}), StartsWith(R"({"ok":true,"device":"/dev/pts/)"));
  program_.write("pull\n");
  EXPECT_EQ(ReadLine(), R"({"ok":false,"error":"there is no card in the printer"})");
  EXPECT_EQ(Run(""), 1);
}

TEST_F(RunnersPrinter, TellsItsAddressInJson) {
  EXPECT_THAT(Begin({"--json", "--tcp", "0"}), StartsWith(R"({"ok":true,"address":"127.0.0.1:)"));
}

TEST_F(RunnersPrinter, TellsItsSocketInJson) {
  const std::string path = files_.Path("printer");
  EXPECT_EQ(Begin({"--json", "--socket", QString::fromStdString(path)}),
            R"({"ok":true,"socket":")" + path + "\"}");
}

TEST_F(RunnersPrinter, EndsWithOneWhereALineWasRefused) {
  Begin();
  EXPECT_EQ(Run("insert\ninsert\npull\n"), 1);
}

TEST_F(RunnersPrinter, EndsWithOneWhereAWaitRanOut) {
  Begin();
  EXPECT_EQ(Run("wait frame any 1\n"), 1);
}

TEST_F(RunnersPrinter, EndsWithNoughtWhereAllWentWell) {
  Begin();
  EXPECT_EQ(Run("insert\nstate\nwait idle\n"), 0);
}

TEST_F(RunnersPrinter, EndsWithTheStatusThatItIsTold) {
  Begin();
  EXPECT_EQ(Run("insert\ninsert\nquit 42\nstate\n"), 42);
}

TEST_F(RunnersPrinter, KeepsItsStatusWhereASignalEndsIt) {
  Begin();
  program_.write("pull\n");
  EXPECT_THAT(ReadLine(), StartsWith("error"));
  program_.terminate();
  EXPECT_EQ(End(), 1);
}

TEST_F(RunnersPrinter, AnswersTheLastCommandBeforeItEnds) {
  // The manual page's example; the work takes its time.
  const std::string device = Serve({"--script", "--no-pacing"});
  program_.write("track 1 A SAMPLE\nwait frame 21 60000\ninsert\nwait frame 50 60000\n");
  program_.closeWriteChannel();
  EXPECT_EQ(ReadLine(), "ok");
  const support::DeviceUser console(device);
  console.Write("02 21 03 22");
  // 06h, and the eight bytes of the track in their frame.
  EXPECT_EQ(console.Read(14), "06 02 21 20 41 20 53 41 4D 50 4C 45 03 65");
  console.Write("02 50 31 03 62");
  EXPECT_EQ(console.Read(6), "06 02 50 20 03 73");
  EXPECT_EQ(End(), 0);
}

TEST_F(RunnersPrinter, HasItsLinkFollowThePlug) {
  const QString link = QString::fromStdString(files_.Path("printer"));
  Begin({"--link", link});
  program_.write("unplug\n");
  EXPECT_EQ(ReadLine(), "ok");
  // Gone itself: its device may be another program's by now.
  EXPECT_FALSE(QFileInfo(link).isSymLink());
  program_.write("plug\n");
  const std::string answer = ReadLine();
  EXPECT_EQ(answer, "ok " + QFile::symLinkTarget(link).toStdString());
  const support::DeviceUser console(link.toStdString());
  console.Write("02 95 03 96");
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
}

TEST_F(RunnersPrinter, RefusesConnectionsWhileItIsUnplugged) {
  const QString path = QString::fromStdString(files_.Path("printer"));
  Begin({"--socket", path});
  const auto console = support::SocketUser::OnPath(path.toStdString());
  console.Write({0x02, 0x95, 0x03, 0x96});
  EXPECT_EQ(console.Read(7).size(), 7U);
  program_.write("unplug\n");
  EXPECT_EQ(ReadLine(), "ok");
  EXPECT_TRUE(console.IsClosed());
  EXPECT_FALSE(support::SocketUser::OnPath(path.toStdString()).IsOpen());
  program_.write("plug\n");
  EXPECT_EQ(ReadLine(), "ok " + path.toStdString());
  EXPECT_TRUE(support::SocketUser::OnPath(path.toStdString()).IsOpen());
}

TEST_F(RunnersPrinter, WritesALogAsItGoes) {
  const QString path = QString::fromStdString(files_.Path("line.csv"));
  const std::string device = Serve({"--log", path});
  const support::DeviceUser console(device);
  console.Write("02 95 03 96");
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
  program_.terminate();
  EXPECT_EQ(End(), 0);
  const std::string text = files_.Contents("line.csv");
  EXPECT_THAT(text, StartsWith("Date,Time,Direction,"));
  EXPECT_THAT(text, HasSubstr(",received,02 95 03 96,"));
  EXPECT_THAT(text, HasSubstr(",sent,02 95 20 30 03 86,"));
}

TEST_F(RunnersPrinter, EndsALogAtItsLimitAndSaysSoOnce) {
  const std::string path = files_.Path("line.txt");
  const std::string device =
      Serve({"--instant", "--log", QString::fromStdString(path), "--log-limit", "1"});
  const support::DeviceUser console(device);
  // A row of noise has a text six times as long.
  std::string noise;
  for (int i = 0; i < 1000; ++i) noise += "FF ";
  for (int i = 0; i < 400; ++i) {
    console.Write(noise + "02 95 03 96");
    ASSERT_EQ(console.Read(7), "06 02 95 20 30 03 86");
  }
  program_.terminate();
  EXPECT_EQ(End(), 0);
  EXPECT_EQ(Errors().toStdString(),
            "vantrel-printer: the log " + path + " has reached its limit and ends there.\n");
  const std::string text = files_.Contents("line.txt");
  EXPECT_LE(text.size(), 1000000U);
  EXPECT_GT(text.size(), 950000U);
}

TEST_F(RunnersPrinter, TellsWhyALogCannotBeWritten) {
  Start({"--headless", "--log", "/nowhere/line.txt"});
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(Errors().toStdString(),
            "vantrel-printer: the log /nowhere/line.txt cannot be written: No such file or "
            "directory.\n");
}

TEST_F(RunnersPrinter, DrawsTextOfItsCodePage) {
  const std::string device = Begin({"--code-page", "932"});
  const support::DeviceUser console(device);
  const QString first = QString::fromStdString(files_.Path("932.pbm"));
  const QString second = QString::fromStdString(files_.Path("1252.pbm"));
  // 41h "2,0,47," and 93h FAh: one wide character there, two here.
  const std::string text = "02 41 32 2C 30 2C 34 37 2C 93 FA 03 06";
  console.Write(text);
  EXPECT_EQ(console.Read(6), "06 02 41 20 03 62");
  program_.write(("buffer " + first.toStdString() + "\ncode-page 1252\n").c_str());
  EXPECT_EQ(ReadLine(), "ok");
  EXPECT_EQ(ReadLine(), "ok");
  console.Write("02 40 03 43");
  EXPECT_EQ(console.Read(6), "06 02 40 20 03 63");
  console.Write(text);
  EXPECT_EQ(console.Read(6), "06 02 41 20 03 62");
  program_.write(("buffer " + second.toStdString() + "\n").c_str());
  EXPECT_EQ(ReadLine(), "ok");
  EXPECT_NE(files_.Contents("932.pbm"), files_.Contents("1252.pbm"));
}

TEST_F(RunnersPrinter, RefusesOptionsThatDoNotGoTogether) {
  EXPECT_THAT(WrongUse({"--json"}), StartsWith("vantrel-printer: --json needs --script."));
  EXPECT_THAT(WrongUse({"--log-limit", "5"}),
              StartsWith("vantrel-printer: --log-limit needs --log."));
  EXPECT_THAT(WrongUse({"--link", ""}),
              StartsWith("vantrel-printer: --link needs the path of the link to make."));
  EXPECT_THAT(WrongUse({"--capture", ""}),
              StartsWith("vantrel-printer: --capture needs the file to write."));
  EXPECT_THAT(WrongUse({"--through", ""}),
              StartsWith("vantrel-printer: --through needs the device of the printer."));
  EXPECT_THAT(WrongUse({"--replay", ""}),
              StartsWith("vantrel-printer: --replay needs the capture to play back."));
  EXPECT_THAT(WrongUse({"--log", ""}),
              StartsWith("vantrel-printer: --log needs the file to write."));
  EXPECT_THAT(WrongUse({"--log", "a.pcapng"}),
              StartsWith("vantrel-printer: --log writes text or CSV; --capture writes captures."));
  EXPECT_THAT(WrongUse({"--log", "a.txt", "--log-limit", "0"}), HasSubstr("--log-limit"));
  EXPECT_THAT(WrongUse({"--code-page", "437"}), HasSubstr("--code-page"));
  EXPECT_THAT(WrongUse({"--code-page", "932", "--through", "/dev/ttyS0"}),
              HasSubstr("--code-page has no meaning with --through"));
  EXPECT_THAT(WrongUse({"--code-page", "932", "--replay", "a.pcapng"}),
              HasSubstr("--code-page has no meaning with --replay"));
}

}  // namespace
}  // namespace vantrel::printer
