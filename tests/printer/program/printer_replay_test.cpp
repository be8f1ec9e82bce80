// SPDX-License-Identifier: MIT

// The built program plays captures back.

#include "log/capture_writer.h"
#include "tests/printer/program/printer_program.h"
#include "tests/support/device_user.h"

#include <QFile>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <string>
#include <vector>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;
using protocol::Direction;

class PrinterReplay : public PrinterProgram {
 protected:
  // Writes a capture of 21h with 06h and a reply, and of 46h with "0", with 06h alone.
  QString Capture() const {
    std::string bytes = log::CaptureStart({});
    const auto add = [&bytes](std::chrono::milliseconds time, Direction direction,
                              const std::string& row) {
      log::LogEntry entry;
      entry.time = log::WallTime(1795266005s + time);
      entry.direction = direction;
      entry.bytes = row;
      entry.comment = row == "\x06" ? "" : "fault: status 22";
      log::AppendPacket(bytes, entry);
    };
    add(0ms, Direction::kFromConsole, "\x02\x21\x03\x22");
    add(1ms, Direction::kFromPrinter, "\x06");
    add(20ms, Direction::kFromPrinter, "\x02\x21\x20\x41\x03\x43");
    add(30ms, Direction::kFromConsole, "\x02\x46\x30\x03\x75");
    add(31ms, Direction::kFromPrinter, "\x06");
    QString path = folder_.filePath("then.pcapng");
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    return path;
  }

  int EndNow() {
    program_.terminate();
    return End();
  }
};

TEST_F(PrinterReplay, AnswersAsThenAndTellsHowFarItCame) {
  const support::DeviceUser console(Serve({"--replay", Capture()}));
  console.Write("02 21 03 22");
  EXPECT_EQ(console.Read(7), "06 02 21 20 41 03 43");
  console.Write("02 46 30 03 75");
  EXPECT_EQ(console.Read(1), "06");
  EXPECT_EQ(EndNow(), 0);
  EXPECT_EQ(program_.readAllStandardOutput(), "replayed 2 of 2 frames, 0 unexpected\n");
  EXPECT_EQ(program_.readAllStandardError(), "");
}

TEST_F(PrinterReplay, TellsWhatWasNotExpected) {
  const support::DeviceUser console(Serve({"--replay", Capture(), "--instant"}));
  console.Write("02 22 03 21");
  EXPECT_EQ(console.Read(1), "10");
  console.Write("02 21 03 23");
  EXPECT_EQ(console.Read(1), "15");
  EXPECT_EQ(EndNow(), 1);
  EXPECT_EQ(program_.readAllStandardOutput(), "replayed 0 of 2 frames, 2 unexpected\n");
  EXPECT_EQ(program_.readAllStandardError(),
            "vantrel-printer: expected 21h, came 22h\n"
            "vantrel-printer: expected 21h, came 21h with a bad block check\n");
}

TEST_F(PrinterReplay, ServesAScriptUntilItsInputEnds) {
  const support::DeviceUser console(
      Serve({"--script", "--replay", Capture(), "--instant", "--match", "code"}));
  program_.write("insert\nwait end 10000\n");
  EXPECT_EQ(ReadLine().substr(0, 6), "error ");
  console.Write("02 21 03 22 02 46 31 03 74");
  EXPECT_EQ(console.Read(8), "06 02 21 20 41 03 43 06");
  EXPECT_EQ(ReadLine(), "ok");
  program_.closeWriteChannel();
  End();
  EXPECT_EQ(program_.readAllStandardOutput(), "replayed 2 of 2 frames, 0 unexpected\n");
}

TEST_F(PrinterReplay, TellsInJsonHowFarItCame) {
  Start({"--headless", "--script", "--json", "--replay", Capture()});
  EXPECT_EQ(ReadLine().substr(0, 22), R"({"ok":true,"device":"/)");
  program_.closeWriteChannel();
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(program_.readAllStandardOutput(),
            "{\"ok\":false,\"frames\":2,\"played\":0,\"unexpected\":0}\n");
}

TEST_F(PrinterReplay, RefusesACaptureThatIsNotWhole) {
  const QString path = Capture();
  QFile file(path);
  ASSERT_TRUE(file.resize(file.size() - 1));
  Start({"--headless", "--replay", path});
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(program_.readAllStandardOutput(), "");
  const QByteArray error = program_.readAllStandardError();
  EXPECT_TRUE(error.startsWith("vantrel-printer: " + path.toUtf8() + " ends within"))
      << error.data();
  EXPECT_TRUE(error.endsWith(". Only a whole capture is played back.\n")) << error.data();
  Start({"--headless", "--replay", folder_.filePath("none.pcapng")});
  EXPECT_EQ(End(), 1);
}

TEST_F(PrinterReplay, RefusesOptionsThatHaveNoMeaning) {
  for (const char* option : {"--card", "--no-pacing", "--case-parts", "--through=/dev/ttyS0",
                             "--speed=9600", "--series=ql8", "--match=data"}) {
    Start({"--headless", "--replay", "then.pcapng", option});
    EXPECT_EQ(End(), 2) << option;
  }
  Start({"--headless", "--match", "code"});
  EXPECT_EQ(End(), 2);
}

}  // namespace
}  // namespace vantrel::printer
