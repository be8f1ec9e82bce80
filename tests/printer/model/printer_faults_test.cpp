// SPDX-License-Identifier: MIT

#include "tests/support/printer_bench.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

// Frames and replies are written by hand: STX, code, data, ETX and the exclusive-or of all after
// STX. 95h answers "0" at once; 21h reads "ABC" in 700 ms.
class Faults : public testing::Test {
 protected:
  Faults() { bench_.model.SetTrack(0, "ABC"); }

  void Set(std::string_view text) { bench_.model.ReplaceFaults(ParseFault(text)); }
  support::Chunks Ask() { return bench_.Send("02 95 03 96"); }
  support::Chunks Read() { return bench_.Send("02 21 03 22"); }

  const support::Chunks good_{"06 02 95 20 30 03 86"};
  support::PrinterBench bench_;
};

TEST_F(Faults, HappenOnceAndAreOver) {
  Set("bad-bcc");
  EXPECT_FALSE(bench_.model.Faults().IsEmpty());
  EXPECT_NE(Ask(), good_);
  EXPECT_TRUE(bench_.model.Faults().IsEmpty());
  EXPECT_EQ(Ask(), good_);
}

TEST_F(Faults, HappenForSoManyCommands) {
  Set("reject for 3");
  EXPECT_EQ(Ask(), support::Chunks{"10"});
  EXPECT_EQ(bench_.model.Faults().List().at(0).left, 2U);
  EXPECT_EQ(Ask(), support::Chunks{"10"});
  EXPECT_EQ(Ask(), support::Chunks{"10"});
  EXPECT_EQ(Ask(), good_);
}

TEST_F(Faults, HappenUntilTheyAreTakenAway) {
  Set("reject until cleared");
  for (int i = 0; i < 50; ++i) EXPECT_EQ(Ask(), support::Chunks{"10"});
  bench_.model.ClearFaults();
  EXPECT_EQ(Ask(), good_);
}

TEST_F(Faults, AreSpentOnEveryFrameWithAGoodBlockCheck) {
  Set("silence");
  // Asked for again, so not spent.
  EXPECT_EQ(bench_.Send("02 95 03 97"), support::Chunks{"15"});
  // No command at all, and yet one.
  EXPECT_EQ(bench_.Send("02 20 03 23"), support::Chunks{});
  EXPECT_EQ(Ask(), good_);
}

TEST_F(Faults, OutliveResetAndPower) {
  Set("reject for 2");
  bench_.model.SetPower(false, bench_.now);
  bench_.model.SetPower(true, bench_.now);
  EXPECT_EQ(bench_.Send("02 5F 03 5C"), support::Chunks{"10"});
  EXPECT_EQ(Ask(), support::Chunks{"10"});
}

class StatusFault : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(StatusFault, AnswersInPlaceOfTheWork) {
  support::PrinterBench bench;
  bench.model.SetInstantWork(true);
  bench.InsertCard();
  bench.model.ReplaceFaults(ParseFault(std::string("status ") + GetParam().first));
  EXPECT_EQ(bench.Send("02 51 03 52"), support::Chunks{GetParam().second});
  EXPECT_EQ(bench.model.State().place, CardPlace::kFront);
  EXPECT_EQ(bench.model.State().transports, 0U);
}

// The block check of 51h, a status and ETX is 52h and the status, exclusively or-ed.
INSTANTIATE_TEST_SUITE_P(
    All, StatusFault,
    testing::Values(std::pair("22", "06 02 51 22 03 70"), std::pair("23", "06 02 51 23 03 71"),
                    std::pair("31", "06 02 51 31 03 63"), std::pair("32", "06 02 51 32 03 60"),
                    std::pair("33", "06 02 51 33 03 61"), std::pair("34", "06 02 51 34 03 66"),
                    std::pair("37", "06 02 51 37 03 65"), std::pair("38", "06 02 51 38 03 6A"),
                    std::pair("40", "06 02 51 40 03 12"), std::pair("41", "06 02 51 41 03 13"),
                    std::pair("42", "06 02 51 42 03 10"), std::pair("43", "06 02 51 43 03 11"),
                    std::pair("45", "06 02 51 45 03 17"), std::pair("4C", "06 02 51 4C 03 1E"),
                    std::pair("51", "06 02 51 51 03 03"), std::pair("7A", "06 02 51 7A 03 28")),
    [](const auto& row) { return std::string("Of") + row.param.first + "h"; });

