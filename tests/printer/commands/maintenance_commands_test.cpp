// SPDX-License-Identifier: MIT

#include "tests/support/printer_bench.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

// Frames and replies are written by hand: STX, code, data, ETX and the exclusive-or of all after
// STX.
class MaintenanceCommands : public testing::Test {
 protected:
  MaintenanceCommands() { bench_.model.SetInstantWork(true); }

  const PrinterState& State() const { return bench_.model.State(); }

  support::PrinterBench bench_;
};

TEST_F(MaintenanceCommands, TellTheRomVersion) {
  // "VANTREL 1.01"
  EXPECT_EQ(bench_.Send("02 58 03 5B"),
            support::Chunks{"06 02 58 20 56 41 4E 54 52 45 4C 20 31 2E 30 31 03 13"});
}

TEST_F(MaintenanceCommands, TellTheStatusOfAPrinterAsItIsSwitchedOn) {
  // Outside, no card, no wait, no target; buzzer off, green, LED off; cleaning button enabled.
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 30 30 30 30 30 31 30 31 03 7A"});
}

TEST_F(MaintenanceCommands, TellTheStatusInEveryPlaceOfTheCard) {
  bench_.InsertCard();
  // Front, ordinary, no wait, target.
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 31 31 30 31 30 31 30 31 03 7B"});
  bench_.Send("02 21 03 22");
  // Inside.
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 32 31 30 31 30 31 30 31 03 78"});
  bench_.Send("02 51 03 52");
  // Rear.
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 33 31 30 31 30 31 30 31 03 79"});
  bench_.Send("02 50 31 03 62");
  // Waiting to be pulled out, and no target.
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 34 31 30 30 30 31 30 31 03 7F"});
  bench_.Send("02 21 03 22");
  // The same, and 21h waits for the removal.
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 34 31 32 30 30 31 30 31 03 7D"});
}

TEST_F(MaintenanceCommands, TellTheStatusWhileACommandWaitsForACard) {
  bench_.Send("02 21 03 22");
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 30 30 31 30 30 31 30 31 03 7B"});
  EXPECT_EQ(bench_.model.ActivityInWords(), "21h waits for a card");
}

TEST_F(MaintenanceCommands, TellACleaningCardFromAnOrdinaryOne) {
  bench_.model.SetCardKind(CardKind::kCleaning);
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 31 32 30 31 30 31 30 31 03 78"});
}

TEST_F(MaintenanceCommands, SetBuzzerLedColourAndLed) {
  // Buzzer one cycle, red, flashing.
  EXPECT_EQ(bench_.Send("02 5A 33 32 32 03 6A"), support::Chunks{"06 02 5A 20 03 79"});
  EXPECT_EQ(BuzzerInWords(State().indicators), "1 cycle");
  EXPECT_EQ(LedInWords(State().indicators), "flashing, red");
  // Blanks keep buzzer and LED; the colour changes.
  EXPECT_EQ(bench_.Send("02 5A 20 33 20 03 6A"), support::Chunks{"06 02 5A 20 03 79"});
  EXPECT_EQ(BuzzerInWords(State().indicators), "1 cycle");
  EXPECT_EQ(LedInWords(State().indicators), "flashing, orange");
  // The status string tells them in the digits of 5Ah.
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 30 30 30 30 33 33 32 31 03 79"});
}

TEST_F(MaintenanceCommands, TakeOnlyTheControlDataThatThereIs) {
  for (const char* frame : {
           "02 5A 03 59",              // none
           "02 5A 30 31 03 58",        // two bytes
           "02 5A 30 31 30 30 03 58",  // four bytes
           "02 5A 35 31 30 03 6D",     // buzzer 5
           "02 5A 30 30 30 03 69",     // colour 0
           "02 5A 30 34 30 03 6D",     // colour 4
           "02 5A 30 20 30 03 79",     // colour blank
           "02 5A 30 31 35 03 6D",     // LED 5
       }) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{"10"}) << frame;
  }
}

TEST_F(MaintenanceCommands, SetTheCleaningButton) {
  EXPECT_EQ(bench_.Send("02 5B 30 03 68"), support::Chunks{"06 02 5B 20 03 78"});
  EXPECT_FALSE(State().stored_cleaning_button);
  EXPECT_EQ(bench_.Send("02 5B 31 03 69"), support::Chunks{"06 02 5B 20 03 78"});
  EXPECT_TRUE(State().stored_cleaning_button);
  EXPECT_EQ(bench_.Send("02 5B 32 03 6A"), support::Chunks{"10"});
  EXPECT_EQ(bench_.Send("02 5B 03 58"), support::Chunks{"10"});
}

TEST_F(MaintenanceCommands, StoreASetting) {
  EXPECT_EQ(bench_.Send("02 91 32 31 03 91"), support::Chunks{"06 02 91 20 03 B2"});
  EXPECT_EQ(State().stored_setting, "21");
  EXPECT_EQ(bench_.Send("02 91 03 92"), support::Chunks{"10"});
  EXPECT_EQ(State().stored_setting, "21");
}

TEST_F(MaintenanceCommands, TellTheCounts) {
  EXPECT_EQ(bench_.Send("02 95 03 96"), support::Chunks{"06 02 95 20 30 03 86"});
  EXPECT_EQ(bench_.Send("02 96 03 95"), support::Chunks{"06 02 96 20 30 03 85"});
  bench_.InsertCard();
  for (int i = 0; i < 12; ++i) bench_.Send("02 21 03 22");
  // "12"
  EXPECT_EQ(bench_.Send("02 95 03 96"), support::Chunks{"06 02 95 20 31 32 03 B5"});
}

TEST_F(MaintenanceCommands, ResetIndicatorsButNotCountsAndSettings) {
  bench_.InsertCard();
  bench_.Send("02 21 03 22");
  bench_.Send("02 91 32 31 03 91");
  bench_.Send("02 5A 33 32 32 03 6A");
  EXPECT_EQ(bench_.Send("02 5F 03 5C"), support::Chunks{"06 02 5F 20 03 7C"});
  EXPECT_EQ(LedInWords(State().indicators), "off");
  EXPECT_EQ(BuzzerInWords(State().indicators), "off");
  EXPECT_EQ(State().transports, 1U);
  EXPECT_EQ(State().stored_setting, "21");
  EXPECT_EQ(State().place, CardPlace::kInside);
}

TEST_F(MaintenanceCommands, TakeNoParameterWhereThereIsNone) {
  for (const char* frame :
       {"02 58 31 03 6A", "02 59 31 03 6B", "02 5F 31 03 6D", "02 95 31 03 A7", "02 96 31 03 A4"}) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{"10"}) << frame;
  }
}

}  // namespace
}  // namespace vantrel::printer
