// SPDX-License-Identifier: MIT

#include "tests/support/printer_bench.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

// Frames and replies are written by hand: STX, code, data, ETX and the exclusive-or of all after
// STX. A byte is ten bits.
class Pacing : public testing::Test {
 protected:
  Pacing() {
    bench_.model.SetPacing(true);
    bench_.model.OnHear([this](std::span<const std::uint8_t> bytes, protocol::Moment when) {
      heard_.push_back(std::to_string(when.count()) + ": " +
                       link::HexTextOf({bytes.begin(), bytes.end()}));
    });
  }

  support::PrinterBench bench_;
  support::Chunks heard_;  // "1010: 02" for a byte at 1010 ms
};

TEST_F(Pacing, SendsAtTheSpeedOfTheLine) {
  bench_.model.SetSpeed(1000);
  // Four bytes of ten bits there, and seven back.
  EXPECT_EQ(bench_.Send("02 95 03 96"), support::Chunks{});
  EXPECT_EQ(bench_.Pass(109ms), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), support::Chunks{"06 02 95 20 30 03 86"});
  EXPECT_FALSE(bench_.model.NextAdvance());
}

TEST_F(Pacing, KeepsTheGapBehindWhatHasGoneOut) {
  bench_.model.SetSpeed(1000);
  bench_.model.SetInstantWork(true);
  bench_.model.SetTrack(0, "ABC");
  bench_.Send("02 21 03 22");
  EXPECT_EQ(bench_.Pass(40ms), support::Chunks{});
  bench_.InsertCard();
  EXPECT_EQ(bench_.Pass(10ms), support::Chunks{"06"});
  // 20 ms of gap and eight bytes.
  EXPECT_EQ(bench_.Pass(99ms), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), support::Chunks{"02 21 20 41 42 43 03 42"});
}

TEST_F(Pacing, SendsNoMoreThanTheLineTakes) {
  bench_.model.SetSpeed(1000);
  // The answers take longer than the questions, so they pile up.
  std::size_t chunks = 0;
  for (int i = 0; i < 3000; ++i) {
    bench_.Send("02 95 03 96");
    chunks += bench_.Pass(40ms).size();
  }
  const std::size_t rest = bench_.Pass(24h).size();
  // 585 answers of seven bytes, and one more byte, are 4096 bytes.
  EXPECT_EQ(rest, 586U);
  EXPECT_EQ(chunks, 3000U * 40 / 70);
}

TEST_F(Pacing, HearsNothingInWhatComesAtAnotherSpeed) {
  bench_.model.SetConsoleSpeed(19200);
  EXPECT_EQ(bench_.Send("02 95 03 96"), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  bench_.model.SetConsoleSpeed(9600);
  bench_.Send("02 95 03 96");
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{"06 02 95 20 30 03 86"});
}

TEST_F(Pacing, TellsWhatItHearsWhenTheLineHasCarriedItOver) {
  bench_.model.SetSpeed(1000);
  bench_.Send("02 95 03 96 FF");
  EXPECT_EQ(heard_, support::Chunks{});
  bench_.Pass(40ms);
  EXPECT_EQ(heard_, (support::Chunks{"1010: 02", "1020: 95", "1030: 03", "1040: 96"}));
  bench_.model.SetPower(false, bench_.now);
  EXPECT_EQ(heard_.back(), "1040: FF");
  // A printer that is off hears nothing, and yet the line has carried it.
  bench_.Send("02 95 03 96");
  EXPECT_EQ(heard_.back(), "1040: 02950396");
}

TEST_F(Pacing, TellsWhatItMishearsAsItWasSaid) {
  bench_.model.SetConsoleSpeed(19200);
  bench_.Send("02 95 03 96");
  bench_.Pass(1min);
  EXPECT_EQ(heard_, support::Chunks{"1000: 02950396"});
}

