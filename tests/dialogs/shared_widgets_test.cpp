// SPDX-License-Identifier: MIT

// The widgets and the guard that every window shares.

#include "dialogs/focus_ring.h"
#include "dialogs/named_widgets.h"
#include "dialogs/panel_bar.h"
#include "dialogs/placement.h"
#include "dialogs/telling_guard.h"
#include "tests/support/scripted_dialogs.h"

#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel::dialogs {
namespace {

TEST(FocusRing, LiesInsideTheWidgetWithItsWholeWidth) {
  QWidget widget;
  QPalette palette(QColor(240, 240, 240));
  palette.setColor(QPalette::Highlight, Qt::red);
  palette.setColor(QPalette::WindowText, Qt::red);
  widget.setPalette(palette);
  widget.resize(40, 30);
  QImage image(widget.size(), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PaintFocusRing(painter, widget);
  painter.end();
  const QRect inside = image.rect().adjusted(2, 2, -2, -2);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      EXPECT_EQ(image.pixelColor(x, y), QColor(inside.contains(x, y) ? Qt::white : Qt::red))
          << x << " " << y;
}

TEST(MakeLabel, ShowsSignsOfMarkupAsTheyAre) {
  const std::unique_ptr<QLabel> label(MakeLabel("LblX", "<b>1 & 2</b>"));
  EXPECT_EQ(label->objectName(), "LblX");
  EXPECT_EQ(label->textFormat(), Qt::PlainText);
  EXPECT_EQ(label->text(), "<b>1 & 2</b>");
}

TEST(PanelBar, TellsAScreenReaderWhichPanelItIsAndItsText) {
  PanelBar bar("StatusBar");
  const auto name = [&bar](const char* panel) {
    return bar.findChild<QLabel*>(panel)->accessibleName();
  };
  EXPECT_EQ(name("StatusBar_1"), "Panel 1");
  EXPECT_EQ(name("StatusBar_2"), "Panel 2");
  bar.SetText(2, "Max 13 characters");
  EXPECT_EQ(name("StatusBar_1"), "Panel 1");
  EXPECT_EQ(name("StatusBar_2"), "Panel 2: Max 13 characters");
  bar.SetText(2, "");
  EXPECT_EQ(name("StatusBar_2"), "Panel 2");
}

TEST(PlaceOver, CountsTheFrameThatTheWindowWillHave) {
  QWidget other;
  other.resize(200, 100);
  QWidget window;
  window.resize(100, 50);
  // 20 pixels of frame in all across, 40 down: the window will have 120 by 90.
  const QPoint corner = other.screen()->availableGeometry().topLeft() + QPoint(50, 60);
  PlaceOver(window, other, QRect(corner, QSize(220, 140)));
  EXPECT_EQ(window.pos(), corner + QPoint(50, 25));
}

TEST(TellingGuard, TellsAFaultInACriticalBoxAndGoesOn) {
  support::ScriptedDialogs dialogs;
  TellingGuard guard(dialogs);
  dialogs.Answers(Answer::kOk);
  guard.Run([] { throw std::logic_error("No memory."); });
  EXPECT_EQ(dialogs.Last().title, "Program Error");
  EXPECT_EQ(dialogs.Last().prompt,
            "No memory.\r\n\r\nThis is a fault of the program. Save what you need, then start it "
            "again.");
  EXPECT_EQ(dialogs.Last().icon, Icon::kCritical);
  EXPECT_EQ(dialogs.Last().buttons, Buttons::kOk);
  dialogs.Answers(Answer::kOk);
  guard.Run([] { throw 1; });
  EXPECT_TRUE(dialogs.Last().prompt.starts_with("Unknown error.\r\n"));
  int ran = 0;
  guard.Run([&ran] { ++ran; });
  EXPECT_EQ(ran, 1);
  EXPECT_EQ(dialogs.All().size(), 2U);
}

}  // namespace
}  // namespace vantrel::dialogs