TEST_F(Faults, StatusWaitsForNoCardButTakesTheTimeOfTheWork) {
  Set("status 38");
  EXPECT_EQ(Read(), support::Chunks{"06"});
  EXPECT_EQ(bench_.Pass(699ms), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), support::Chunks{"02 21 38 03 1A"});
}

TEST_F(Faults, StatusLeavesResetAndCancellingUndone) {
  Read();
  Set("status 45 for 2");
  EXPECT_EQ(bench_.Send("02 54 03 57"), support::Chunks{"06 02 54 45 03 12"});
  EXPECT_EQ(bench_.model.ActivityInWords(), "21h waits for a card");
  bench_.Send("02 5A 30 31 31 03 69");
  EXPECT_EQ(bench_.model.State().indicators.led_operation, '0');
}

TEST_F(Faults, SilenceLeavesTheCommandUndone) {
  bench_.InsertCard();
  Set("silence");
  EXPECT_EQ(Read(), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  EXPECT_EQ(bench_.model.State().transports, 0U);
}

TEST_F(Faults, RejectLeavesTheCommandUndone) {
  bench_.InsertCard();
  Set("reject");
  EXPECT_EQ(Read(), support::Chunks{"10"});
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  EXPECT_EQ(bench_.model.State().transports, 0U);
}

TEST_F(Faults, UnknownControlCharacterIsAllThatAnswers) {
  bench_.InsertCard();
  Set("unknown-control 55");
  EXPECT_EQ(Read(), support::Chunks{"55"});
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
}

TEST_F(Faults, DelayKeepsTheReplyButNotItsAcknowledgement) {
  Set("delay 2000");
  EXPECT_EQ(Ask(), support::Chunks{"06"});
  EXPECT_EQ(bench_.Pass(1999ms), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), support::Chunks{"02 95 20 30 03 86"});
  bench_.InsertCard();
  Set("delay 2000");
  EXPECT_EQ(Read(), support::Chunks{"06"});
  EXPECT_EQ(bench_.Pass(2699ms), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), support::Chunks{"02 21 20 41 42 43 03 42"});
}

TEST_F(Faults, BadBlockCheck) {
  Set("bad-bcc");
  // 86h with every bit turned.
  EXPECT_EQ(Ask(), support::Chunks{"06 02 95 20 30 03 79"});
}

TEST_F(Faults, WrongEchoHasAGoodBlockCheck) {
  Set("wrong-echo");
  EXPECT_EQ(Ask(), support::Chunks{"06 02 15 20 30 03 06"});
}

TEST_F(Faults, TruncatedReplyLacksEndAndBlockCheck) {
  Set("truncate");
  EXPECT_EQ(Ask(), support::Chunks{"06 02 95 20 30"});
}

TEST_F(Faults, BentRepliesComeWhenTheWorkIsDone) {
  bench_.InsertCard();
  Set("truncate");
  EXPECT_EQ(Read(), support::Chunks{"06"});
  EXPECT_EQ(bench_.Pass(700ms), support::Chunks{"02 21 20 41 42 43"});
  EXPECT_EQ(bench_.model.State().transports, 1U);
}

TEST_F(Faults, ResendAsksForTheFrameAgainSoManyTimes) {
  Set("resend 2");
  EXPECT_EQ(Ask(), support::Chunks{"15"});
  EXPECT_EQ(Ask(), support::Chunks{"15"});
  EXPECT_EQ(Ask(), good_);
  EXPECT_EQ(Ask(), good_);
}