TEST_F(Pacing, AnswersAsNoiseAConsoleThatHasChangedItsSpeed) {
  bench_.Send("02 21 03 22");
  EXPECT_EQ(bench_.Pass(1s), support::Chunks{"06"});
  bench_.model.SetConsoleSpeed(19200);
  bench_.InsertCard();
  const support::Chunks sent = bench_.Pass(1s);
  ASSERT_EQ(sent.size(), 1U);
  // A track with nothing on it would be answered so.
  EXPECT_NE(sent.front(), "02 21 23 03 01");
}

TEST_F(Pacing, SwitchedOffUnderstandsEverySpeed) {
  bench_.model.SetPacing(false);
  bench_.model.SetConsoleSpeed(2400);
  EXPECT_EQ(bench_.Send("02 95 03 96"), support::Chunks{"06 02 95 20 30 03 86"});
}

TEST_F(Pacing, FollowsThePrintersOwnSpeed) {
  bench_.model.SetSpeed(38400);
  bench_.model.SetConsoleSpeed(9600);
  bench_.Send("02 95 03 96");
  EXPECT_EQ(bench_.Pass(1s), support::Chunks{});
  bench_.model.SetConsoleSpeed(38400);
  bench_.Send("02 95 03 96");
  EXPECT_EQ(bench_.Pass(1s), support::Chunks{"06 02 95 20 30 03 86"});
}

TEST_F(Pacing, HearsAFrameWhenTheLineHasCarriedItOver) {
  bench_.model.SetSpeed(1200);
  // 3Bh with 70 bytes of data is a frame of 74 bytes, which takes 616.7 ms; its 06h takes 8.3 ms,
  // and with its reply of 5 bytes 50 ms.
  std::string frame = "02 3B";
  for (int i = 0; i < 70; ++i) frame += " 41";
  bench_.Send(frame + " 03 38");
  EXPECT_EQ(bench_.Pass(616ms), support::Chunks{});
  EXPECT_FALSE(bench_.model.State().presets[0]);
  bench_.Pass(1ms);
  EXPECT_TRUE(bench_.model.State().presets[0]);
  EXPECT_EQ(bench_.Pass(49ms), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), support::Chunks{"06 02 3B 20 03 18"});
}

TEST_F(Pacing, HearsTwoFramesOneAfterTheOther) {
  bench_.model.SetSpeed(1000);
  bench_.Send("02 95 03 96 02 96 03 95");
  EXPECT_EQ(bench_.Pass(110ms), support::Chunks{"06 02 95 20 30 03 86"});
  EXPECT_EQ(bench_.Pass(70ms), support::Chunks{"06 02 96 20 30 03 85"});
}

TEST_F(Pacing, ForgetsNoFrameThatIsLongOnItsWay) {
  bench_.model.SetSpeed(50);
  bench_.Send("02");
  bench_.Pass(100ms);
  // Three bytes take 600 ms, but there is no silence between them.
  bench_.Send("95 03 96");
  EXPECT_EQ(bench_.Pass(10s), support::Chunks{"06 02 95 20 30 03 86"});
}

TEST_F(Pacing, MakesTheConsoleWaitWhileMuchIsOnItsWay) {
  bench_.model.SetSpeed(1000);
  EXPECT_TRUE(bench_.model.TakesMore());
  bench_.model.Receive(link::Bytes(5000, 0x41), bench_.now);
  EXPECT_FALSE(bench_.model.TakesMore());
  bench_.Pass(8s);
  EXPECT_FALSE(bench_.model.TakesMore());
  bench_.Pass(4s);
  EXPECT_TRUE(bench_.model.TakesMore());
}

TEST_F(Pacing, LosesWhatIsOnItsWayWithThePower) {
  bench_.Send("02 95 03");
  bench_.model.SetPower(false, bench_.now);
  bench_.model.SetPower(true, bench_.now);
  bench_.Send("96");
  EXPECT_EQ(bench_.Pass(1s), support::Chunks{});
}

}  // namespace
}  // namespace vantrel::printer
