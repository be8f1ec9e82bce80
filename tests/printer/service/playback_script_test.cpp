// SPDX-License-Identifier: MIT

// A capture that is played back on a pseudo-terminal, with a script beside it.

#include "log/playback_server.h"
#include "printer/line/pseudo_terminal.h"
#include "printer/service/printer_script.h"
#include "tests/log/log_rows.h"
#include "tests/support/device_user.h"
#include "tests/support/wait_for.h"

#include <QTest>
#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <chrono>
#include <string>
#include <vector>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;
using log::Row;
using protocol::Direction;
using testing::ElementsAre;
using testing::StartsWith;

// 21h, answered with 06h and a reply, then 46h with "0", answered with 06h and a reply.
std::vector<log::LogEntry> Capture() {
  return {Row(0ms, Direction::kFromConsole, "\x02\x21\x03\x22"),
          Row(1ms, Direction::kFromPrinter, "\x06"),
          Row(5ms, Direction::kFromPrinter, "\x02\x21\x20\x41\x03\x43"),
          Row(90ms, Direction::kFromConsole, "\x02\x46\x30\x03\x75"),
          Row(95ms, Direction::kFromPrinter, "\x06"),
          Row(95ms, Direction::kFromPrinter, "\x02\x46\x20\x03\x65")};
}

class PlaybackScriptTest : public testing::Test {
 protected:
  PlaybackScriptTest() {
    QObject::connect(&script_, &PrinterScript::Answered, [this](const QByteArray& answer) {
      answers_.push_back(answer.toStdString());
    });
  }

  bool HasAnswers(std::size_t count) {
    return support::WaitFor([&] { return answers_.size() == count; });
  }

  // Waits until so many bytes have gone to the console, and reads them.
  std::string Answer(qsizetype count) {
    const auto sent = [this] {
      qsizetype bytes = 0;
      for (std::size_t i = seen_; i < recorder_.Log().End(); ++i) {
        if (recorder_.Log().At(i).direction == Direction::kFromPrinter)
          bytes += static_cast<qsizetype>(recorder_.Log().At(i).bytes.size());
      }
      return bytes;
    };
    EXPECT_TRUE(support::WaitFor([&] { return sent() >= count; }));
    seen_ = recorder_.Log().End();
    return console_.Read(static_cast<std::size_t>(count));
  }

  log::Playback playback_{Capture(), {}};
  log::LineRecorder recorder_;
  log::PlaybackServer server_{playback_, MakePseudoTerminal(), recorder_};
  PrinterScript script_{server_, recorder_};
  support::DeviceUser console_{server_.DevicePath()};
  std::vector<std::string> answers_;
  std::size_t seen_ = 0;
};

TEST_F(PlaybackScriptTest, AnswersTheConsoleAsThen) {
  console_.Write("02 21 03 22");
  EXPECT_EQ(Answer(7), "06 02 21 20 41 03 43");
  console_.Write("02 46 30 03 75");
  EXPECT_EQ(Answer(6), "06 02 46 20 03 65");
  EXPECT_TRUE(playback_.IsSuccess());
}

TEST_F(PlaybackScriptTest, WaitsForTheEnd) {
  script_.Feed("wait end 10000\nstate\n");
  EXPECT_THAT(answers_, ElementsAre());
  console_.Write("02 21 03 22");
  Answer(7);
  EXPECT_THAT(answers_, ElementsAre());
  console_.Write("02 46 30 03 75");
  EXPECT_TRUE(HasAnswers(2));
  EXPECT_THAT(answers_, ElementsAre("ok", "ok replayed 2 of 2 frames, 0 unexpected"));
  script_.Feed("wait end\n");
  EXPECT_THAT(answers_.back(), "ok");
}

TEST_F(PlaybackScriptTest, TellsHowFarItCameWhereTheWaitRunsOut) {
  script_.Feed("wait end 1\nwait end x\nwait end -1\n");
  EXPECT_TRUE(HasAnswers(3));
  EXPECT_THAT(answers_, ElementsAre("error replayed 0 of 2 frames, 0 unexpected in 1 milliseconds",
                                    "error wait end takes milliseconds up to 3600000, or nothing",
                                    "error wait end takes milliseconds up to 3600000, or nothing"));
}

TEST_F(PlaybackScriptTest, WaitsForFramesAndKeepsALog) {
  script_.Feed("wait frame 21 10000\nlog\n");
  console_.Write("02 21 03 22");
  EXPECT_TRUE(HasAnswers(2));
  EXPECT_EQ(answers_[0], "ok 21h first track read");
  EXPECT_THAT(answers_[1], StartsWith("ok "));
}

TEST_F(PlaybackScriptTest, RefusesWhatOnlyAPrinterCanDo) {
  const std::vector<std::string> commands{"insert",       "pull",       "track 1 ABC",
                                          "read track 1", "face a.png", "fault nak",
                                          "power off",    "series ql8", "speed 9600"};
  for (const std::string& command : commands) script_.Feed(command + "\n");
  ASSERT_EQ(answers_.size(), commands.size());
  for (const std::string& answer : answers_)
    EXPECT_THAT(answer, StartsWith("error a capture is played back"));
  script_.Feed("help\n");
  EXPECT_EQ(
      answers_.back(),
      "ok help [LINE] | state | log [PATH] | wait frame [CODE|any] [MS] | wait end [MS] | events "
      "on|off | quit [STATUS]");
}

}  // namespace
}  // namespace vantrel::printer
