// SPDX-License-Identifier: MIT

#include "printer/service/printer_server.h"

#include "log/line_recorder.h"
#include "printer/model/printer_model.h"
#include "printer/service/line_recording.h"
#include "tests/support/device_user.h"
#include "tests/support/installed_fonts.h"
#include "tests/support/wait_for.h"

#include <QTest>
#include <gtest/gtest.h>

#include <poll.h>

#include <cerrno>
#include <memory>
#include <system_error>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

class PrinterServerTest : public testing::Test {
 protected:
  // Whether the other side of the line has gone.
  static bool HasHungUp(const support::DeviceUser& user) {
    pollfd line{user.Descriptor(), POLLIN, 0};
    return poll(&line, 1, 0) == 1 && (line.revents & POLLHUP) != 0;
  }

  PrinterModel model_{support::InstalledFonts(), link::CodePage::kWestern};
  PrinterServer server_{model_};
};

TEST_F(PrinterServerTest, LetsTheDeviceVanishOnAFault) {
  int changes = 0;
  QObject::connect(&server_, &PrinterServer::DeviceChanged, [&changes] { ++changes; });
  const support::DeviceUser console(server_.DevicePath());
  model_.ReplaceFaults(ParseFault("vanish"));
  console.Write("02 95 03 96");
  EXPECT_FALSE(HasHungUp(console));
  EXPECT_TRUE(support::WaitFor([&] { return HasHungUp(console); }));
  EXPECT_EQ(server_.DevicePath(), "");
  EXPECT_EQ(changes, 1);
}

TEST_F(PrinterServerTest, ServesADeviceThatIsThereAgain) {
  server_.Unplug();
  server_.Unplug();
  // What is done meanwhile is done to the printer.
  EXPECT_TRUE(server_.InsertCard());
  server_.PlugIn();
  const support::DeviceUser console(server_.DevicePath());
  ASSERT_TRUE(console.IsOpen());
  QByteArray sent;
  QObject::connect(&server_, &PrinterServer::Sent,
                   [&sent](const QByteArray& bytes) { sent += bytes; });
  console.Write("02 95 03 96");
  EXPECT_TRUE(support::WaitFor([&sent] { return sent.size() == 7; }));
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
}

TEST_F(PrinterServerTest, LosesWhatIsSentWhileTheDeviceIsAway) {
  const support::DeviceUser console(server_.DevicePath());
  model_.ReplaceFaults(ParseFault("delay 400"));
  QByteArray sent;
  QObject::connect(&server_, &PrinterServer::Sent,
                   [&sent](const QByteArray& bytes) { sent += bytes; });
  console.Write("02 95 03 96");
  EXPECT_TRUE(support::WaitFor([&sent] { return !sent.isEmpty(); }));
  server_.Unplug();
  EXPECT_TRUE(support::WaitFor([this] { return !model_.NextAdvance(); }));
  EXPECT_EQ(sent.toHex(), "06");
}

TEST_F(PrinterServerTest, TellsWhetherItHasUnpluggedAnything) {
  EXPECT_FALSE(server_.PlugIn());
  EXPECT_TRUE(server_.Unplug());
  EXPECT_FALSE(server_.Unplug());
  EXPECT_TRUE(server_.PlugIn());
}

TEST_F(PrinterServerTest, TellsOfAnswersAndFaults) {
  QStringList told;
  QObject::connect(&server_, &PrinterServer::Received, [&told] { told << "received"; });
  QObject::connect(&server_, &PrinterServer::Sent, [&told] { told << "sent"; });
  QObject::connect(&server_, &PrinterServer::Struck,
                   [&told](const QString& fault) { told << "struck: " + fault; });
  QObject::connect(&server_, &PrinterServer::Answered, [&told](const Answered& answer) {
    told << "answered " + QString::fromStdString(link::HexTextOf(answer.bytes));
  });
  const support::DeviceUser console(server_.DevicePath());
  model_.ReplaceFaults(ParseFault("status 38"));
  console.Write("02 95 03 96");
  EXPECT_TRUE(support::WaitFor([&told] { return told.size() >= 4; }));
  EXPECT_EQ(told,
            QStringList({"received", "struck: status 38 (status 38h answers in place of the work)",
                         "sent",
                         "answered 029538"
                         "03AE"}));
}

