// SPDX-License-Identifier: MIT

#include "tests/support/printer_bench.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

// Frames and replies are written by hand: STX, code, data, ETX and the exclusive-or of all after
// STX.
class PowerSwitch : public testing::Test {
 protected:
  const PrinterState& State() const { return bench_.model.State(); }
  void Off() { bench_.model.SetPower(false, bench_.now); }
  void On() { bench_.model.SetPower(true, bench_.now); }

  support::PrinterBench bench_;
};

TEST_F(PowerSwitch, OffIsSilent) {
  Off();
  EXPECT_EQ(bench_.model.ActivityInWords(), "Switched off");
  EXPECT_EQ(bench_.Send("02 59 03 5A"), support::Chunks{});
  EXPECT_EQ(bench_.Send("02 59 03 5B"), support::Chunks{});
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  EXPECT_FALSE(bench_.model.NextAdvance());
  On();
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 30 30 30 30 30 31 30 31 03 7A"});
}

TEST_F(PowerSwitch, OffForgetsHalfAFrame) {
  bench_.Send("02 59");
  Off();
  On();
  EXPECT_EQ(bench_.Send("03 5A"), support::Chunks{});
}

TEST_F(PowerSwitch, OffEndsWorkAndWaitsWithoutAnAnswer) {
  bench_.Send("02 21 03 22");
  Off();
  bench_.InsertCard();
  On();
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  EXPECT_EQ(bench_.model.ActivityInWords(), "Idle");
  bench_.Send("02 51 03 52 02 21 03 22");
  Off();
  On();
  EXPECT_EQ(bench_.Pass(1min), support::Chunks{});
  EXPECT_EQ(State().place, CardPlace::kFront);
}

TEST_F(PowerSwitch, LeavesTheCardAndTheCounters) {
  bench_.model.SetInstantWork(true);
  bench_.model.SetTrack(0, "ABC");
  bench_.InsertCard();
  bench_.Send("02 46 30 03 75");
  bench_.Send("02 51 03 52");
  Off();
  EXPECT_EQ(State().place, CardPlace::kRear);
  On();
  EXPECT_EQ(State().place, CardPlace::kRear);
  EXPECT_EQ(State().card.tracks[0], "ABC");
  EXPECT_EQ(State().transports, 3U);
  EXPECT_EQ(State().prints, 1U);
}

TEST_F(PowerSwitch, EmptiesBuffersAndPresetsAndIndicators) {
  bench_.model.SetInstantWork(true);
  bench_.InsertCard();
  bench_.Send("02 21 03 22");
  bench_.Send("02 38 41 42 03 38");
  bench_.Send("02 5A 32 32 32 03 6B");
  Off();
  EXPECT_FALSE(State().indicators.LedIsLit(bench_.now));
  On();
  EXPECT_FALSE(State().buffers[0]);
  EXPECT_FALSE(State().presets[0]);
  EXPECT_EQ(LedInWords(State().indicators), "off");
}

TEST_F(PowerSwitch, KeepsHowThePrinterIsMade) {
  bench_.model.SetSeries(Series::kQl8);
  bench_.model.SetCaseParts(true);
  Off();
  On();
  EXPECT_EQ(State().series, Series::kQl8);
  EXPECT_TRUE(State().case_parts);
}

TEST_F(PowerSwitch, BringsTheStoredSettingsIntoForce) {
  bench_.Send("02 5B 30 03 68");
  bench_.Send("02 91 32 31 03 91");
  EXPECT_TRUE(State().cleaning_button);
  EXPECT_EQ(State().setting, "");
  // The last digit of the status string is the cleaning button.
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 30 30 30 30 30 31 30 31 03 7A"});
  bench_.Send("02 5F 03 5C");
  bench_.Pass(1s);
  EXPECT_TRUE(State().cleaning_button);
  Off();
  EXPECT_TRUE(State().cleaning_button);
  On();
  EXPECT_FALSE(State().cleaning_button);
  EXPECT_EQ(State().setting, "21");
  EXPECT_EQ(bench_.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 30 30 30 30 30 31 30 30 03 7B"});
}

TEST_F(PowerSwitch, SwitchedOnTwiceChangesNothing) {
  bench_.Send("02 21 03 22");
  On();
  EXPECT_EQ(bench_.model.ActivityInWords(), "21h waits for a card");
}

}  // namespace
}  // namespace vantrel::printer