TEST_F(Faults, ResendSetAgainMidwayCountsAnew) {
  Set("resend 2");
  EXPECT_EQ(Ask(), support::Chunks{"15"});
  Set("resend 2");
  EXPECT_EQ(Ask(), support::Chunks{"15"});
  EXPECT_EQ(Ask(), support::Chunks{"15"});
  EXPECT_EQ(Ask(), good_);
  EXPECT_TRUE(bench_.model.Faults().IsEmpty());
}

TEST_F(Faults, ResendHappensToEachOfSoManyCommands) {
  Set("resend 1 for 2");
  EXPECT_EQ(Ask(), support::Chunks{"15"});
  EXPECT_EQ(Ask(), good_);
  EXPECT_EQ(Ask(), support::Chunks{"15"});
  EXPECT_EQ(Ask(), good_);
  EXPECT_EQ(Ask(), good_);
}

TEST_F(Faults, NoiseComesBeforeWhateverAnswers) {
  Set("noise FF00 for 2");
  EXPECT_EQ(Ask(), support::Chunks{"FF 00 06 02 95 20 30 03 86"});
  EXPECT_EQ(bench_.Send("02 20 03 23"), support::Chunks{"FF 00 10"});
}

TEST_F(Faults, SplitSendsEachByteAlone) {
  Set("split 5");
  EXPECT_EQ(Ask(), support::Chunks{});
  EXPECT_EQ(bench_.Pass(5ms), support::Chunks{"06"});
  EXPECT_EQ(bench_.Pass(4ms), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), support::Chunks{"02"});
  EXPECT_EQ(bench_.Pass(25ms), (support::Chunks{"95", "20", "30", "03", "86"}));
  EXPECT_FALSE(bench_.model.NextAdvance());
}

TEST_F(Faults, SplitSendsALaterReplyByteByByteToo) {
  bench_.InsertCard();
  Set("split 5");
  Read();
  EXPECT_EQ(bench_.Pass(705ms), (support::Chunks{"06", "02"}));
  EXPECT_EQ(bench_.Pass(1s), (support::Chunks{"21", "20", "41", "42", "43", "03", "42"}));
}

TEST_F(Faults, MuteDoesTheWork) {
  bench_.InsertCard();
  Set("mute");
  EXPECT_EQ(Read(), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  EXPECT_EQ(bench_.model.State().transports, 1U);
}

TEST_F(Faults, LateComesWhenTheConsoleHasGivenUp) {
  bench_.InsertCard();
  Set("late");
  EXPECT_EQ(Read(), support::Chunks{"06"});
  // A console waits 20 seconds for 21h.
  EXPECT_EQ(bench_.Pass(20999ms), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), support::Chunks{"02 21 20 41 42 43 03 42"});
}

TEST_F(Faults, AimedStrikeOnlyTheirCommand) {
  Set("reject on 96 after 2");
  EXPECT_EQ(Ask(), good_);
  EXPECT_EQ(bench_.Send("02 96 03 95"), support::Chunks{"06 02 96 20 30 03 85"});
  EXPECT_EQ(Ask(), good_);
  EXPECT_EQ(bench_.Send("02 96 03 95"), support::Chunks{"10"});
  EXPECT_EQ(bench_.Send("02 96 03 95"), support::Chunks{"06 02 96 20 30 03 85"});
}

TEST_F(Faults, AreToldRightAfterTheFrameThatTheyStrike) {
  std::vector<std::string> told;
  bench_.model.OnStrike([&told](const std::string& fault) { told.push_back(fault); });
  bench_.model.OnHear([&told](std::span<const std::uint8_t> bytes, protocol::Moment) {
    told.push_back(link::HexTextOf({bytes.begin(), bytes.end()}));
  });
  Set("status 22 on 95 for 2");
  bench_.model.AddFault(ParseFault("noise FF"));
  // Four frames and a part of one at once, the first with a bad block check.
  bench_.Send("41 02 95 03 97 02 95 03 96 02 96 03 95 02 95 03 96 02");
  const std::string status = "status 22 (status 22h answers in place of the work)";
  EXPECT_EQ(told, (std::vector<std::string>{"4102950397", "02950396", status,
                                            "noise FF (the noise FF goes before the answer)",
                                            "02960395", "02950396", status, "02"}));
}

