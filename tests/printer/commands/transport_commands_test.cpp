// SPDX-License-Identifier: MIT

#include "tests/support/printer_bench.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

// Frames and replies are written by hand: STX, code, data, ETX and the exclusive-or of all after
// STX.
class TransportCommands : public testing::Test {
 protected:
  TransportCommands() { bench_.model.SetInstantWork(true); }

  CardPlace Place() const { return bench_.model.State().place; }

  support::PrinterBench bench_;
};

TEST_F(TransportCommands, DischargeToTheFrontKeepsTheCardATarget) {
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 50 30 03 63"), support::Chunks{"06 02 50 20 03 73"});
  EXPECT_EQ(Place(), CardPlace::kFront);
  EXPECT_TRUE(bench_.model.State().HasTargetCard());
}

TEST_F(TransportCommands, CompleteDischargeLeavesNoTarget) {
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 50 31 03 62"), support::Chunks{"06 02 50 20 03 73"});
  EXPECT_EQ(Place(), CardPlace::kExit);
  EXPECT_FALSE(bench_.model.State().HasTargetCard());
}

TEST_F(TransportCommands, DischargeWithoutACardIsAnsweredWith22h) {
  EXPECT_EQ(bench_.Send("02 50 31 03 62"), support::Chunks{"06 02 50 22 03 71"});
}

TEST_F(TransportCommands, DischargeTakesZeroOrOneAlone) {
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 50 32 03 61"), support::Chunks{"10"});
  EXPECT_EQ(bench_.Send("02 50 03 53"), support::Chunks{"10"});
  EXPECT_EQ(bench_.Send("02 50 30 31 03 52"), support::Chunks{"10"});
  EXPECT_EQ(Place(), CardPlace::kFront);
}

TEST_F(TransportCommands, MoveTheCardToTheRearAndToTheFront) {
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 51 03 52"), support::Chunks{"06 02 51 20 03 72"});
  EXPECT_EQ(Place(), CardPlace::kRear);
  EXPECT_EQ(bench_.Send("02 53 03 50"), support::Chunks{"06 02 53 20 03 70"});
  EXPECT_EQ(Place(), CardPlace::kFront);
}

TEST_F(TransportCommands, WaitForACardToMove) {
  EXPECT_EQ(bench_.Send("02 51 03 52"), support::Chunks{"06"});
  bench_.Pass(kReplyGap);
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{"02 51 20 03 72"});
  bench_.PullOutCard();
  EXPECT_EQ(bench_.Send("02 53 03 50"), support::Chunks{"06"});
  bench_.Pass(kReplyGap);
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{"02 53 20 03 70"});
}

TEST_F(TransportCommands, CleaningWaitsForACleaningCardAndDischargesIt) {
  bench_.model.SetCardKind(CardKind::kCleaning);
  EXPECT_EQ(bench_.Send("02 52 03 51"), support::Chunks{"06"});
  EXPECT_EQ(bench_.model.ActivityInWords(), "52h waits for a cleaning card");
  bench_.Pass(kReplyGap);
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{"02 52 20 03 71"});
  EXPECT_EQ(Place(), CardPlace::kExit);
}

TEST_F(TransportCommands, CleaningDischargesAnOrdinaryCardAndWaitsOn) {
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 52 03 51"), support::Chunks{"06"});
  EXPECT_EQ(Place(), CardPlace::kExit);
  EXPECT_EQ(bench_.model.ActivityInWords(), "52h waits for the card to be pulled out");
  bench_.PullOutCard();
  // Another ordinary one comes out again as well.
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{});
  EXPECT_EQ(Place(), CardPlace::kExit);
  bench_.PullOutCard();
  bench_.model.SetCardKind(CardKind::kCleaning);
  bench_.Pass(kReplyGap);
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{"02 52 20 03 71"});
}

TEST_F(TransportCommands, TakeNoParameterBesides50h) {
  for (const char* frame :
       {"02 51 31 03 63", "02 52 31 03 60", "02 53 31 03 61", "02 54 31 03 66", "02 55 31 03 67"}) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{"10"}) << frame;
  }
}

// One frame for each command that waits for a card.
class CardWaits : public testing::TestWithParam<std::string> {};

