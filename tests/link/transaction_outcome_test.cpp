// SPDX-License-Identifier: MIT

#include "tests/link/transaction_fixture.h"

#include <gmock/gmock.h>

#include <vector>

namespace vantrel::link {
namespace {

using testing::ElementsAre;

TEST_F(TransactionTest, GoodReplyIsShownFromStxToBlockCheckWithATrailingBlank) {
  ReceiveAt(5, kReply21);
  Send21();
  EXPECT_EQ(Response(), "02 21 20 41 42 03 01 ");
  ExpectReadyAgain();
}

TEST_F(TransactionTest, GoodReplyIsDecodedBelowTheHints) {
  display.SetText(Field::LblHints, "Help");
  ReceiveAt(5, kReply21);
  Send21();
  EXPECT_EQ(Hints(), "Help\r\nFirst Track: AB");
}

TEST_F(TransactionTest, ReplyWithARomVersionGainsTheLabelAndTheVersionText) {
  display.SetText(Field::LblHints, "Help");
  // "V1.01"; 58h ^ 20h ^ 56h ^ 31h ^ 2Eh ^ 30h ^ 31h ^ 03h = 33h.
  ReceiveAt(5, "0602582056312E30310333");
  transaction.SendCommand("0258035B", 3000);
  EXPECT_EQ(Hints(), "Help\r\nROM Version: V1.01");
  EXPECT_EQ(Response(), "02 58 20 56 31 2E 30 31 03 33 ");
}

TEST_F(TransactionTest, ReplyWithNoCardGainsTheLabelAndTheStatus) {
  display.SetText(Field::LblHints, "Help");
  ReceiveAt(5, "060221220300");
  Send21();
  EXPECT_EQ(Hints(), "Help\r\nFirst Track: 22h: No targeted Card");
}

TEST_F(TransactionTest, ReplyTo40hGainsAnEmptyLabelAndTheNormalStatus) {
  display.SetText(Field::LblHints, "Help");
  ReceiveAt(5, "060240200363");
  transaction.SendCommand("02400343", 3000);
  EXPECT_EQ(Hints(), "Help\r\n20h: Normal Status");
}

TEST_F(TransactionTest, ReplyOutsideTheLabelTableGetsTheEmptyLabel) {
  ReceiveAt(5, kReply54);
  transaction.SendCommand(kFrame54, 5000);
  EXPECT_EQ(Hints(), "\r\n20h: Normal Status");
  EXPECT_EQ(Response(), kShown54);
}

TEST_F(TransactionTest, Status21hGivesUnknownResponse) {
  // 40h ^ 21h ^ 03h = 62h.
  ReceiveAt(5, "060240210362");
  transaction.SendCommand("02400343", 3000);
  EXPECT_EQ(Hints(), "\r\nUnknown response");
}

TEST_F(TransactionTest, ReplyWithACountShowsItsBytesAsCharacters) {
  // "0012"; 95h ^ 20h ^ 30h ^ 30h ^ 31h ^ 32h ^ 03h = B5h, and the same from 96h is B6h.
  ReceiveAt(5, "060295203030313203B5");
  transaction.SendCommand("02950396", 3000);
  EXPECT_EQ(Hints(), "\r\nTransport Count: 0012");
  ReceiveAt(25, "060296203030313203B6");
  transaction.SendCommand("02960395", 3000);
  EXPECT_EQ(Hints(), "\r\nTransport Count: 0012\r\nPrint Count: 0012");
}

TEST_F(TransactionTest, ReplyInSeveralEventsIsRecognisedOnlyWhenTheLastCompletesIt) {
  ReceiveAt(5, "06");
  ReceiveAt(25, "0221");
  ReceiveAt(45, "204142");
  ReceiveAt(65, "03");
  clock.At(84, [this] { EXPECT_EQ(Response(), ""); });
  ReceiveAt(85, "01");
  Send21();
  EXPECT_EQ(clock.Now(), 90);
  EXPECT_EQ(Response(), kShown21);
}

TEST_F(TransactionTest, NoReplyEndsInTimeUpAtTheTimeLimit) {
  FillPanels();
  Send21();
  EXPECT_EQ(Response(), "Time up! ");
  EXPECT_EQ(Hints(), "");
  EXPECT_GE(clock.Now(), 20000);
  EXPECT_LE(clock.Now(), 20010);
  ExpectReadyAgain();
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, TimeLimitOf60000Milliseconds) {
  transaction.SendCommand(kFrame21, 60000);
  EXPECT_EQ(Response(), "Time up! ");
  EXPECT_GE(clock.Now(), 60000);
  EXPECT_LE(clock.Now(), 60010);
}

TEST_F(TransactionTest, ReplyWithAWrongBlockCheckLeadsToTimeUp) {
  ReceiveAt(5, "0602212041420302");
  Send21();
  EXPECT_EQ(Response(), "Time up! ");
  EXPECT_EQ(Hints(), "");
  EXPECT_GE(clock.Now(), 20000);
}

TEST_F(TransactionTest, ReplyThatIsCorruptElsewhereLeadsToTimeUp) {
  // Bad STX; the reply of 22h; 04h for ETX.
  for (const char* reply : {"0604212041420301", "060222200301", "060221200405"}) {
    clock.After(5, [this, reply] { port.Receive(reply); });
    Send21();
    EXPECT_EQ(Response(), "Time up! ") << reply;
  }
}

TEST_F(TransactionTest, ReplyInTheLastPassOfTheTimeLimitCounts) {
  // The limit passes at 20 ms, the reply arrives at the same instant, the pass ends after both.
  ReceiveAt(20, kReply21);
  transaction.SendCommand(kFrame21, 20);
  EXPECT_EQ(Response(), kShown21);
}

TEST_F(TransactionTest, RejectEndsAtOnce) {
  FillPanels();
  ReceiveAt(5, "10");
  Send21();
  EXPECT_EQ(Response(), "&H10: Reject Response");
  EXPECT_EQ(Hints(), "");
  EXPECT_EQ(clock.Now(), 10);
  ExpectReadyAgain();
}

TEST_F(TransactionTest, UnknownControlCharacterEndsAtOnceAndIsShownWithAllBehindIt) {
  ReceiveAt(5, "0702FF");
  Send21();
  EXPECT_EQ(Response(), "Unknown Control Character code: 0702FF");
  EXPECT_EQ(Hints(), "");
  EXPECT_EQ(clock.Now(), 10);
  ExpectReadyAgain();
}

TEST_F(TransactionTest, ResendGoesOutOneByteAWrite) {
  ReceiveAt(5, "15");
  ReceiveAt(25, kReply21);
  Send21();
  EXPECT_THAT(port.Writes(), ElementsAre("02210322", "02", "21", "03", "22"));
}

TEST_F(TransactionTest, ResendOfAnOddFrameSendsItsLastDigitToo) {
  ReceiveAt(5, "15");
  ReceiveAt(25, "10");
  transaction.SendCommand("0221A", 1000);
  EXPECT_THAT(port.Writes(), ElementsAre("0221", "02", "21", "0A"));
}

TEST_F(TransactionTest, ResendIsShownUntilAGoodReplyClearsIt) {
  ReceiveAt(5, "15");
  clock.At(15, [this] { EXPECT_EQ(Response(), "&H15: Resend Request"); });
  ReceiveAt(25, kReply21);
  Send21();
  EXPECT_EQ(Response(), kShown21);
}

TEST_F(TransactionTest, ResendDoesNotRestartTheTimeLimit) {
  ReceiveAt(19000, "15");
  Send21();
  EXPECT_EQ(Response(), "Time up! &H15: Resend Request");
  EXPECT_GE(clock.Now(), 20000);
  EXPECT_LE(clock.Now(), 20010);
}

TEST_F(TransactionTest, ResendsWithoutLimit) {
  for (int i = 0; i < 1000; ++i) ReceiveAt(5 + 10 * i, "15");
  ReceiveAt(10005, kReply21);
  Send21();
  EXPECT_EQ(port.Writes().size(), 1U + 4U * 1000U);
  EXPECT_EQ(Response(), kShown21);
}

TEST_F(TransactionTest, ResendThenRejectShowsTheReject) {
  ReceiveAt(5, "15");
  ReceiveAt(25, "10");
  Send21();
  EXPECT_EQ(Response(), "&H10: Reject Response");
}

TEST_F(TransactionTest, WhatFollowsAResendRequestInOneEventIsLost) {
  ReceiveAt(5, "150602212041420301");
  Send21();
  EXPECT_EQ(Response(), "Time up! &H15: Resend Request");
}

TEST_F(TransactionTest, ReplyIsDecodedInTheCodePageOfTheTransaction) {
  Transaction japanese(port, display, clock, CodePage::kJapanese);
  // 21h ^ 20h ^ B1h ^ 03h = B3h; B1h is the half-width character U+FF71 in that page.
  ReceiveAt(5, "06022120B103B3");
  japanese.SendCommand(kFrame21, 20000);
  EXPECT_EQ(Hints(), "\r\nFirst Track: \uFF71");
}

}  // namespace
}  // namespace vantrel::link