TEST_F(Faults, SuppressTheAnswerThatIsTold) {
  std::vector<Answered> answers;
  bench_.model.OnAnswered([&answers](const Answered& answer) { answers.push_back(answer); });
  for (const char* fault : {"silence", "mute", "vanish"}) {
    Set(fault);
    Ask();
  }
  EXPECT_TRUE(answers.empty());
  Set("reject");
  Ask();
  Ask();
  EXPECT_EQ(answers, (std::vector<Answered>{{0x95, std::nullopt, {0x10}, 4},
                                            {0x95, 0x20, link::BytesOf("029520300386"), 5}}));
}

TEST_F(Faults, ChangeThePlanAndTell) {
  int changes = 0;
  bench_.model.OnChange([&changes] { ++changes; });
  bench_.model.ReplaceFaults(ParseFault("reject"));
  const FaultPlan::Id id = bench_.model.AddFault(ParseFault("silence"));
  EXPECT_TRUE(bench_.model.ClearFault(id));
  EXPECT_FALSE(bench_.model.ClearFault(id));
  bench_.model.ClearFaults();
  EXPECT_TRUE(bench_.model.Faults().IsEmpty());
  EXPECT_EQ(changes, 5);
}

TEST_F(Faults, JoinSendsTheAnswerTogetherWithTheNext) {
  Set("join");
  EXPECT_EQ(Ask(), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  EXPECT_EQ(bench_.Send("02 96 03 95"),
            support::Chunks{"06 02 95 20 30 03 86 06 02 96 20 30 03 85"});
  EXPECT_EQ(Ask(), good_);
}

TEST_F(Faults, JoinJoinsPairs) {
  Set("join until cleared");
  EXPECT_EQ(Ask(), support::Chunks{});
  EXPECT_EQ(bench_.Send("02 96 03 95"),
            support::Chunks{"06 02 95 20 30 03 86 06 02 96 20 30 03 85"});
  EXPECT_EQ(Ask(), support::Chunks{});
}

TEST_F(Faults, JoinKeepsALaterReplyBack) {
  bench_.InsertCard();
  Set("join");
  EXPECT_EQ(Read(), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  // The read has counted one transport.
  EXPECT_EQ(Ask(), support::Chunks{"06 02 21 20 41 42 43 03 42 06 02 95 20 31 03 87"});
}

TEST_F(Faults, JoinForgetsWhatItKeepsBackWhenThePowerGoes) {
  Set("join");
  EXPECT_EQ(Ask(), support::Chunks{});
  bench_.model.SetPower(false, bench_.now);
  bench_.model.SetPower(true, bench_.now);
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  EXPECT_EQ(Ask(), good_);
}

TEST_F(Faults, VanishTellsTheServer) {
  int vanished = 0;
  bench_.model.OnVanish([&vanished] { ++vanished; });
  Set("vanish");
  EXPECT_EQ(Ask(), support::Chunks{});
  EXPECT_EQ(vanished, 1);
  EXPECT_EQ(Ask(), good_);
  EXPECT_EQ(vanished, 1);
}

TEST_F(Faults, PowerEndsWhatIsStillToGoOut) {
  Set("split 5");
  Ask();
  bench_.model.SetPower(false, bench_.now);
  bench_.model.SetPower(true, bench_.now);
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
}

TEST_F(Faults, ResetEndsWhatIsStillToGoOut) {
  Set("delay 5000");
  Ask();
  bench_.Send("02 5F 03 5C");
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{"02 5F 20 03 7C"});
}

TEST_F(Faults, NeverKeepMoreThanSomeRepliesForLater) {
  Set("delay 3600000 until cleared");
  for (int i = 0; i < 3000; ++i) Ask();
  EXPECT_EQ(bench_.Pass(2h).size(), 1000U);
  bench_.model.ClearFaults();
  EXPECT_EQ(Ask(), good_);
}

}  // namespace
}  // namespace vantrel::printer
