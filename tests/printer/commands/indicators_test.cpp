// SPDX-License-Identifier: MIT

#include "printer/commands/indicators.h"

#include "tests/support/printer_bench.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

TEST(Indicators, AreOffAtTheStart) {
  const Indicators indicators;
  EXPECT_FALSE(indicators.LedIsLit(0ms));
  EXPECT_FALSE(indicators.BuzzerSounds(0ms));
  EXPECT_FALSE(indicators.NextChange(0ms));
}

TEST(Indicators, StayOnWithoutARhythm) {
  Indicators indicators;
  indicators.Set({'1', '1', '1'}, 70ms);
  EXPECT_TRUE(indicators.LedIsLit(70ms));
  EXPECT_TRUE(indicators.BuzzerSounds(1h));
  EXPECT_FALSE(indicators.NextChange(70ms));
}

TEST(Indicators, FlashHalfASecondOnAndHalfASecondOff) {
  Indicators indicators;
  indicators.Set({'2', '1', '2'}, 100ms);
  for (const auto& [moment, on] :
       {std::pair(100ms, true), std::pair(599ms, true), std::pair(600ms, false),
        std::pair(1099ms, false), std::pair(1100ms, true), std::pair(100100ms, true)}) {
    EXPECT_EQ(indicators.LedIsLit(moment), on) << moment.count();
    EXPECT_EQ(indicators.BuzzerSounds(moment), on) << moment.count();
  }
  EXPECT_EQ(indicators.NextChange(100ms), protocol::Moment(600ms));
  EXPECT_EQ(indicators.NextChange(600ms), protocol::Moment(1100ms));
  EXPECT_EQ(indicators.NextChange(1099ms), protocol::Moment(1100ms));
}

TEST(Indicators, EndAfterOneCycle) {
  Indicators indicators;
  indicators.Set({'3', '3', '3'}, 0ms);
  EXPECT_TRUE(indicators.LedIsLit(499ms));
  EXPECT_FALSE(indicators.LedIsLit(500ms));
  EXPECT_FALSE(indicators.LedIsLit(1000ms));
  indicators.Advance(999ms);
  EXPECT_EQ(indicators.led_operation, '3');
  indicators.Advance(1000ms);
  EXPECT_EQ(indicators.led_operation, '0');
  EXPECT_EQ(indicators.buzzer, '0');
  EXPECT_FALSE(indicators.NextChange(1000ms));
}

TEST(Indicators, EndAfterThreeCycles) {
  Indicators indicators;
  indicators.Set({'4', '1', '4'}, 0ms);
  EXPECT_TRUE(indicators.BuzzerSounds(2499ms));
  EXPECT_FALSE(indicators.BuzzerSounds(2500ms));
  EXPECT_FALSE(indicators.BuzzerSounds(3000ms));
  indicators.Advance(2999ms);
  EXPECT_EQ(indicators.buzzer, '4');
  indicators.Advance(3000ms);
  EXPECT_EQ(indicators.buzzer, '0');
}

TEST(Indicators, KeepARunningCycleOnABlank) {
  Indicators indicators;
  indicators.Set({'4', '1', '3'}, 0ms);
  indicators.Set({' ', '2', ' '}, 700ms);
  EXPECT_EQ(indicators.led_colour, '2');
  EXPECT_FALSE(indicators.LedIsLit(700ms));
  EXPECT_EQ(indicators.NextChange(700ms), protocol::Moment(1000ms));
}

TEST(Indicators, BeginTheirCyclesAgainWhenTheyAreSetAgain) {
  Indicators indicators;
  indicators.Set({'0', '1', '3'}, 0ms);
  indicators.Set({'0', '1', '3'}, 700ms);
  EXPECT_TRUE(indicators.LedIsLit(1199ms));
  EXPECT_FALSE(indicators.LedIsLit(1200ms));
}

TEST(PrinterIndicators, LetsItsIndicatorsRunOut) {
  support::PrinterBench bench;
  // Buzzer three cycles, red, LED one cycle.
  bench.Send("02 5A 34 32 33 03 6C");
  const auto lit = [&bench] { return bench.model.State().indicators.LedIsLit(bench.now); };
  const auto sounds = [&bench] { return bench.model.State().indicators.BuzzerSounds(bench.now); };
  EXPECT_TRUE(lit() && sounds());
  EXPECT_EQ(bench.model.NextAdvance(), bench.now + 500ms);
  bench.Pass(600ms);
  EXPECT_TRUE(!lit() && !sounds());
  bench.Pass(500ms);
  EXPECT_TRUE(!lit() && sounds());
  // The status string tells that the LED is off: 00000 4 2 0 1.
  EXPECT_EQ(bench.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 30 30 30 30 34 32 30 31 03 7D"});
  bench.Pass(2s);
  EXPECT_FALSE(sounds());
  EXPECT_FALSE(bench.model.NextAdvance());
  EXPECT_EQ(bench.Send("02 59 03 5A"),
            support::Chunks{"06 02 59 20 30 30 30 30 30 32 30 31 03 79"});
}

TEST(PrinterIndicators, TellsOfEachFlash) {
  support::PrinterBench bench;
  bench.Send("02 5A 30 32 32 03 69");
  int changes = 0;
  bench.model.OnChange([&changes] { ++changes; });
  bench.Pass(2s);
  EXPECT_EQ(changes, 4);
}

}  // namespace
}  // namespace vantrel::printer
