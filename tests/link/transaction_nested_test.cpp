// SPDX-License-Identifier: MIT

#include "tests/link/transaction_fixture.h"

#include <gmock/gmock.h>

namespace vantrel::link {
namespace {

using testing::ElementsAre;

// The outer call shares ReceiveBuffer, timers and texts with the nested one and goes on with what
// that left. It is how a card wait is cancelled, and it is meant.

TEST_F(TransactionTest, GoodReplyTo54hPressedInside21hEndsTheOuterCallInTimeUpFiveSecondsLater) {
  SendAt(15, kFrame54);
  ReceiveAt(40, kReply54);
  clock.At(60, [this] {
    EXPECT_EQ(Response(), kShown54);
    EXPECT_TRUE(display.ButtonsEnabled());
    EXPECT_TRUE(transaction.IsWaiting());
    EXPECT_EQ(transaction.ReceiveBuffer(), kReply54);
  });
  Send21();
  EXPECT_EQ(Response(), "Time up! 02 54 20 03 77 ");
  // The nested call set its limit of 5000 ms at 15 ms; the pass that notices ends within 10 ms.
  EXPECT_GE(clock.Now(), 5015);
  EXPECT_LE(clock.Now(), 5025);
  EXPECT_THAT(port.Writes(), ElementsAre("02210322", "02540357"));
  EXPECT_EQ(display.Text(Field::TxtCommand), "54");
  EXPECT_EQ(display.Text(Field::TxtSyntax), "02 54 03 57 ");
  EXPECT_EQ(Hints(), "\r\n20h: Normal Status");
  ExpectReadyAgain();
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, ButtonsAreOffInTheNestedCallAndOnFromItsEnd) {
  SendAt(15, kFrame54);
  clock.At(30, [this] { EXPECT_FALSE(display.ButtonsEnabled()); });
  ReceiveAt(40, kReply54);
  clock.At(1000, [this] { EXPECT_TRUE(display.ButtonsEnabled()); });
  Send21();
  EXPECT_THAT(display.ButtonHistory(), ElementsAre(false, false, true, true));
}

TEST_F(TransactionTest, ReplyToTheOuterCommandBehindTheNestedOneIsNotRecognised) {
  SendAt(15, kFrame54);
  ReceiveAt(40, kReply54);
  ReceiveAt(1000, kReply21);
  Send21();
  EXPECT_EQ(Response(), "Time up! 02 54 20 03 77 ");
}

TEST_F(TransactionTest, NestedRejectEndsTheOuterCallToo) {
  SendAt(15, kFrame54);
  ReceiveAt(40, "10");
  Send21();
  EXPECT_EQ(Response(), "&H10: Reject Response");
  EXPECT_LE(clock.Now(), 50);
  ExpectReadyAgain();
}

TEST_F(TransactionTest, NestedUnknownControlCharacterEndsTheOuterCallToo) {
  SendAt(15, kFrame54);
  ReceiveAt(40, "07");
  Send21();
  EXPECT_EQ(Response(), "Unknown Control Character code: 07");
  EXPECT_LE(clock.Now(), 50);
  ExpectReadyAgain();
}

TEST_F(TransactionTest, NestedTimeUpEndsTheOuterCallWithASecondTimeUp) {
  SendAt(15, kFrame54);
  Send21();
  EXPECT_EQ(Response(), "Time up! Time up! ");
  EXPECT_GE(clock.Now(), 5015);
  EXPECT_LE(clock.Now(), 5025);
  ExpectReadyAgain();
}

TEST_F(TransactionTest, NestedResendSendsTheNestedFrameAgain) {
  SendAt(15, kFrame54);
  ReceiveAt(30, "15");
  ReceiveAt(50, kReply54);
  Send21();
  EXPECT_THAT(port.Writes(), ElementsAre("02210322", "02540357", "02", "54", "03", "57"));
  EXPECT_EQ(Response(), "Time up! 02 54 20 03 77 ");
}

TEST_F(TransactionTest, ResendBehindTheNestedReplyIsNotRecognised) {
  SendAt(15, kFrame54);
  ReceiveAt(40, kReply54);
  ReceiveAt(100, "15");
  Send21();
  EXPECT_THAT(port.Writes(), ElementsAre("02210322", "02540357"));
  EXPECT_EQ(Response(), "Time up! 02 54 20 03 77 ");
}

TEST_F(TransactionTest, NestedCallForgetsWhatTheOuterOneHadReceived) {
  ReceiveAt(5, "060221");
  SendAt(15, kFrame54);
  ReceiveAt(40, kReply54);
  Send21();
  EXPECT_EQ(transaction.ReceiveBuffer(), kReply54);
}

TEST_F(TransactionTest, ThreeCallsOneInsideTheOther) {
  SendAt(15, kFrame54);
  SendAt(1000, kFrame5F, 3000);
  ReceiveAt(1020, kReply5F);
  Send21();
  // The innermost set the last limit, at 1000 ms; both outer calls end with it.
  EXPECT_EQ(Response(), "Time up! Time up! 02 5F 20 03 7C ");
  EXPECT_GE(clock.Now(), 4000);
  EXPECT_LE(clock.Now(), 4020);
  ExpectReadyAgain();
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, SecondNestedCallAfterTheFirstEnded) {
  SendAt(15, kFrame54);
  ReceiveAt(40, kReply54);
  SendAt(2000, kFrame5F, 3000);
  ReceiveAt(2020, kReply5F);
  Send21();
  EXPECT_EQ(Response(), "Time up! 02 5F 20 03 7C ");
  EXPECT_GE(clock.Now(), 5000);
  EXPECT_LE(clock.Now(), 5010);
}

TEST_F(TransactionTest, SameCommandNestedInItselfEndsBothWithOneReply) {
  // After the nested call's end its buttons are enabled, so 21h can be pressed inside 21h.
  SendAt(15, kFrame21, 20000);
  ReceiveAt(40, kReply21);
  Send21();
  EXPECT_EQ(Response(), kShown21);
  EXPECT_EQ(Hints(), "\r\nFirst Track: AB\r\nFirst Track: AB");
  EXPECT_LE(clock.Now(), 50);
}

TEST_F(TransactionTest, CommandRunInTheFirstYieldIsOverBeforeTheOuterOneShowsAnything) {
  SendAt(0, kFrame54);
  ReceiveAt(20, kReply54);
  ReceiveAt(60, kReply21);
  Send21();
  EXPECT_THAT(port.Writes(), ElementsAre("02540357", "02210322"));
  EXPECT_EQ(Response(), kShown21);
  EXPECT_EQ(display.Text(Field::TxtCommand), "21");
}

TEST_F(TransactionTest, CommandRunInTheSecondYieldLeavesItsReplyToTheOuterOne) {
  // The outer frame is shown but not yet written then; it goes out behind the nested one, while the
  // boxes keep showing the nested one.
  clock.InYield(2, [this] { transaction.SendCommand(kFrame54, 5000); });
  ReceiveAt(5, "10");
  Send21();
  EXPECT_THAT(port.Writes(), ElementsAre("02540357", "02210322"));
  EXPECT_EQ(display.Text(Field::TxtSyntax), "02 54 03 57 ");
  EXPECT_EQ(Response(), "&H10: Reject Response");
  EXPECT_EQ(clock.Now(), 20);
  ExpectReadyAgain();
}

// The nested call's time is up before the outer frame goes out: it goes out all the same, and the
// outer call ends with the same tick. It must not wait for a limit that nobody sets any more.
TEST_F(TransactionTest, NestedTimeUpInTheSecondYieldEndsTheOuterCallAsSoonAsItsFrameIsOut) {
  clock.InYield(2, [this] { transaction.SendCommand(kFrame54, 5000); });
  Send21();
  EXPECT_THAT(port.Writes(), ElementsAre("02540357", "02210322"));
  EXPECT_EQ(Response(), "Time up! Time up! ");
  EXPECT_GE(clock.Now(), 5000);
  EXPECT_LE(clock.Now(), 5010);
  ExpectReadyAgain();
  ExpectNextCommandWorks();
}

}  // namespace
}  // namespace vantrel::link
