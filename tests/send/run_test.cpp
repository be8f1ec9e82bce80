// SPDX-License-Identifier: MIT

// A run in a time that stands still: what is sent, and for how long it is waited for.

#include "send/run.h"

#include "log/json_text.h"
#include "send/answers.h"
#include "tests/send/command_lines.h"
#include "tests/support/fake_display.h"
#include "tests/support/fake_port.h"
#include "tests/support/manual_clock.h"
#include "tests/support/scripted_replies.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace vantrel::send {
namespace {

class RunTest : public testing::Test {
 protected:
  RunTest() {
    interrupts_.OnInterrupt([this] { sender_.Cancel(); });
    settings_.format = Format::kQuiet;
  }
  ~RunTest() override { pthread_sigmask(SIG_SETMASK, &mask_, nullptr); }

  // A signal comes.
  void Interrupt() {
    raise(SIGINT);
    interrupts_.OnReady(POLLIN);
  }
  int Do(const Words& words) { return run_.Do(Composed(words)); }
  // The frames that were sent and the milliseconds that each was waited for at most.
  std::vector<std::pair<std::string, int>> Waits() const {
    std::vector<std::pair<std::string, int>> waits;
    for (const support::Exchange& exchange : printer_.Exchanges())
      waits.emplace_back(exchange.frame, exchange.time_limit);
    return waits;
  }

 private:
  static sigset_t Mask() {
    sigset_t mask;
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    return mask;
  }
  // That of the test program, which the interrupts change.
  const sigset_t mask_ = Mask();

 protected:
  support::FakePort port_;
  support::ManualClock clock_;
  support::FakeDisplay display_;
  support::ScriptedReplies printer_{port_, clock_, display_};
  Interrupts interrupts_;
  Sender sender_{port_, clock_, link::CodePage::kWestern};
  StandardOutput output_{interrupts_};
  Settings settings_;
  Means means_;
  send::Run run_{settings_, means_, port_, sender_, interrupts_, output_, nullptr};
};

TEST_F(RunTest, WaitsFiveSecondsForEachCancellationOfAWait) {
  printer_.Waits([this] { Interrupt(); });
  printer_.StaysSilent();
  printer_.StaysSilent();
  EXPECT_EQ(Do({"21"}), 130);
  EXPECT_EQ(Waits(), (std::vector<std::pair<std::string, int>>{
                         {"02210322", 20000}, {"02540357", 5000}, {"02550356", 5000}}));
}

TEST_F(RunTest, EndsAtASecondSignalWhileTheFirstCancellationIsAnswered) {
  printer_.Waits([this] { Interrupt(); });
  printer_.Waits([this] { Interrupt(); });
  EXPECT_EQ(Do({"46", "1"}), 130);
  EXPECT_EQ(Waits(),
            (std::vector<std::pair<std::string, int>>{{"0246310374", 30000}, {"02540357", 5000}}));
}

TEST_F(RunTest, EndsAtASecondSignalWhileTheSecondCancellationIsAnswered) {
  printer_.Waits([this] { Interrupt(); });
  printer_.Replies("060254200377");
  printer_.Waits([this] { Interrupt(); });
  EXPECT_EQ(Do({"53"}), 130);
  EXPECT_EQ(Waits().size(), 3U);
}

TEST_F(RunTest, CancelsNothingInOtherCommands) {
  printer_.Waits([this] { Interrupt(); });
  EXPECT_EQ(Do({"58"}), 130);
  EXPECT_EQ(Waits(), (std::vector<std::pair<std::string, int>>{{"0258035B", 5000}}));
}

TEST_F(RunTest, EndsAPictureAtItsFirstFrameThatIsNoSuccess) {
  means_.read_picture = [](const std::string&, const PictureLimits&) {
    Picture picture;
    picture.width = 3;
    picture.height = 8;
    picture.grey.assign(24, 0);
    picture.alpha.assign(24, 255);
    return picture;
  };
  printer_.Replies("060243200360");
  printer_.Replies("10");
  EXPECT_EQ(run_.Do(Composed({"43", "--picture", "p"}, means_)), 4);
  EXPECT_EQ(Waits().size(), 2U);
}

TEST_F(RunTest, SendsNothingWhereThePortCannotBeOpened) {
  port_.RefuseOpen(true);
  EXPECT_EQ(Do({"58"}), 5);
  EXPECT_TRUE(Waits().empty());
}

TEST_F(RunTest, GivesUpAnOutputThatNobodyReadsAtASecondSignal) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
  const link::UniqueDescriptor reader(ends[0]);
  link::UniqueDescriptor writer(ends[1]);
  ASSERT_EQ(fcntl(writer.Get(), F_SETFL, O_NONBLOCK), 0);
  const std::string page(4096, 'x');
  while (write(writer.Get(), page.data(), page.size()) > 0) continue;
  ASSERT_EQ(fcntl(writer.Get(), F_SETFL, 0), 0);
  const link::UniqueDescriptor found(dup(STDOUT_FILENO));
  ASSERT_EQ(dup2(writer.Get(), STDOUT_FILENO), STDOUT_FILENO);
  raise(SIGINT);
  raise(SIGTERM);
  std::string refusal;
  try {
    output_.Write("told\n");
  } catch (const OutputClosed& error) {
    refusal = error.what();
  }
  dup2(found.Get(), STDOUT_FILENO);
  EXPECT_EQ(refusal, "Nobody reads standard output.");
  EXPECT_EQ(interrupts_.Count(), 2);
}

