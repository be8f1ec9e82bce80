// SPDX-License-Identifier: MIT

// The built program writes captures.

#include "log/capture_file.h"
#include "printer/line/pseudo_terminal.h"
#include "tests/printer/program/printer_program.h"
#include "tests/support/device_user.h"
#include "tests/support/wait_for.h"

#include <QTest>
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <string>
#include <vector>

namespace vantrel::printer {
namespace {

class PrinterCapture : public PrinterProgram {
 protected:
  QString Path() const { return folder_.filePath("line.pcapng"); }

  // The rows that are in the file, "to 02 21 03 22 [fault: status 22]"; it is whole at any moment.
  std::vector<std::string> Rows(const QString& path) const {
    std::vector<std::string> damage;
    std::vector<std::string> rows;
    for (const log::LogEntry& row : log::ReadCapture(path.toStdString(), damage)) {
      const bool to = row.direction == protocol::Direction::kFromConsole;
      rows.push_back((to ? "to " : "from ") + log::HexOf(row) +
                     (row.comment.empty() ? "" : " [" + row.comment + ']'));
    }
    EXPECT_TRUE(damage.empty()) << damage.front();
    return rows;
  }
  std::vector<std::string> Rows() const { return Rows(Path()); }
  bool Writes(const std::vector<std::string>& rows) const {
    return support::WaitFor([&] { return Rows() == rows; });
  }
  static log::CapturedLine LineOf(const QString& path) {
    log::CaptureFile file(path.toStdString());
    std::vector<log::LogEntry> rows;
    while (file.Read(rows)) {
    }
    return file.Line();
  }
  int EndNow() {
    program_.terminate();
    return End();
  }