TEST_F(PrinterServerTest, HasAFaultAsACommentOfTheCommandThatMetIt) {
  log::LineRecorder recorder;
  RecordLineOf(server_, recorder);
  const support::DeviceUser console(server_.DevicePath());
  model_.ReplaceFaults(ParseFault("status 38 on 96"));
  model_.AddFault(ParseFault("bad-bcc on 96"));
  // In one write.
  console.Write("02 95 03 96 02 96 03 95 02 95 03 96");
  std::vector<std::string> comments;
  EXPECT_TRUE(support::WaitFor([&] {
    comments.clear();
    for (std::size_t i = recorder.Log().First(); i < recorder.Log().End(); ++i) {
      const log::LogEntry& entry = recorder.Log().At(i);
      if (entry.direction == protocol::Direction::kFromConsole) comments.push_back(entry.comment);
    }
    return comments.size() == 3;
  }));
  EXPECT_EQ(comments, (std::vector<std::string>{
                          "",
                          "fault: status 38 (status 38h answers in place of the work)\n"
                          "fault: bad-bcc (the reply goes with each bit of its block check turned)",
                          ""}));
}

TEST_F(PrinterServerTest, HasInTheLogWhenBytesHadComeOverTheLine) {
  log::LineRecorder recorder;
  RecordLineOf(server_, recorder);
  const log::WallTime before = log::WallNow();
  emit server_.Received(QByteArray::fromHex("02950396"), server_.Now() - 1h);
  ASSERT_EQ(recorder.Log().End(), 1U);
  EXPECT_GE(recorder.Log().At(0).time, before - 1h - 1min);
  EXPECT_LE(recorder.Log().At(0).time, before - 1h + 1min);
}

TEST_F(PrinterServerTest, HasARemarkInTheLogAndInNoComment) {
  log::LineRecorder recorder;
  RecordLineOf(server_, recorder);
  model_.SetInstantWork(true);
  server_.InsertCard();
  const support::DeviceUser console(server_.DevicePath());
  console.Write("02 50 31 03 62 02 51 03 52 02 54 03 57");
  // The last row is the reply to 54h.
  const log::LineLog& log = recorder.Log();
  EXPECT_TRUE(support::WaitFor(
      [&log] { return log.End() > 0 && log::HexOf(log.At(log.End() - 1)) == "02 54 20 03 77"; }));
  std::string meaning;
  for (std::size_t i = log.First(); i < log.End(); ++i) {
    EXPECT_EQ(log.At(i).comment, "");
    if (log::HexOf(log.At(i)) == "02 54 03 57") meaning = log::MeaningOf(log.At(i));
  }
  EXPECT_EQ(meaning,
            "54h card insertion wait cancel (54h does not end the wait of 51h for the card's "
            "removal; 55h does)");
}

TEST_F(PrinterServerTest, TellsOfNoAnswerThatTheLineHasLost) {
  int answers = 0;
  QObject::connect(&server_, &PrinterServer::Answered, [&answers] { ++answers; });
  const support::DeviceUser console(server_.DevicePath());
  model_.ReplaceFaults(ParseFault("delay 400"));
  console.Write("02 95 03 96");
  EXPECT_TRUE(support::WaitFor([this] { return model_.Faults().IsEmpty(); }));
  server_.Unplug();
  EXPECT_TRUE(support::WaitFor([this] { return !model_.NextAdvance(); }));
  EXPECT_EQ(answers, 0);
}

TEST(PrinterServer, ThrowsOnWhyThereIsNoLine) {
  PrinterModel model{support::InstalledFonts(), link::CodePage::kWestern};
  const auto fail = []() -> std::unique_ptr<protocol::LineEnd> {
    throw std::system_error(EMFILE, std::generic_category(), "No line");
  };
  EXPECT_THROW(PrinterServer(model, fail), std::system_error);
}

TEST_F(PrinterServerTest, SwitchesThePowerOffAndOn) {
  server_.InsertCard();
  server_.SetPower(false);
  EXPECT_FALSE(model_.State().power);
  server_.SetPower(true);
  EXPECT_TRUE(model_.State().power);
  EXPECT_EQ(model_.State().place, CardPlace::kFront);
}

}  // namespace
}  // namespace vantrel::printer
