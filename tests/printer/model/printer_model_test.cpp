// SPDX-License-Identifier: MIT

#include "protocol/command_table.h"
#include "tests/support/printer_bench.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

// Frames and replies are written by hand: STX, code, data, ETX and the exclusive-or of all after
// STX. Time counts here: a read takes 700 ms, a move 400 ms.
class Printer : public testing::Test {
 protected:
  Printer() { bench_.model.SetTrack(0, "ABC"); }

  support::PrinterBench bench_;
};

TEST_F(Printer, SendsNothingBeforeItIsSpokenTo) {
  EXPECT_FALSE(bench_.model.NextAdvance());
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{});
  EXPECT_EQ(bench_.Pass(10min), support::Chunks{});
}

TEST_F(Printer, AcknowledgesAtOnceAndRepliesWhenTheWorkIsDone) {
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 21 03 22"), support::Chunks{"06"});
  EXPECT_EQ(bench_.model.ActivityInWords(), "21h is at work");
  EXPECT_EQ(bench_.Pass(699ms), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), support::Chunks{"02 21 20 41 42 43 03 42"});
  EXPECT_FALSE(bench_.model.NextAdvance());
}

TEST_F(Printer, RepliesToACardNotBefore20MillisecondsAfterTheAcknowledgement) {
  bench_.model.SetInstantWork(true);
  EXPECT_EQ(bench_.Send("02 21 03 22"), support::Chunks{"06"});
  bench_.now += 5ms;
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{});
  EXPECT_EQ(bench_.Pass(14ms), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), support::Chunks{"02 21 20 41 42 43 03 42"});
}

TEST_F(Printer, AsksForTheFrameAgainAfterABadBlockCheck) {
  EXPECT_EQ(bench_.Send("02 21 03 23"), support::Chunks{"15"});
  EXPECT_EQ(bench_.model.ActivityInWords(), "Idle");
}

TEST_F(Printer, RejectsWhatItDoesNotTake) {
  EXPECT_EQ(bench_.Send("02 20 03 23"), support::Chunks{"10"});
  EXPECT_EQ(bench_.Send("02 4E 03 4D"), support::Chunks{"10"});
  EXPECT_EQ(bench_.Send("02 FF 03 FC"), support::Chunks{"10"});
  // A frame with no command in it.
  EXPECT_EQ(bench_.Send("02 03 03"), support::Chunks{"10"});
}

// The tests of the words have every code written by hand; this one holds the two tables together.
TEST_F(Printer, TakesEveryCodeThatTheProtocolKnowsAndNoOther) {
  for (unsigned code = 0; code < 256; ++code) {
    const auto byte = static_cast<std::uint8_t>(code);
    EXPECT_EQ(FindCommand(byte) != nullptr, protocol::FindEntry(byte) != nullptr)
        << link::HexOf(byte);
  }
}

TEST_F(Printer, ServesTwoFramesAtOnce) {
  EXPECT_EQ(bench_.Send("02 95 03 96 02 96 03 95"),
            support::Chunks{"06 02 95 20 30 03 86 06 02 96 20 30 03 85"});
}

TEST_F(Printer, ForgetsAHalfFrameAfterSilence) {
  EXPECT_EQ(bench_.Send("02 95"), support::Chunks{});
  EXPECT_EQ(bench_.Pass(500ms), support::Chunks{});
  EXPECT_EQ(bench_.Send("03 96"), support::Chunks{});
  EXPECT_EQ(bench_.Send("02 95 03 96"), support::Chunks{"06 02 95 20 30 03 86"});
}

TEST_F(Printer, KeepsAWaitWhileItServesAQuestion) {
  bench_.Send("02 21 03 22");
  EXPECT_EQ(bench_.Send("02 95 03 96"), support::Chunks{"06 02 95 20 30 03 86"});
  bench_.InsertCard();
  EXPECT_EQ(bench_.Pass(700ms), support::Chunks{"02 21 20 41 42 43 03 42"});
}

TEST_F(Printer, GivesUpAWaitForANewCommandThatNeedsACard) {
  bench_.Send("02 21 03 22");
  EXPECT_EQ(bench_.Send("02 51 03 52"), support::Chunks{"06"});
  bench_.InsertCard();
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{"02 51 20 03 72"});
}

TEST_F(Printer, GivesUpAWaitForACommandThatIsAnsweredWith22h) {
  bench_.Send("02 21 03 22");
  EXPECT_EQ(bench_.Send("02 25 03 26"), support::Chunks{"06 02 25 22 03 04"});
  bench_.InsertCard();
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
}

TEST_F(Printer, KeepsAWaitOnARejectedCommand) {
  bench_.Send("02 21 03 22");
  EXPECT_EQ(bench_.Send("02 50 32 03 61"), support::Chunks{"10"});
  EXPECT_EQ(bench_.Send("02 51 03 53"), support::Chunks{"15"});
  EXPECT_EQ(bench_.model.ActivityInWords(), "21h waits for a card");
}

