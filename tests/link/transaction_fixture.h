// SPDX-License-Identifier: MIT
#pragma once

#include "link/transaction.h"
#include "tests/support/fake_display.h"
#include "tests/support/fake_port.h"
#include "tests/support/manual_clock.h"

#include <gtest/gtest.h>

#include <string>

namespace vantrel::link {

// Frames and replies that many cases use. A block check is the exclusive-or of all bytes from the
// command code to ETX.
inline constexpr const char* kFrame21 = "02210322";
inline constexpr const char* kFrame54 = "02540357";
inline constexpr const char* kFrame5F = "025F035C";
// "AB" read from the first track: 21h ^ 20h ^ 41h ^ 42h ^ 03h = 01h.
inline constexpr const char* kReply21 = "0602212041420301";
inline constexpr const char* kShown21 = "02 21 20 41 42 03 01 ";
// 54h ^ 20h ^ 03h = 77h, 5Fh ^ 20h ^ 03h = 7Ch.
inline constexpr const char* kReply54 = "060254200377";
inline constexpr const char* kShown54 = "02 54 20 03 77 ";
inline constexpr const char* kReply5F = "06025F20037C";
inline constexpr const char* kShown5F = "02 5F 20 03 7C ";

// A transaction on doubles, its port open and its time at 0. The scripted times are those of the
// clock.
class TransactionTest : public testing::Test {
 protected:
  TransactionTest() { port.Open(); }

  void ReceiveAt(int time, const std::string& hex) {
    clock.At(time, [this, hex] { port.Receive(hex); });
  }
  // Somebody presses the button of 54h or 5Fh while another command waits.
  void SendAt(int time, const std::string& frame, int time_limit = 5000) {
    clock.At(time, [this, frame, time_limit] { transaction.SendCommand(frame, time_limit); });
  }
  // Sends 21h with the time limit that card waits have.
  void Send21() { transaction.SendCommand(kFrame21, 20000); }

  std::string Response() const { return display.Text(Field::TxtResponse); }
  std::string Hints() const { return display.Text(Field::LblHints); }

  // Both texts stand in the panels while a command waits; every ending empties them.
  void FillPanels() {
    display.SetText(Field::Panel1, "Reading");
    display.SetText(Field::Panel2, "20 seconds");
  }
  void ExpectReadyAgain() const {
    EXPECT_TRUE(display.ButtonsEnabled());
    EXPECT_EQ(display.Text(Field::Panel1), "");
    EXPECT_EQ(display.Text(Field::Panel2), "");
    EXPECT_FALSE(transaction.IsWaiting());
  }
  // The next command works as the first one did.
  void ExpectNextCommandWorks() {
    ReceiveAt(clock.Now() + 5, kReply21);
    Send21();
    EXPECT_EQ(Response(), kShown21);
    ExpectReadyAgain();
  }

  support::ManualClock clock;
  support::FakePort port;
  support::FakeDisplay display;
  Transaction transaction{port, display, clock, CodePage::kWestern};
};

}  // namespace vantrel::link
