// SPDX-License-Identifier: MIT

// What a command's button paints, and when.

#include "console/command_button.h"

#include "console/command_table.h"
#include "console/family_color.h"
#include "tests/support/wait_for.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QTest>
#include <QTextLayout>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vantrel::console {
namespace {

const QColor kText(0, 0, 0);
const QColor kGround(240, 240, 240);
// Half-way between the two.
const QColor kFaint(120, 120, 120);

class CommandButtonTest : public testing::Test {
 protected:
  CommandButtonTest() {
    QPalette palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
      palette.setColor(group, QPalette::ButtonText, kText);
      palette.setColor(group, QPalette::Button, kGround);
    }
    button_.setPalette(palette);
    button_.resize(160, 60);
    button_.show();
    QApplication::processEvents();
  }

  QImage Picture() { return button_.grab().toImage(); }
  // How light the darkest pixel of the caption is, 0 to 255.
  int DarkestOfCaption() {
    const QImage image = Picture();
    int darkest = 255;
    for (int y = 10; y < image.height() - 10; ++y)
      for (int x = 12; x < image.width() - 12; ++x)
        darkest = std::min(darkest, qGray(image.pixel(x, y)));
    return darkest;
  }
  QColor TintAt(int y) { return Picture().pixelColor(4, y); }

  CommandButton button_{Commands().front()};
};

TEST_F(CommandButtonTest, ACaptionThatLooksDisabledIsHalfWayBetweenTextAndButton) {
  EXPECT_LT(DarkestOfCaption(), 40);
  button_.LookEnabled(false);
  EXPECT_NEAR(DarkestOfCaption(), kFaint.red(), 20);
  button_.LookEnabled(true);
  EXPECT_LT(DarkestOfCaption(), 40);
}

TEST_F(CommandButtonTest, TheTintReachesFromTopToBottomAndFadesWithTheCaption) {
  const QColor tint = FamilyColor(FamilyOf(Commands().front().code), kGround);
  for (const int y : {3, 30, 56}) EXPECT_EQ(TintAt(y), tint) << y;
  EXPECT_NE(TintAt(1), tint);
  EXPECT_NE(TintAt(58), tint);
  button_.LookEnabled(false);
  EXPECT_NE(TintAt(30), tint);
}

// The caption as it should be painted, laid out here once more: in the middle, with so many bold
// characters at its end.
QImage Expected(const CommandButton& button, int bold) {
  QTextLayout layout(button.text(), button.font());
  QTextOption option(Qt::AlignHCenter);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QTextLayout::FormatRange code;
  code.start = static_cast<int>(button.text().size()) - bold;
  code.length = bold;
  code.format.setFontWeight(QFont::Bold);
  layout.setFormats({code});
  qreal height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(button.width() - 20);
    line.setPosition({0, height});
    height += line.height();
  }
  layout.endLayout();
  QImage image(button.size(), QImage::Format_RGB32);
  image.fill(kGround);
  QPainter painter(&image);
  painter.setPen(kText);
  layout.draw(&painter, {10, std::floor((button.height() - height) / 2)});
  return image;
}

// The pixels of the caption that are clearly darker in one picture than in the other. The button's
// ground is shaded, so that they are never quite the same.
int Differing(const QImage& one, const QImage& other) {
  constexpr int kClearly = 60;
  int count = 0;
  for (int y = 8; y < one.height() - 8; ++y)
    for (int x = 12; x < one.width() - 12; ++x)
      count += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > kClearly;
  return count;
}

TEST_F(CommandButtonTest, TheCodeAloneIsBold) {
  ASSERT_TRUE(button_.text().endsWith("21"));
  EXPECT_EQ(Differing(Picture(), Expected(button_, 2)), 0);
  EXPECT_GT(Differing(Picture(), Expected(button_, 1)), 8);
  EXPECT_GT(Differing(Picture(), Expected(button_, 3)), 8);
}

// As in the window, where it is a child; a window of its own is painted for other reasons, too.
TEST_F(CommandButtonTest, AnotherPaletteIsPaintedAtOnce) {
  class PaintCount : public QObject {
   public:
    int count = 0;

   protected:
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) ++count;
      return false;
    }
  };
  QWidget window;
  CommandButton button(Commands().front(), &window);
  button.resize(160, 60);
  window.resize(200, 100);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  PaintCount paints;
  button.installEventFilter(&paints);
  const auto settle = [] {
    for (int i = 0; i < 3; ++i) {
      QApplication::sendPostedEvents();
      QApplication::processEvents();
    }
  };
  settle();
  const int before = paints.count;
  settle();
  ASSERT_EQ(paints.count, before) << "it is painted without a reason";
  QPalette palette = button.palette();
  palette.setColor(QPalette::ButtonText, Qt::red);
  button.setPalette(palette);
  EXPECT_TRUE(support::WaitFor([&] { return paints.count > before; }));
}

TEST_F(CommandButtonTest, ALargerFontNeedsMoreHeight) {
  const int before = button_.heightForWidth(160);
  QFont font = button_.font();
  font.setPointSize(2 * font.pointSize());
  button_.setFont(font);
  EXPECT_GT(button_.heightForWidth(160), before);
}

TEST_F(CommandButtonTest, AHeldEnterPressesOnce) {
  int clicks = 0;
  QObject::connect(&button_, &QPushButton::clicked, &button_, [&clicks] { ++clicks; });
  for (const bool repeated : {false, true, true}) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", repeated);
    QApplication::sendEvent(&button_, &event);
  }
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace vantrel::console