  const std::string struck_ =
      "to 02 95 03 96 [fault: status 22 (status 22h answers in place of the work)]";
  const std::vector<std::string> rows_{"to 02 95 03 96", "from 06", "from 02 95 20 30 03 86"};
};

TEST_F(PrinterCapture, IsWrittenAsItGoesWithoutAWindow) {
  const std::string device = Serve({"--capture", Path()});
  const support::DeviceUser console(device);
  EXPECT_TRUE(Rows().empty());
  console.Write("02 95 03 96");
  EXPECT_TRUE(Writes(rows_));
  const log::CapturedLine line = LineOf(Path());
  EXPECT_EQ(line.name, device);
  EXPECT_EQ(line.speed, 9600U);
  // A reply that the printer never got to give, and a frame that was never whole.
  console.Write("02 21 03 22");
  EXPECT_EQ(console.Read(8), "06 02 95 20 30 03 86 06");
  console.Write("02 22");
  EXPECT_TRUE(support::WaitFor([this] { return Rows().size() == 6; }));
  EXPECT_EQ(EndNow(), 0);
  EXPECT_EQ(Rows().back(), "to 02 22");
  EXPECT_EQ(program_.readAllStandardError(), "");
}

TEST_F(PrinterCapture, IsWrittenWithAWindow) {
  Start({"--capture", Path(), "--instant"});
  const support::DeviceUser console(ReadLine());
  console.Write("02 95 03 96");
  EXPECT_TRUE(Writes(rows_));
  EXPECT_EQ(EndNow(), 0);
}

TEST_F(PrinterCapture, HasTheFaultsAsComments) {
  const support::DeviceUser console(
      Serve({"--capture", Path(), "--script", "--no-pacing", "--instant"}));
  program_.write("fault status 22 on 95 for 2\n");
  EXPECT_EQ(ReadLine(), "ok");
  // All in one write.
  console.Write("02 95 03 97 02 95 03 96 02 96 03 95 02 95 03 96 02 95 03 96");
  EXPECT_TRUE(support::WaitFor([this] { return Rows().size() == 14; }));
  std::vector<std::string> commands;
  for (const std::string& row : Rows()) {
    if (row.starts_with("to ")) commands.push_back(row);
  }
  EXPECT_EQ(commands,
            (std::vector<std::string>{"to 02 95 03 97",  // a bad block check
                                      struck_, "to 02 96 03 95", struck_, "to 02 95 03 96"}));
}

TEST_F(PrinterCapture, IsWrittenBetweenAConsoleAndARealPrinter) {
  PseudoTerminal printer;
  const QString device = QString::fromStdString(printer.DevicePath());
  const support::DeviceUser console(Serve({"--through", device, "--capture", Path()}));
  console.Write("02 95 03 96");
  EXPECT_TRUE(support::WaitFor([&] { return !printer.Read().empty(); }));
  printer.Write({0x06, 0x02, 0x95, 0x20});
  EXPECT_EQ(console.Read(4), "06 02 95 20");
  EXPECT_TRUE(Writes({"to 02 95 03 96", "from 06"}));
  EXPECT_EQ(LineOf(Path()).name, device.toStdString());
  EXPECT_EQ(LineOf(Path()).speed, std::nullopt);
  // What is open is printed and written as it is.
  EXPECT_EQ(EndNow(), 0);
  EXPECT_EQ(Rows().back(), "from 02 95 20");
  EXPECT_EQ(ReadLine().substr(25), "received  02 95 03 96  95h card transport count request");
  EXPECT_EQ(ReadLine().substr(25), "sent      06  06h acknowledge");
  EXPECT_EQ(ReadLine().substr(25),
            "sent      02 95 20  cut short after 3 bytes: reply 95h: 20h normal status");
}

TEST_F(PrinterCapture, OfAPlaybackHasNoCommentsOfTheFirst) {
  const QString first = folder_.filePath("first.pcapng");
  {
    const support::DeviceUser console(Serve({"--capture", first, "--script"}));
    program_.write("fault status 22\n");
    EXPECT_EQ(ReadLine(), "ok");
    console.Write("02 95 03 96");
    console.Read(6);
    EXPECT_EQ(EndNow(), 0);
    program_.readAll();
  }
  EXPECT_EQ(Rows(first).front(), struck_);
  const support::DeviceUser console(Serve({"--replay", first, "--instant", "--capture", Path()}));
  console.Write("02 95 03 96");
  EXPECT_EQ(console.Read(6), "06 02 95 22 03 B4");
  EXPECT_EQ(EndNow(), 0);
  EXPECT_EQ(Rows(), (std::vector<std::string>{"to 02 95 03 96", "from 06", "from 02 95 22 03 B4"}));
}

TEST_F(PrinterCapture, IsWholeWhenTheProgramIsKilled) {
  const support::DeviceUser console(Serve({"--capture", Path(), "--no-pacing", "--instant"}));
  for (int i = 0; i < 200; ++i) console.Write("02 95 03 96");
  EXPECT_TRUE(support::WaitFor([this] { return Rows().size() > 30; }));
  for (int i = 0; i < 200; ++i) console.Write("02 95 03 96");
  program_.kill();
  program_.waitForFinished();
  EXPECT_GT(Rows().size(), 30U);  // of which each is whole
}

TEST_F(PrinterCapture, ThatCannotBeWrittenIsRefusedBeforeTheDeviceIsNamed) {
  for (const char* mode : {"--headless", "--instant"}) {
    Start({mode, "--capture", "/dev/null"});
    EXPECT_EQ(End(), 1);
    EXPECT_EQ(program_.readAllStandardOutput(), "");
    EXPECT_TRUE(program_.readAllStandardError().endsWith(
        "vantrel-printer: the capture /dev/null cannot be written: It is no regular file.\n"));
  }
  Start({"--headless", "--capture", "/proc/none"});
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(program_.readAllStandardOutput(), "");
}

TEST_F(PrinterCapture, EndsWithASentenceWhereTheDiskIsFullAndTheLineGoesOn) {
  program_.setChildProcessModifier([] {
    const rlimit limit{300, 300};
    setrlimit(RLIMIT_FSIZE, &limit);
  });
  const support::DeviceUser console(Serve({"--capture", Path()}));
  for (int i = 0; i < 5; ++i) {
    console.Write("02 95 03 96");
    EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
  }
  EXPECT_EQ(EndNow(), 1);
  EXPECT_EQ(program_.readAllStandardError(),
            ("vantrel-printer: the capture " + Path() + " has ended: File too large.\n").toUtf8());
  EXPECT_EQ(Rows(), std::vector<std::string>(rows_.begin(), rows_.begin() + 2));
}

TEST_F(PrinterCapture, IntoAPipeWaitsForNobody) {
  ASSERT_EQ(mkfifo(Path().toLocal8Bit().constData(), 0600), 0);
  const support::DeviceUser console(Serve({"--capture", Path()}));
  console.Write("02 95 03 96");
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
  EXPECT_EQ(EndNow(), 0);
  EXPECT_EQ(program_.readAllStandardError(), "");
}

}  // namespace
}  // namespace vantrel::printer
