// SPDX-License-Identifier: MIT

#include "tests/link/transaction_fixture.h"

#include <gmock/gmock.h>

namespace vantrel::link {
namespace {

using testing::ElementsAre;

TEST_F(TransactionTest, TakesItsStepsInOrder) {
  FillPanels();
  display.SetText(Field::LblHints, "Read the first track.");
  support::CallLog log;
  clock.LogTo(log);
  port.LogTo(log);
  display.LogTo(log);
  ReceiveAt(3, kReply21);
  Send21();
  EXPECT_THAT(log.Lines(), ElementsAre("Buttons off", "Stop TimeOut", "Yield",                 //
                                       "TxtCommand = ", "TxtSyntax = ", "TxtResponse = ",      //
                                       "DiscardInput",                                         //
                                       "TxtSyntax = 02 21 03 22 ", "TxtCommand = 21",          //
                                       "Start TimeOut 20000", "Yield",                         //
                                       "Output 02210322",                                      //
                                       "Start WaitTimer 10",                                   //
                                       "Input", "DiscardInput", "DiscardOutput",               //
                                       "WaitTimer ticks",                                      //
                                       "TxtResponse = ",                                       //
                                       "LblHints = Read the first track.\r\nFirst Track: AB",  //
                                       "TxtResponse = 02 21 20 41 42 03 01 ",                  //
                                       "Buttons on", "Panel1 = ", "Panel2 = "));
}

TEST_F(TransactionTest, ShowsFrameAndPanelsWhileItWaits) {
  FillPanels();
  display.SetText(Field::TxtResponse, "of an earlier command");
  clock.At(15, [this] {
    EXPECT_EQ(display.Text(Field::TxtCommand), "21");
    EXPECT_EQ(display.Text(Field::TxtSyntax), "02 21 03 22 ");
    EXPECT_EQ(Response(), "");
    EXPECT_EQ(display.Text(Field::Panel1), "Reading");
    EXPECT_EQ(display.Text(Field::Panel2), "20 seconds");
    EXPECT_FALSE(display.ButtonsEnabled());
    EXPECT_TRUE(transaction.IsWaiting());
    port.Receive(kReply21);
  });
  Send21();
  ExpectReadyAgain();
  EXPECT_THAT(display.ButtonHistory(), ElementsAre(false, true));
}

TEST_F(TransactionTest, LooksForAReplyEveryTenMilliseconds) {
  ReceiveAt(33, kReply21);
  Send21();
  EXPECT_EQ(clock.Now(), 40);
  EXPECT_EQ(clock.Ticks(Timer::WaitTimer), 4);
}

TEST_F(TransactionTest, DiscardsWhatTheLineHeldBeforeTheCommand) {
  port.Receive("10");
  port.ReceiveUnnoticed("0707");
  ReceiveAt(5, kReply21);
  Send21();
  EXPECT_EQ(Response(), kShown21);
}

TEST_F(TransactionTest, StoresByte05hAs05AndC3hAsC3) {
  port.Receive("05");
  EXPECT_EQ(transaction.ReceiveBuffer(), "05");
  port.Receive("C3");
  EXPECT_EQ(transaction.ReceiveBuffer(), "05C3");
}

TEST_F(TransactionTest, StoresEveryByteOfOneEventInItsOrder) {
  port.Receive("000A7FFF");
  EXPECT_EQ(transaction.ReceiveBuffer(), "000A7FFF");
}

TEST_F(TransactionTest, ReadsThenDiscardsInputAndOutputAtEachReceiveEvent) {
  support::CallLog log;
  port.LogTo(log);
  port.Receive("06");
  EXPECT_THAT(log.Lines(), ElementsAre("Input", "DiscardInput", "DiscardOutput"));
}

TEST_F(TransactionTest, DiscardsAtNotificationsOfOtherKindsToo) {
  support::CallLog log;
  port.LogTo(log);
  for (const int event_code : {1, 3, 7, 1004}) {
    log.Clear();
    port.ReceiveUnnoticed("060221");
    port.Notify(event_code);
    EXPECT_THAT(log.Lines(), ElementsAre("DiscardInput", "DiscardOutput")) << event_code;
  }
  EXPECT_EQ(transaction.ReceiveBuffer(), "");
  port.Receive("07");
  EXPECT_EQ(transaction.ReceiveBuffer(), "07");
}

TEST_F(TransactionTest, FrameOfSevenCharactersGivesFourBytesTheLastFromOneHexDigit) {
  ReceiveAt(5, "10");
  transaction.SendCommand("022103A", 1000);
  EXPECT_THAT(port.Writes(), ElementsAre("0221030A"));
  EXPECT_EQ(display.Text(Field::TxtSyntax), "02 21 03 A ");
}

TEST_F(TransactionTest, FrameOfFiveCharactersGivesTwoBytes) {
  ReceiveAt(5, "10");
  transaction.SendCommand("0221F", 1000);
  EXPECT_THAT(port.Writes(), ElementsAre("0221"));
  EXPECT_EQ(display.Text(Field::TxtSyntax), "02 21 F ");
}

TEST_F(TransactionTest, FrameWithoutACommandCodeLeavesTxtCommandEmpty) {
  ReceiveAt(5, "10");
  transaction.SendCommand("02", 1000);
  EXPECT_EQ(display.Text(Field::TxtCommand), "");
  EXPECT_EQ(display.Text(Field::TxtSyntax), "02 ");
  EXPECT_THAT(port.Writes(), ElementsAre("02"));
}

TEST_F(TransactionTest, BusyDisablesTheButtonsAndLeavesThePanels) {
  FillPanels();
  transaction.SetBusy(true);
  EXPECT_FALSE(display.ButtonsEnabled());
  EXPECT_EQ(display.Text(Field::Panel1), "Reading");
  EXPECT_EQ(display.Text(Field::Panel2), "20 seconds");
  transaction.SetBusy(false);
  ExpectReadyAgain();
}

TEST_F(TransactionTest, TimeLimitTimerLeftRunningAfterAGoodReplyFiresHarmlessly) {
  ReceiveAt(5, kReply21);
  Send21();
  ASSERT_TRUE(clock.IsRunning(Timer::TimeOut));
  EXPECT_EQ(clock.DueAt(Timer::TimeOut), 20000);
  clock.Advance(30000);
  EXPECT_EQ(clock.Ticks(Timer::TimeOut), 1);
  EXPECT_FALSE(clock.IsRunning(Timer::TimeOut));
  EXPECT_EQ(Response(), kShown21);
  // TimeUp is still set from that tick; the next command clears it.
  ExpectNextCommandWorks();
}

TEST_F(TransactionTest, TimeLimitTimerOfTheLastCommandDoesNotEndTheNextOne) {
  ReceiveAt(5, kReply21);
  Send21();
  clock.Advance(19995 - clock.Now());
  // The old limit would pass in the middle of this wait.
  ReceiveAt(20050, kReply54);
  transaction.SendCommand(kFrame54, 5000);
  EXPECT_EQ(Response(), kShown54);
  EXPECT_EQ(clock.Ticks(Timer::TimeOut), 0);
}

TEST_F(TransactionTest, TickOfTheOldTimeLimitWhileTheNextCommandBeginsIsForgotten) {
  // The tick is delivered in the first yield of the next command, between stop and start.
  clock.At(0, [this] { transaction.OnTick(Timer::TimeOut); });
  ReceiveAt(15, kReply21);
  Send21();
  EXPECT_EQ(Response(), kShown21);
}

}  // namespace
}  // namespace vantrel::link