TEST_P(CardWaits, EndWith54hAndAreNotAnswered) {
  support::PrinterBench bench;
  bench.model.SetInstantWork(true);
  ASSERT_EQ(bench.Send(GetParam()), support::Chunks{"06"});
  EXPECT_EQ(bench.model.State().wait, CardWait::kInsertion);
  // A wait for a card is none of 55h.
  EXPECT_EQ(bench.Send("02 55 03 56"), support::Chunks{"06 02 55 20 03 76"});
  EXPECT_EQ(bench.model.State().wait, CardWait::kInsertion);
  EXPECT_EQ(bench.Send("02 54 03 57"), support::Chunks{"06 02 54 20 03 77"});
  EXPECT_EQ(bench.model.ActivityInWords(), "Idle");
  EXPECT_EQ(bench.InsertCard(), support::Chunks{});
  EXPECT_EQ(bench.Pass(std::chrono::seconds(60)), support::Chunks{});
  EXPECT_EQ(bench.model.State().place, CardPlace::kFront);
}

TEST_P(CardWaits, ForARemovalEndWith55hAndAreNotAnswered) {
  support::PrinterBench bench;
  bench.model.SetInstantWork(true);
  bench.InsertCard();
  bench.Send("02 50 31 03 62");
  ASSERT_EQ(bench.Send(GetParam()), support::Chunks{"06"});
  EXPECT_EQ(bench.model.State().wait, CardWait::kRemoval);
  // A wait for a removal is none of 54h.
  EXPECT_EQ(bench.Send("02 54 03 57"), support::Chunks{"06 02 54 20 03 77"});
  EXPECT_EQ(bench.model.State().wait, CardWait::kRemoval);
  EXPECT_EQ(bench.Send("02 55 03 56"), support::Chunks{"06 02 55 20 03 76"});
  EXPECT_EQ(bench.model.ActivityInWords(), "Idle");
  EXPECT_EQ(bench.Pass(std::chrono::seconds(60)), support::Chunks{});
  // The card is held again, as a target.
  EXPECT_EQ(bench.model.State().place, CardPlace::kFront);
}

TEST_P(CardWaits, EndWithAResetAndAreNotAnswered) {
  support::PrinterBench bench;
  bench.model.SetInstantWork(true);
  ASSERT_EQ(bench.Send(GetParam()), support::Chunks{"06"});
  EXPECT_EQ(bench.Send("02 5F 03 5C"), support::Chunks{"06 02 5F 20 03 7C"});
  EXPECT_EQ(bench.model.ActivityInWords(), "Idle");
  EXPECT_EQ(bench.InsertCard(), support::Chunks{});
  EXPECT_EQ(bench.Pass(std::chrono::seconds(60)), support::Chunks{});
}

INSTANTIATE_TEST_SUITE_P(All, CardWaits,
                         testing::Values("02 21 03 22", "02 22 03 21", "02 23 03 20", "02 29 03 2A",
                                         "02 2A 03 29", "02 2B 03 28", "02 51 03 52", "02 52 03 51",
                                         "02 53 03 50", "02 31 37 03 05", "02 46 31 03 74",
                                         "02 47 31 03 75", "02 48 31 03 7A"),
                         [](const auto& row) { return "Of" + row.param.substr(3, 2) + "h"; });

TEST(CancelRemovalWait, WithoutACommandThatWaitsHoldsTheCardAsATargetAgain) {
  support::PrinterBench bench;
  bench.model.SetInstantWork(true);
  bench.InsertCard();
  bench.Send("02 50 31 03 62");
  EXPECT_EQ(bench.model.State().transports, 1U);
  EXPECT_EQ(bench.Send("02 55 03 56"), support::Chunks{"06 02 55 20 03 76"});
  EXPECT_TRUE(bench.model.State().HasTargetCard());
  // It is held where it is, which is no move.
  EXPECT_EQ(bench.model.State().transports, 1U);
}

TEST(Hand, DoesOnlyWhatAHandCanDo) {
  support::PrinterBench bench;
  EXPECT_FALSE(bench.model.PullOutCard(bench.now));
  EXPECT_TRUE(bench.model.InsertCard(bench.now));
  EXPECT_FALSE(bench.model.InsertCard(bench.now));
  EXPECT_FALSE(bench.model.SetCardKind(CardKind::kCleaning));
  EXPECT_EQ(bench.model.State().card.kind, CardKind::kOrdinary);
  // The card is moving while a command is at work.
  bench.Send("02 21 03 22");
  EXPECT_FALSE(bench.model.PullOutCard(bench.now));
  bench.Pass(kReadTime);
  EXPECT_TRUE(bench.model.PullOutCard(bench.now));
  EXPECT_TRUE(bench.model.SetCardKind(CardKind::kCleaning));
}

}  // namespace
}  // namespace vantrel::printer