TEST_F(Printer, WorksOffCommandsInTheOrderTheyCame) {
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 21 03 22 02 51 03 52"), support::Chunks{"06 06"});
  EXPECT_EQ(bench_.Send("02 50 30 03 63"), support::Chunks{"06"});
  EXPECT_EQ(bench_.Pass(700ms), support::Chunks{"02 21 20 41 42 43 03 42"});
  EXPECT_EQ(bench_.Pass(400ms), support::Chunks{"02 51 20 03 72"});
  EXPECT_EQ(bench_.Pass(400ms), support::Chunks{"02 50 20 03 73"});
}

// The read is due after 700 ms, the move 400 ms after that.
TEST_F(Printer, IsNoSlowerForALateCall) {
  bench_.InsertCard();
  bench_.Send("02 21 03 22 02 51 03 52");
  bench_.now += 900ms;
  EXPECT_EQ(bench_.Pass(0ms), support::Chunks{"02 21 20 41 42 43 03 42"});
  EXPECT_EQ(bench_.Pass(199ms), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), support::Chunks{"02 51 20 03 72"});
}

TEST_F(Printer, RejectsACommandWhenTooManyStandInLine) {
  bench_.InsertCard();
  // One at work and sixteen in line.
  for (int i = 0; i < 17; ++i) EXPECT_EQ(bench_.Send("02 21 03 22"), support::Chunks{"06"});
  EXPECT_EQ(bench_.Send("02 21 03 22"), support::Chunks{"10"});
  EXPECT_EQ(bench_.Send("02 5F 03 5C"), support::Chunks{"06"});
}

TEST_F(Printer, ResetEndsWorkAndEverythingInLine) {
  bench_.InsertCard();
  bench_.Send("02 21 03 22 02 51 03 52");
  EXPECT_EQ(bench_.Pass(100ms), support::Chunks{});
  EXPECT_EQ(bench_.Send("02 5F 03 5C"), support::Chunks{"06"});
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{"02 5F 20 03 7C"});
  // The move that it ended did not take place.
  EXPECT_EQ(bench_.model.State().place, CardPlace::kFront);
}

TEST_F(Printer, TellsWhatItIsDoing) {
  const PrinterModel& model = bench_.model;
  EXPECT_EQ(model.CurrentActivity(), Activity::kIdle);
  EXPECT_FALSE(model.CommandUnderWay());
  bench_.Send("02 21 03 22");
  EXPECT_EQ(model.CurrentActivity(), Activity::kCardWait);
  EXPECT_EQ(model.CommandUnderWay(), 0x21);
  bench_.InsertCard();
  EXPECT_EQ(model.CurrentActivity(), Activity::kWork);
  EXPECT_EQ(model.CommandUnderWay(), 0x21);
  bench_.Pass(1s);
  bench_.Send("02 50 31 03 62");
  bench_.Pass(1s);
  bench_.Send("02 51 03 52");
  EXPECT_EQ(model.CurrentActivity(), Activity::kRemovalWait);
  bench_.model.SetPower(false, bench_.now);
  EXPECT_EQ(model.CurrentActivity(), Activity::kOff);
  EXPECT_FALSE(model.CommandUnderWay());
}

TEST_F(Printer, TellsOfAnAnswerWhenItHasLeft) {
  std::vector<Answered> answers;
  bench_.model.OnAnswered([&answers](const Answered& answer) { answers.push_back(answer); });
  bench_.Send("02 21 03 22");
  bench_.InsertCard();
  bench_.Pass(699ms);
  EXPECT_TRUE(answers.empty());
  bench_.Pass(1ms);
  EXPECT_EQ(answers, (std::vector<Answered>{{0x21, 0x20, link::BytesOf("0221204142430342"), 1}}));
  // 10h and 15h are answers, too.
  bench_.Send("02 20 03 23");
  bench_.Send("02 21 03 23");
  ASSERT_EQ(answers.size(), 3U);
  EXPECT_EQ(answers[1], (Answered{0x20, std::nullopt, {0x10}, 2}));
  EXPECT_EQ(answers[2], (Answered{0x21, std::nullopt, {0x15}, 3}));
}

TEST_F(Printer, CountsTheFramesThatItHears) {
  EXPECT_EQ(bench_.model.LastHeard(), 0U);
  EXPECT_EQ(bench_.model.LastHeard(0x95), 0U);
  bench_.Send("02 95 03 96 02 20 03 23 02 95 03 00");
  EXPECT_EQ(bench_.model.LastHeard(), 3U);
  EXPECT_EQ(bench_.model.LastHeard(0x20), 2U);
  EXPECT_EQ(bench_.model.LastHeard(0x95), 3U);
  // No code at all, and no whole frame.
  bench_.Send("02 03 03 02 95");
  EXPECT_EQ(bench_.model.LastHeard(), 4U);
}

