// SPDX-License-Identifier: MIT

// LED and buzzer as the window shows them.

#include "printer/window/card_slot_view.h"
#include "printer/window/indicator_sign.h"
#include "printer/window/state_bar.h"
#include "tests/support/printer_form_bench.h"
#include "tests/support/wait_for.h"

#include <QCheckBox>
#include <QColor>
#include <QImage>
#include <QLabel>
#include <QSignalSpy>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

constexpr auto kHalfCycle = 500ms;

class FrmPrinterIndicators : public support::PrinterFormBench {
 protected:
  bool SignIsOn(const char* name) { return Find<IndicatorSign>(name)->IsOnNow(); }
  // Whether the picture of the printer has a spot of this colour.
  bool SlotShows(const QColor& colour) {
    const QImage picture = Find<CardSlotView>("CardSlotView")->grab().toImage();
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixel(x, y) == colour.rgb()) return true;
      }
    }
    return false;
  }
};

TEST_F(FrmPrinterIndicators, AreInWords) {
  EXPECT_EQ(Label("LblLED"), "off");
  // Buzzer on, orange, three cycles.
  console_.Write("02 5A 31 33 34 03 6F");
  ASSERT_TRUE(support::WaitFor([&] { return Label("LblLED") == "3 cycles, orange"; }));
  EXPECT_EQ(Label("LblBuzzer"), "on");
  EXPECT_TRUE(SignIsOn("SignBuzzer"));
}

TEST_F(FrmPrinterIndicators, LetTheLedFlashAboveAndOnThePrinterAtOnce) {
  const QColor red = LedColour('2');
  EXPECT_FALSE(SlotShows(red));
  QSignalSpy turned_on(Find<IndicatorSign>("SignLED"), &IndicatorSign::TurnedOn);
  Pass(0ms);
  // Buzzer off, red, flashing.
  console_.Write("02 5A 30 32 32 03 69");
  ASSERT_TRUE(support::WaitFor([&] { return SignIsOn("SignLED"); }));
  EXPECT_TRUE(SlotShows(red));
  Pass(kHalfCycle);
  EXPECT_FALSE(SignIsOn("SignLED"));
  EXPECT_FALSE(SlotShows(red));
  EXPECT_EQ(Label("LblLED"), "flashing, red");
  Pass(kHalfCycle);
  EXPECT_TRUE(SignIsOn("SignLED"));
  EXPECT_TRUE(SlotShows(red));
  EXPECT_EQ(turned_on.count(), 2);
}

TEST_F(FrmPrinterIndicators, SoundOncePerCycleUntilTheyRunOut) {
  QSignalSpy turned_on(Find<IndicatorSign>("SignBuzzer"), &IndicatorSign::TurnedOn);
  Pass(0ms);
  // Buzzer one cycle, green, LED off.
  console_.Write("02 5A 33 31 30 03 6B");
  ASSERT_TRUE(support::WaitFor([&] { return SignIsOn("SignBuzzer"); }));
  EXPECT_EQ(Label("LblBuzzer"), "1 cycle");
  Pass(2 * kHalfCycle);
  EXPECT_EQ(Label("LblBuzzer"), "off");
  EXPECT_FALSE(SignIsOn("SignBuzzer"));
  EXPECT_EQ(turned_on.count(), 1);
}

TEST_F(FrmPrinterIndicators, AreSilentWhileTheyAreMuted) {
  QSignalSpy beeped(form_.findChild<StateBar*>(), &StateBar::Beeped);
  Pass(0ms);
  // Buzzer buzzing, green, LED off.
  console_.Write("02 5A 32 31 30 03 6A");
  ASSERT_TRUE(QTest::qWaitFor([&] { return SignIsOn("SignBuzzer"); }));
  EXPECT_EQ(beeped.count(), 1);
  Find<QCheckBox>("ChkMute")->setChecked(true);
  for (int i = 0; i < 2; ++i) {
    Pass(kHalfCycle);
    EXPECT_FALSE(SignIsOn("SignBuzzer"));
    Pass(kHalfCycle);
    EXPECT_TRUE(SignIsOn("SignBuzzer"));
  }
  EXPECT_EQ(beeped.count(), 1);
  Find<QCheckBox>("ChkMute")->setChecked(false);
  Pass(kHalfCycle);
  Pass(kHalfCycle);
  EXPECT_EQ(beeped.count(), 2);
}

TEST_F(FrmPrinterIndicators, GoDarkWithThePower) {
  // Buzzer on, green, on.
  console_.Write("02 5A 31 31 31 03 68");
  ASSERT_TRUE(support::WaitFor([&] { return SignIsOn("SignLED") && SignIsOn("SignBuzzer"); }));
  server_.SetPower(false);
  EXPECT_FALSE(SignIsOn("SignLED"));
  EXPECT_FALSE(SignIsOn("SignBuzzer"));
}

TEST(LedColour, IsGreenRedAndOrange) {
  const QColor green = LedColour('1');
  EXPECT_GT(green.green(), green.red() + 80);
  EXPECT_GT(green.green(), green.blue() + 80);
  const QColor red = LedColour('2');
  EXPECT_GT(red.red(), red.green() + 120);
  const QColor orange = LedColour('3');
  EXPECT_GT(orange.red(), orange.green() + 60);
  EXPECT_GT(orange.green(), orange.blue() + 120);
}

TEST(CardSlotView, ShowsTheCardFurtherBackFromPlaceToPlace) {
  CardSlotView slot;
  slot.resize(520, 190);
  int before = -1;
  for (const CardPlace place : {CardPlace::kOutside, CardPlace::kExit, CardPlace::kFront,
                                CardPlace::kInside, CardPlace::kRear}) {
    slot.Show(place, CardKind::kOrdinary);
    const QImage picture = slot.grab().toImage();
    // The card's dark stripe.
    int left = 0;
    while (left < picture.width() && picture.pixelColor(left, 66) != QColor(0x22, 0x22, 0x26))
      ++left;
    EXPECT_GT(left, before);
    EXPECT_LT(left, picture.width());
    before = left;
  }
}

TEST(IndicatorSign, TellsThatItTurnsOnAndNotThatItChangesItsColour) {
  IndicatorSign sign(IndicatorSign::Shape::kLamp);
  QSignalSpy turned_on(&sign, &IndicatorSign::TurnedOn);
  sign.Show(true, Qt::red);
  sign.Show(true, Qt::red);
  sign.Show(true, Qt::green);
  EXPECT_EQ(turned_on.count(), 1);
  sign.Show(false, Qt::green);
  EXPECT_FALSE(sign.IsOnNow());
  sign.Show(true, Qt::green);
  EXPECT_EQ(turned_on.count(), 2);
}

}  // namespace
}  // namespace vantrel::printer