// The reply is whole; the next command is the first that the loss stops.
TEST_F(RunTest, CountsAReplyThatWasWholeBeforeTheLineWent) {
  port_.Open();
  port_.WhenWritten([this](const std::string&) {
    clock_.After(5, [this] {
      port_.Receive("06025820037B");
      port_.Lose();
    });
  });
  const Exchange exchange = sender_.Send("0258035B", 1000);
  EXPECT_EQ(exchange.outcome, Outcome::kReply);
  EXPECT_EQ(exchange.status, 0x20U);
  EXPECT_EQ(exchange.meaning, "20h: Normal Status");
  EXPECT_EQ(sender_.Send("0258035B", 1000).outcome, Outcome::kFailed);
}

TEST_F(RunTest, CountsNoEarlierReplyWhereTheLineGoesBeforeTheFrame) {
  port_.Open();
  printer_.Replies("06025820037B");
  EXPECT_EQ(sender_.Send("0258035B", 1000).outcome, Outcome::kReply);
  clock_.After(0, [this] { port_.Lose(); });
  const Exchange exchange = sender_.Send("0258035B", 1000);
  EXPECT_EQ(exchange.outcome, Outcome::kFailed);
  EXPECT_FALSE(exchange.status);
  EXPECT_EQ(exchange.received, "");
}

TEST_F(RunTest, CountsNoReplyThatTheLineHasCutShort) {
  port_.Open();
  port_.WhenWritten([this](const std::string&) {
    clock_.After(5, [this] {
      port_.Receive("0602582003");
      port_.Lose();
    });
  });
  const Exchange exchange = sender_.Send("0258035B", 1000);
  EXPECT_EQ(exchange.outcome, Outcome::kFailed);
  EXPECT_EQ(exchange.received, "0602582003");
}

TEST_F(RunTest, RefusesAListForManyRoundsThatIsTooLong) {
  settings_.rounds = 2;
  std::FILE* file = std::tmpfile();
  for (int i = 0; i < 100'001; ++i) std::fputs("58\n", file);
  std::rewind(file);
  PollClock clock;
  LineInput input(fileno(file), clock, [] { return false; });
  testing::internal::CaptureStderr();
  EXPECT_EQ(run_.DoLines(input), 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "vantrel-send: A list for many rounds has at most 100000 commands.\n");
  std::fclose(file);
  EXPECT_TRUE(Waits().empty());
}

// Whatever bytes come as data, what is told of them is UTF-8.
TEST_F(RunTest, TellsAnyBytesInUtf8) {
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte)
    if (byte != 3) bytes += link::HexOf(static_cast<std::uint8_t>(byte));
  // 58h, 20h, the bytes and ETX, and their exclusive-or.
  std::uint8_t check = 0;
  for (const std::uint8_t byte : link::BytesOf("5820" + bytes + "03")) check ^= byte;
  for (const link::CodePage page :
       {link::CodePage::kJapanese, link::CodePage::kSimplifiedChinese, link::CodePage::kKorean,
        link::CodePage::kTraditionalChinese, link::CodePage::kWestern}) {
    Sender sender(port_, clock_, page);
    port_.Open();
    printer_.Replies("06025820" + bytes + "03" + link::HexOf(check));
    const Exchange exchange = sender.Send("0258035B", 1000);
    ASSERT_EQ(exchange.outcome, Outcome::kReply);
    EXPECT_EQ(exchange.data.size(), 254U);
    EXPECT_EQ(log::ValidUtf8(exchange.text), exchange.text) << static_cast<int>(page);
    for (const Format format : {Format::kText, Format::kJson}) {
      const std::string told = Told(exchange, format);
      EXPECT_EQ(log::ValidUtf8(told), told) << static_cast<int>(page);
    }
  }
}

}  // namespace
}  // namespace vantrel::send