TEST_F(Printer, IsBusyWhileTimeAloneBringsAnAnswer) {
  EXPECT_FALSE(bench_.model.IsBusy());
  bench_.Send("02 21 03 22");
  EXPECT_FALSE(bench_.model.IsBusy());
  bench_.InsertCard();
  EXPECT_TRUE(bench_.model.IsBusy());
  bench_.Pass(1s);
  EXPECT_FALSE(bench_.model.IsBusy());
  bench_.model.SetPacing(true);
  bench_.Send("02 95 03 96");
  EXPECT_TRUE(bench_.model.IsBusy());
  bench_.Pass(1s);
  EXPECT_FALSE(bench_.model.IsBusy());
  // A flashing LED is no answer.
  bench_.model.SetPacing(false);
  bench_.Send("02 5A 30 32 32 03 69");
  EXPECT_TRUE(bench_.model.NextAdvance());
  EXPECT_FALSE(bench_.model.IsBusy());
}

TEST_F(Printer, DoesWhat52hDoesAtThePressOfTheButton) {
  EXPECT_TRUE(bench_.model.PressCleaningButton(bench_.now));
  EXPECT_EQ(bench_.model.CurrentActivity(), Activity::kCardWait);
  bench_.model.SetCardKind(CardKind::kCleaning);
  bench_.InsertCard();
  // As long as 52h works, and nothing is answered.
  EXPECT_EQ(bench_.Pass(2999ms), support::Chunks{});
  EXPECT_EQ(bench_.model.CurrentActivity(), Activity::kWork);
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  EXPECT_EQ(bench_.model.State().place, CardPlace::kExit);
  EXPECT_EQ(bench_.model.LastHeard(), 0U);
}

TEST_F(Printer, LetsTheButtonStandInLine) {
  bench_.InsertCard();
  bench_.Send("02 21 03 22");
  EXPECT_TRUE(bench_.model.PressCleaningButton(bench_.now));
  EXPECT_EQ(bench_.model.CommandUnderWay(), 0x21);
  EXPECT_EQ(bench_.Pass(700ms).size(), 1U);
  EXPECT_EQ(bench_.model.CommandUnderWay(), 0x52);
}

TEST_F(Printer, HasNoButtonWhileItIsOffOrTheLineIsFull) {
  bench_.model.SetPower(false, bench_.now);
  EXPECT_FALSE(bench_.model.PressCleaningButton(bench_.now));
  bench_.model.SetPower(true, bench_.now);
  bench_.InsertCard();
  for (std::size_t i = 0; i <= kLongestLine; ++i) bench_.Send("02 21 03 22");
  EXPECT_FALSE(bench_.model.PressCleaningButton(bench_.now));
}

TEST_F(Printer, RemarksOnACancellationThatEndsNoWaitForARemoval) {
  std::vector<std::string> remarks;
  bench_.model.OnRemark([&remarks](const std::string& remark) { remarks.push_back(remark); });
  bench_.InsertCard();
  bench_.Send("02 50 31 03 62");
  bench_.Pass(1s);
  bench_.Send("02 51 03 52");
  EXPECT_EQ(bench_.Send("02 54 03 57"), support::Chunks{"06 02 54 20 03 77"});
  EXPECT_EQ(remarks, std::vector<std::string>{
                         "54h does not end the wait of 51h for the card's removal; 55h does"});
  EXPECT_EQ(bench_.model.CurrentActivity(), Activity::kRemovalWait);
  bench_.PullOutCard();
  bench_.Send("02 54 03 57");
  EXPECT_EQ(remarks.size(), 1U);
}

TEST_F(Printer, TellsOfChanges) {
  int changes = 0;
  bench_.model.OnChange([&changes] { ++changes; });
  bench_.InsertCard();
  EXPECT_EQ(changes, 1);
  bench_.model.SetTrack(2, "1");
  EXPECT_EQ(changes, 2);
}

TEST_F(Printer, SurvivesAnyBytesAndUnderstandsTheNextGoodFrame) {
  std::mt19937 random(20240101);
  for (int round = 0; round < 300; ++round) {
    link::Bytes noise(random() % 2000);
    // Many 02h and 03h, so that much of it looks like frames.
    for (auto& byte : noise)
      byte = static_cast<std::uint8_t>(random() % 4 == 0 ? 2 + random() % 2 : random() % 256);
    bench_.model.Receive(noise, bench_.now);
    if (random() % 8 == 0) bench_.InsertCard();
    if (random() % 8 == 0) bench_.PullOutCard();
    bench_.Pass(2s);
    bench_.Send("02 5F 03 5C");
    ASSERT_EQ(bench_.Pass(2s).back(), "02 5F 20 03 7C") << "round " << round;
  }
}

TEST_F(Printer, DropsAFrameWithoutEndAndGoesOn) {
  link::Bytes endless(100000, 0x41);
  endless[0] = 0x02;
  bench_.model.Receive(endless, bench_.now);
  EXPECT_EQ(bench_.Send("02 95 03 96"), support::Chunks{"06 02 95 20 30 03 86"});
}

}  // namespace
}  // namespace vantrel::printer
