// SPDX-License-Identifier: MIT

#include "tests/link/transaction_fixture.h"

#include <gmock/gmock.h>

#include <random>
#include <vector>

namespace vantrel::link {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(TransactionTest, ClosedPortFailsAtTheWriteWithTheFrameAlreadyShown) {
  port.Close();
  FillPanels();
  EXPECT_THROW(Send21(), PortError);
  EXPECT_EQ(display.Text(Field::TxtCommand), "21");
  EXPECT_EQ(display.Text(Field::TxtSyntax), "02 21 03 22 ");
  EXPECT_EQ(Response(), "");
  EXPECT_THAT(display.ButtonHistory(), ElementsAre(false, true));
  ExpectReadyAgain();
  EXPECT_EQ(clock.Now(), 0);
}

TEST_F(TransactionTest, ClosedPortSaysThatItIsNotOpen) {
  port.Close();
  try {
    Send21();
    FAIL() << "A closed port took the frame.";
  } catch (const PortError& error) {
    EXPECT_THAT(error.what(), StartsWith("COM 1 is not open, so nothing was sent"));
  }
}

TEST_F(TransactionTest, WorksAgainOnceAClosedPortWasOpened) {
  port.Close();
  EXPECT_THROW(Send21(), PortError);
  port.Open();
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, FailedWriteClosesThePort) {
  FillPanels();
  port.FailAtWrite(1);
  EXPECT_THROW(Send21(), PortError);
  EXPECT_FALSE(port.IsOpen());
  ExpectReadyAgain();
}

TEST_F(TransactionTest, FailedWriteInTheMiddleOfAResendClosesThePort) {
  FillPanels();
  port.FailAtWrite(3);
  ReceiveAt(5, "15");
  EXPECT_THROW(Send21(), PortError);
  EXPECT_THAT(port.Writes(), ElementsAre("02210322", "02"));
  EXPECT_FALSE(port.IsOpen());
  ExpectReadyAgain();
}

TEST_F(TransactionTest, DeviceLostDuringAWaitEndsItAtOnceWithPortError) {
  FillPanels();
  clock.At(15, [this] { port.Lose(); });
  EXPECT_THROW(Send21(), PortError);
  EXPECT_THAT(display.Losses(), IsEmpty());
  EXPECT_LE(clock.Now(), 20);
  EXPECT_FALSE(port.IsOpen());
  ExpectReadyAgain();
  port.Open();
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, DeviceLostWhileACommandBeginsEndsItBeforeItsFrameIsShown) {
  clock.At(0, [this] { port.Lose(); });
  EXPECT_THROW(Send21(), PortError);
  EXPECT_EQ(display.Text(Field::TxtSyntax), "");
  EXPECT_THAT(port.Writes(), IsEmpty());
  ExpectReadyAgain();
}

TEST_F(TransactionTest, DeviceLostJustBeforeTheWriteIsReportedAsLost) {
  clock.InYield(2, [this] { port.Lose(); });
  try {
    Send21();
    FAIL() << "The loss was not reported.";
  } catch (const PortError& error) {
    EXPECT_THAT(error.what(), StartsWith("COM 1 is gone: Input/output error"));
  }
  EXPECT_EQ(display.Text(Field::TxtSyntax), "02 21 03 22 ");
  ExpectReadyAgain();
}

TEST_F(TransactionTest, AbandonJustBeforeTheWriteSendsNothing) {
  clock.InYield(2, [this] { transaction.Abandon(); });
  EXPECT_THROW(Send21(), ExchangeEnded);
  EXPECT_THAT(port.Writes(), IsEmpty());
}

TEST_F(TransactionTest, DeviceLostDuringANestedWaitIsReportedByTheInnermostCallAlone) {
  FillPanels();
  SendAt(15, kFrame54);
  clock.At(30, [this] { port.Lose(); });
  EXPECT_THROW(Send21(), ExchangeEnded);
  ASSERT_EQ(clock.PortErrors().size(), 1U);
  EXPECT_THAT(clock.PortErrors()[0], StartsWith("COM 1 is gone: Input/output error"));
  EXPECT_LE(clock.Now(), 40);
  ExpectReadyAgain();
  port.Open();
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, DeviceLostInTheInnermostOfThreeCallsEndsAllThree) {
  SendAt(15, kFrame54);
  SendAt(30, kFrame5F);
  clock.At(45, [this] { port.Lose(); });
  EXPECT_THROW(Send21(), ExchangeEnded);
  EXPECT_EQ(clock.PortErrors().size(), 1U);
  EXPECT_EQ(clock.EventsEndedSilently(), 1);
  ExpectReadyAgain();
}

TEST_F(TransactionTest, DeviceLostAfterANestedCallEndedIsReportedByTheOuterOne) {
  SendAt(15, kFrame54);
  ReceiveAt(30, kReply54);
  clock.At(100, [this] { port.Lose(); });
  EXPECT_THROW(Send21(), PortError);
  EXPECT_THAT(clock.PortErrors(), IsEmpty());
}

TEST_F(TransactionTest, DeviceLostWithNoCommandWaitingIsShownAndThrowsNothing) {
  EXPECT_NO_THROW(port.Lose());
  EXPECT_THAT(display.Losses(), ElementsAre(StartsWith("COM 1 is gone: Input/output error")));
  EXPECT_THROW(Send21(), PortError);
  port.Open();
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, CommandPressedAfterTheLossFailsByItselfAndTheWaitStillEnds) {
  clock.At(15, [this] {
    port.Lose();
    transaction.SendCommand(kFrame54, 5000);
  });
  EXPECT_THROW(Send21(), PortError);
  ASSERT_EQ(clock.PortErrors().size(), 1U);
  EXPECT_THAT(clock.PortErrors()[0], StartsWith("COM 1 is not open"));
  ExpectReadyAgain();
}

TEST_F(TransactionTest, FailedWriteOfANestedCommandEndsTheOuterOneAtOnceAndSilently) {
  FillPanels();
  port.FailAtWrite(2);
  SendAt(15, kFrame54);
  EXPECT_THROW(Send21(), ExchangeEnded);
  EXPECT_EQ(clock.PortErrors().size(), 1U);
  EXPECT_EQ(Response(), "");
  EXPECT_LE(clock.Now(), 20);
  ExpectReadyAgain();
  port.Open();
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, FailedResendOfTheInnermostOfThreeCallsEndsAllThree) {
  port.FailAtWrite(4);
  SendAt(15, kFrame54);
  SendAt(30, kFrame5F);
  ReceiveAt(45, "15");
  EXPECT_THROW(Send21(), ExchangeEnded);
  EXPECT_EQ(clock.PortErrors().size(), 1U);
  EXPECT_EQ(clock.EventsEndedSilently(), 1);
  EXPECT_LE(clock.Now(), 60);
  ExpectReadyAgain();
}

// The user closed the port by the menu; there is no loss that the outer call could end with.
TEST_F(TransactionTest, NestedCommandOnAPortClosedFromTheMenuLeavesTheOuterOneToItsTimeLimit) {
  clock.At(15, [this] {
    port.Close();
    transaction.SendCommand(kFrame54, 5000);
  });
  Send21();
  ASSERT_EQ(clock.PortErrors().size(), 1U);
  EXPECT_THAT(clock.PortErrors()[0], StartsWith("COM 1 is not open"));
  EXPECT_EQ(Response(), "Time up! ");
  EXPECT_LE(clock.Now(), 5025);
}

TEST_F(TransactionTest, PortClosedFromTheMenuDuringAWaitEndsInTimeUp) {
  clock.At(15, [this] { port.Close(); });
  Send21();
  EXPECT_EQ(Response(), "Time up! ");
  ExpectReadyAgain();
}

TEST_F(TransactionTest, ResendRequestBeforeThePortWasClosedFailsAtItsFirstByte) {
  clock.At(15, [this] {
    port.Receive("15");
    port.Close();
  });
  EXPECT_THROW(Send21(), PortError);
  ExpectReadyAgain();
}

TEST_F(TransactionTest, AbandonEndsAWaitWithoutAnOutcome) {
  FillPanels();
  clock.At(15, [this] { transaction.Abandon(); });
  EXPECT_THROW(Send21(), ExchangeEnded);
  EXPECT_LE(clock.Now(), 20);
  EXPECT_TRUE(port.IsOpen());
  EXPECT_EQ(Response(), "");
  ExpectReadyAgain();
}

TEST_F(TransactionTest, AbandonEndsEveryNestedWait) {
  SendAt(15, kFrame54);
  SendAt(30, kFrame5F);
  clock.At(45, [this] { transaction.Abandon(); });
  EXPECT_THROW(Send21(), ExchangeEnded);
  EXPECT_EQ(clock.EventsEndedSilently(), 2);
  EXPECT_LE(clock.Now(), 60);
  ExpectReadyAgain();
}

TEST_F(TransactionTest, AbandonWithNothingWaitingDoesNotTouchTheNextCommand) {
  transaction.Abandon();
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, AbandonAfterALossKeepsSilent) {
  clock.At(15, [this] {
    port.Lose();
    transaction.Abandon();
  });
  EXPECT_THROW(Send21(), ExchangeEnded);
  EXPECT_THAT(clock.PortErrors(), IsEmpty());
  port.Open();
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, HalfAFrameLeadsToTimeUpAndIsForgottenByTheNextCommand) {
  ReceiveAt(5, "0602212041");
  Send21();
  EXPECT_EQ(Response(), "Time up! ");
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, WholeReplyBehindHalfAFrameIsNotRecognised) {
  ReceiveAt(5, "0602212041");
  ReceiveAt(25, kReply21);
  Send21();
  EXPECT_EQ(Response(), "Time up! ");
}

TEST_F(TransactionTest, TwoRepliesAtOnceLeadToTimeUp) {
  ReceiveAt(5, std::string(kReply21) + kReply21);
  Send21();
  EXPECT_EQ(Response(), "Time up! ");
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, SecondReplyBehindARecognisedOneIsForgottenByTheNextCommand) {
  ReceiveAt(5, kReply21);
  Send21();
  port.Receive(kReply21);
  EXPECT_EQ(Response(), kShown21);
  ReceiveAt(25, kReply54);
  transaction.SendCommand(kFrame54, 5000);
  EXPECT_EQ(Response(), kShown54);
}

TEST_F(TransactionTest, ReplyAfterTheTimeLimitChangesNothingOnTheDisplay) {
  Send21();
  port.Receive(kReply21);
  clock.Advance(1000);
  EXPECT_EQ(Response(), "Time up! ");
  EXPECT_EQ(Hints(), "");
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, HundredKilobytesWithoutEtxLeadToTimeUp) {
  std::string block;
  for (int i = 0; i < 1000; ++i) block += "41";
  ReceiveAt(5, "06022120");
  for (int i = 0; i < 100; ++i) ReceiveAt(6 + i, block);
  Send21();
  EXPECT_EQ(transaction.ReceiveBuffer().size(), 2U * (4 + 100'000));
  EXPECT_EQ(Response(), "Time up! ");
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, RandomBytesEndAsTheirFirstOneSays) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::mt19937 random(20261);
  for (int round = 0; round < 300; ++round) {
    std::string noise;
    const std::vector<std::string> starts = {"06", "10", "15", "", "", ""};
    noise += starts[static_cast<std::size_t>(round) % starts.size()];
    const auto length = 2 * (1 + random() % 64);
    for (std::size_t i = 0; i < length; ++i) noise += kDigits[random() % 16];
    clock.After(5, [this, noise] { port.Receive(noise); });
    Send21();
    const std::string first = noise.substr(0, 2);
    std::string expected = "Unknown Control Character code: " + noise;
    if (first == "06") expected = "Time up! ";
    if (first == "10") expected = "&H10: Reject Response";
    if (first == "15") expected = "Time up! &H15: Resend Request";
    EXPECT_EQ(Response(), expected) << noise;
    ExpectReadyAgain();
  }
  ExpectNextCommandWorks();
}

}  // namespace
}  // namespace vantrel::link
