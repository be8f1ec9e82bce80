// SPDX-License-Identifier: MIT

#include "editors/control_settings.h"

#include <gtest/gtest.h>

namespace vantrel::editors {
namespace {

// The codes are the printer's: 20h keeps a setting, 30h to 34h are its choices.

TEST(ControlSettings, UnchangedKeepLedAndBuzzerAndSayGreen) {
  EXPECT_EQ(ControlSettings().ControlData(), "203120");
}

TEST(ControlSettings, FlashingRedWithOneCycleOfTheBuzzer) {
  ControlSettings settings;
  EXPECT_TRUE(settings.Choose(Control::kLedOperation, 3));
  EXPECT_TRUE(settings.Choose(Control::kLedColor, 2));
  EXPECT_TRUE(settings.Choose(Control::kBuzzer, 4));
  EXPECT_EQ(settings.ControlData(), "333232");
}

TEST(ControlSettings, RedIs32AndOrange33) {
  ControlSettings settings;
  settings.Choose(Control::kLedColor, 1);
  EXPECT_EQ(settings.ControlData(), "203320");
  settings.Choose(Control::kLedColor, 2);
  EXPECT_EQ(settings.ControlData(), "203220");
  settings.Choose(Control::kLedColor, 0);
  EXPECT_EQ(settings.ControlData(), "203120");
}

TEST(ControlSettings, EveryLedOperationAndBuzzerSetting) {
  const std::string codes[] = {"20", "30", "31", "32", "33", "34"};
  for (int i = 0; i < 6; ++i) {
    ControlSettings settings;
    settings.Choose(Control::kLedOperation, i);
    EXPECT_EQ(settings.ControlData(), "2031" + codes[i]) << "LED operation " << i;
    settings = {};
    settings.Choose(Control::kBuzzer, i);
    EXPECT_EQ(settings.ControlData(), codes[i] + "3120") << "buzzer " << i;
  }
}

TEST(ControlSettings, AnIndexOutsideItsGroupChangesNothing) {
  ControlSettings settings;
  settings.Choose(Control::kLedColor, 2);
  EXPECT_FALSE(settings.Choose(Control::kLedColor, 3));
  EXPECT_FALSE(settings.Choose(Control::kLedColor, -1));
  EXPECT_FALSE(settings.Choose(Control::kLedOperation, 6));
  EXPECT_FALSE(settings.Choose(Control::kBuzzer, 6));
  EXPECT_EQ(settings.ControlData(), "203220");
}

}  // namespace
}  // namespace vantrel::editors
