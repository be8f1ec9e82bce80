// SPDX-License-Identifier: MIT

#include "editors/dot_grid.h"

#include "editors/font_editor.h"
#include "editors/image_editor.h"
#include "tests/editors/editor_forms.h"
#include "tests/support/recording_guard.h"

#include <QAccessible>
#include <QApplication>
#include <QPaintEvent>

namespace vantrel::editors {
namespace {

// Adds up what a widget repaints.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& widget) : widget_(widget) {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
    widget_.installEventFilter(this);
  }
  QRegion Painted() {
    QApplication::processEvents();
    return painted_;
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted_ += static_cast<QPaintEvent*>(event)->region();
    return false;
  }

 private:
  QWidget& widget_;
  QRegion painted_;
};

class DotGridTest : public testing::Test {
 protected:
  DotGridTest() {
    common_.IsBlockMode = true;
    editor_.Form_Activate();
    editor_.CmdSet_Click("0", "0");
    grid_.resize(grid_.sizeHint());
  }
  void Show() { ShowActive(grid_); }
  void Size(const char* x, const char* y) {
    editor_.CmdSet_Click(x, y);
    grid_.Refresh();
  }
  QColor ColorAt(const QPoint& position) { return grid_.grab().toImage().pixelColor(position); }

  link::CommonVariables common_;
  ImageEditor editor_{common_};
  support::RecordingGuard guard_;
  DotGrid grid_{"Lbldot", editor_, 1, guard_};
};

TEST_F(DotGridTest, DotsAreNinePixelsOnAPitchOfEight) {
  const QRect first = grid_.DotRect(0);
  EXPECT_EQ(first.size(), QSize(9, 9));
  EXPECT_EQ(grid_.DotRect(1).topLeft() - first.topLeft(), QPoint(0, 8));
  EXPECT_EQ(grid_.DotRect(40).topLeft() - first.topLeft(), QPoint(8, 0));
  EXPECT_EQ(grid_.DotRect(1599).topLeft() - first.topLeft(), QPoint(312, 312));
  EXPECT_TRUE(grid_.rect().contains(grid_.RowSelectorRect(39)));
  EXPECT_TRUE(grid_.rect().contains(grid_.ColumnSelectorRect(39)));
}

TEST_F(DotGridTest, InALargerWindowTheDotsGrowByWholePixelsAsLargeAsFit) {
  for (const QSize larger : {QSize(500, 700), QSize(700, 500), QSize(1000, 1000)}) {
    grid_.resize(larger);
    const QRect first = grid_.DotRect(0);
    const int pitch = grid_.DotRect(1).top() - first.top();
    EXPECT_EQ(grid_.DotRect(40).left() - first.left(), pitch);
    EXPECT_EQ(first.size(), QSize(pitch + 1, pitch + 1));
    EXPECT_TRUE(grid_.rect().contains(grid_.RowSelectorRect(39)));
    EXPECT_TRUE(grid_.rect().contains(grid_.ColumnSelectorRect(39)));
    // 41 cells and the gap before the selectors do not fit at one pixel more.
    const int shorter = std::min(larger.width(), larger.height()) - first.left();
    EXPECT_GT(41 * (pitch + 1) + (pitch + 1) / 2 + 1, shorter);
    EXPECT_GT(pitch, 8);
  }
}

TEST_F(DotGridTest, FewerDotsAreLarger) {
  grid_.resize(600, 600);
  const int before = grid_.DotRect(0).width();
  Size("470", "37");  // 10 lines of 24 dots
  EXPECT_GT(grid_.DotRect(0).width(), before);
  EXPECT_TRUE(grid_.rect().contains(grid_.RowSelectorRect(23)));
  EXPECT_TRUE(grid_.rect().contains(grid_.ColumnSelectorRect(9)));
}

TEST_F(DotGridTest, AClickHitsTheDotUnderItInALargerWindow) {
  grid_.resize(900, 900);
  Show();
  ClickAt(grid_, grid_.DotRect(39 * 40 + 38));
  EXPECT_TRUE(IsBlack(grid_, 39 * 40 + 38));
  ClickAt(grid_, grid_.RowSelectorRect(2));
  EXPECT_TRUE(IsBlack(grid_, 5 * 40 + 2));
}

TEST_F(DotGridTest, ALargerGridIsPaintedAnew) {
  grid_.resize(grid_.sizeHint());
  Show();
  ClickAt(grid_, grid_.DotRect(0));
  grid_.resize(900, 900);
  EXPECT_EQ(ColorAt(grid_.DotRect(0).center()), QColor(Qt::black));
  EXPECT_NE(ColorAt(grid_.DotRect(1).center()), QColor(Qt::black));
}

TEST_F(DotGridTest, SelectorsStandRightOfTheirRowAndBelowTheirColumn) {
  EXPECT_EQ(grid_.RowSelectorRect(5).top(), grid_.DotRect(5).top());
  EXPECT_GT(grid_.RowSelectorRect(5).left(), grid_.DotRect(39 * 40 + 5).right());
  EXPECT_EQ(grid_.ColumnSelectorRect(5).left(), grid_.DotRect(5 * 40).left());
  EXPECT_GT(grid_.ColumnSelectorRect(5).top(), grid_.DotRect(5 * 40 + 39).bottom());
}

TEST_F(DotGridTest, WhatIsHiddenOrMissingHasAnEmptyRectangle) {
  Size("470", "37");  // 10 lines of 24 dots
  EXPECT_FALSE(grid_.DotRect(9 * 40 + 23).isEmpty());
  EXPECT_TRUE(grid_.DotRect(24).isEmpty());
  EXPECT_TRUE(grid_.DotRect(400).isEmpty());
  EXPECT_TRUE(grid_.RowSelectorRect(24).isEmpty());
  EXPECT_TRUE(grid_.ColumnSelectorRect(10).isEmpty());
  for (const int index : {-1, 1600}) {
    EXPECT_TRUE(grid_.DotRect(index).isEmpty());
    EXPECT_TRUE(grid_.RowSelectorRect(index).isEmpty());
    EXPECT_TRUE(grid_.ColumnSelectorRect(index).isEmpty());
  }
}

TEST_F(DotGridTest, AClickTogglesTheDotUnderIt) {
  for (const int dot : {0, 39, 41, 1560, 1599}) {
    ClickAt(grid_, grid_.DotRect(dot));
    EXPECT_TRUE(IsBlack(grid_, dot));
    ClickAt(grid_, grid_.DotRect(dot));
    EXPECT_FALSE(IsBlack(grid_, dot));
  }
}

TEST_F(DotGridTest, APressAndAReleaseOnDifferentDotsAreNoClick) {
  QTest::mousePress(&grid_, Qt::LeftButton, {}, grid_.DotRect(0).center());
  QTest::mouseRelease(&grid_, Qt::LeftButton, {}, grid_.DotRect(40).center());
  EXPECT_FALSE(IsBlack(grid_, 0));
  EXPECT_FALSE(IsBlack(grid_, 40));
  QTest::mousePress(&grid_, Qt::LeftButton, {}, grid_.RowSelectorRect(0).center());
  QTest::mouseRelease(&grid_, Qt::LeftButton, {}, grid_.RowSelectorRect(1).center());
  EXPECT_FALSE(IsBlack(grid_, 0));
  EXPECT_FALSE(IsBlack(grid_, 1));
}

TEST_F(DotGridTest, OtherMouseButtonsDoNothing) {
  QTest::mouseClick(&grid_, Qt::RightButton, {}, grid_.DotRect(0).center());
  QTest::mouseClick(&grid_, Qt::MiddleButton, {}, grid_.DotRect(0).center());
  EXPECT_FALSE(IsBlack(grid_, 0));
}

TEST_F(DotGridTest, ADoubleClickOnADotIsOneToggle) {
  DoubleClickAt(grid_, grid_.DotRect(41));
  EXPECT_TRUE(IsBlack(grid_, 41));
}

TEST_F(DotGridTest, TwoQuickClicksOnNeighboursAreTwoClicks) {
  // The window system calls the second press a double click: they are a few pixels apart.
  ClickAt(grid_, grid_.DotRect(0));
  QTest::mouseDClick(&grid_, Qt::LeftButton, {}, grid_.DotRect(1).center());
  QTest::mouseRelease(&grid_, Qt::LeftButton, {}, grid_.DotRect(1).center());
  EXPECT_TRUE(IsBlack(grid_, 0));
  EXPECT_TRUE(IsBlack(grid_, 1));
}

TEST_F(DotGridTest, ASelectorSelectsByAClickAndDeselectsByADoubleClick) {
  ClickAt(grid_, grid_.RowSelectorRect(3));
  for (int line = 0; line < 40; ++line) EXPECT_TRUE(IsBlack(grid_, line * 40 + 3));
  DoubleClickAt(grid_, grid_.RowSelectorRect(3));
  for (int i = 0; i < 1600; ++i) EXPECT_FALSE(IsBlack(grid_, i));
  ClickAt(grid_, grid_.ColumnSelectorRect(7));
  for (int dot = 0; dot < 40; ++dot) EXPECT_TRUE(IsBlack(grid_, 7 * 40 + dot));
  DoubleClickAt(grid_, grid_.ColumnSelectorRect(7));
  for (int i = 0; i < 1600; ++i) EXPECT_FALSE(IsBlack(grid_, i));
}

TEST_F(DotGridTest, ADoubleClickOnASelectorIsAClickFirst) {
  ClickAt(grid_, grid_.RowSelectorRect(3));
  EXPECT_TRUE(IsBlack(grid_, 3));
  QTest::mouseDClick(&grid_, Qt::LeftButton, {}, grid_.RowSelectorRect(3).center());
  EXPECT_FALSE(IsBlack(grid_, 3));
  QTest::mouseRelease(&grid_, Qt::LeftButton, {}, grid_.RowSelectorRect(3).center());
  EXPECT_FALSE(IsBlack(grid_, 3));
}

TEST_F(DotGridTest, AClickWhereSomethingIsHiddenDoesNothing) {
  const QPoint hidden = grid_.DotRect(1599).center();
  Size("479", "39");
  QTest::mouseClick(&grid_, Qt::LeftButton, {}, hidden);
  QTest::mouseClick(&grid_, Qt::LeftButton, {}, QPoint(1, 1));
  for (int i = 0; i < 1600; ++i) EXPECT_FALSE(IsBlack(grid_, i));
}

TEST_F(DotGridTest, TheKeyboardMovesAndSpaceTogglesAsAClickDoes) {
  Show();
  grid_.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&grid_, Qt::Key_Space);
  EXPECT_TRUE(IsBlack(grid_, 0));
  QTest::keyClick(&grid_, Qt::Key_Right);
  QTest::keyClick(&grid_, Qt::Key_Down);
  QTest::keyClick(&grid_, Qt::Key_Down);
  QTest::keyClick(&grid_, Qt::Key_Space);
  EXPECT_TRUE(IsBlack(grid_, 42));
  QTest::keyClick(&grid_, Qt::Key_Space);
  EXPECT_FALSE(IsBlack(grid_, 42));
  QTest::keyClick(&grid_, Qt::Key_Left);
  QTest::keyClick(&grid_, Qt::Key_Up);
  QTest::keyClick(&grid_, Qt::Key_Space);
  EXPECT_TRUE(IsBlack(grid_, 1));
}

TEST_F(DotGridTest, TheKeyboardStopsAtTheEdges) {
  Show();
  QTest::keyClick(&grid_, Qt::Key_Left);
  QTest::keyClick(&grid_, Qt::Key_Up);
  QTest::keyClick(&grid_, Qt::Key_Space);
  EXPECT_TRUE(IsBlack(grid_, 0));
}

TEST_F(DotGridTest, TheKeyboardReachesTheSelectors) {
  Size("478", "39");  // 2 lines of 8 dots
  Show();
  for (int i = 0; i < 5; ++i) QTest::keyClick(&grid_, Qt::Key_Right);
  EXPECT_EQ(grid_.Cursor(), (DotGrid::Target{DotGrid::Target::Kind::kRowSelector, 0}));
  QTest::keyClick(&grid_, Qt::Key_Space);
  EXPECT_TRUE(IsBlack(grid_, 0));
  EXPECT_TRUE(IsBlack(grid_, 40));
  QTest::keyClick(&grid_, Qt::Key_Delete);
  EXPECT_FALSE(IsBlack(grid_, 0));
  QTest::keyClick(&grid_, Qt::Key_Left);
  for (int i = 0; i < 12; ++i) QTest::keyClick(&grid_, Qt::Key_Down);
  EXPECT_EQ(grid_.Cursor(), (DotGrid::Target{DotGrid::Target::Kind::kColumnSelector, 1}));
  QTest::keyClick(&grid_, Qt::Key_Space);
  EXPECT_TRUE(IsBlack(grid_, 47));
}

TEST_F(DotGridTest, RepaintingOneDotRepaintsOneDot) {
  Show();
  ClickAt(grid_, grid_.DotRect(0));
  PaintWatch watch(grid_);
  ClickAt(grid_, grid_.DotRect(500));
  EXPECT_EQ(watch.Painted(), QRegion(grid_.DotRect(500)));
}

TEST_F(DotGridTest, SelectingARowRepaintsTheRow) {
  Show();
  ClickAt(grid_, grid_.DotRect(0));
  PaintWatch watch(grid_);
  ClickAt(grid_, grid_.RowSelectorRect(9));
  EXPECT_EQ(watch.Painted(), QRegion(grid_.DotRect(9) | grid_.DotRect(39 * 40 + 9)));
}

TEST_F(DotGridTest, ASetDotIsBlackAndAClearOneTheWindowColour) {
  EXPECT_EQ(ColorAt(grid_.DotRect(5).center()), grid_.palette().color(QPalette::Base));
  ClickAt(grid_, grid_.DotRect(5));
  EXPECT_EQ(ColorAt(grid_.DotRect(5).center()), QColor(Qt::black));
  const QColor row = ColorAt(grid_.RowSelectorRect(5).center());
  EXPECT_GT(row.green(), row.red() + 80);
  const QColor column = ColorAt(grid_.ColumnSelectorRect(5).center());
  EXPECT_GT(column.red(), column.green() + 80);
}

TEST_F(DotGridTest, ASetDotCanBeToldFromAClearOneInADarkTheme) {
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(18, 18, 18));
  dark.setColor(QPalette::Text, QColor(230, 230, 230));
  grid_.setPalette(dark);
  ClickAt(grid_, grid_.DotRect(5));
  const QPoint corner(2, 2);  // inside the dot, off its lines
  EXPECT_EQ(ColorAt(grid_.DotRect(5).center()), QColor(Qt::black));
  EXPECT_EQ(ColorAt(grid_.DotRect(6).topLeft() + corner), QColor(18, 18, 18));
  EXPECT_EQ(ColorAt(grid_.DotRect(5).topLeft() + QPoint(1, 1)), QColor(230, 230, 230));
  // Its contrast against black is 2; that of white, against which no ring is needed, 21.
  dark.setColor(QPalette::Base, QColor(60, 60, 60));
  grid_.setPalette(dark);
  EXPECT_EQ(ColorAt(grid_.DotRect(5).topLeft() + QPoint(1, 1)), QColor(230, 230, 230));
  dark.setColor(QPalette::Base, Qt::white);
  grid_.setPalette(dark);
  EXPECT_EQ(ColorAt(grid_.DotRect(5).topLeft() + QPoint(1, 1)), QColor(Qt::black));
}

TEST_F(DotGridTest, DividersStandEveryEightDots) {
  const QPoint middle(0, 4);
  const QColor line = ColorAt(grid_.DotRect(40).topLeft() + middle);
  const QColor divider = ColorAt(grid_.DotRect(8 * 40).topLeft() + middle);
  EXPECT_LT(divider.lightness(), line.lightness() - 60);
  EXPECT_EQ(ColorAt(grid_.DotRect(32 * 40).topLeft() + middle), divider);
  EXPECT_EQ(ColorAt(grid_.DotRect(31 * 40).topLeft() + middle), line);
  // A dot that is drawn anew beside a divider doesn't cut it.
  ClickAt(grid_, grid_.DotRect(7 * 40));
  EXPECT_EQ(ColorAt(grid_.DotRect(8 * 40).topLeft() + middle), divider);
}

TEST_F(DotGridTest, ADividerEndsWhatIsShown) {
  Size("470", "37");  // 10 lines of 24 dots
  const int pitch = grid_.DotRect(1).top() - grid_.DotRect(0).top();
  const QPoint middle(0, pitch / 2);
  const QColor divider = ColorAt(grid_.DotRect(8 * 40).topLeft() + middle);
  const QColor line = ColorAt(grid_.DotRect(9 * 40).topLeft() + middle);
  EXPECT_NE(divider, line);
  EXPECT_EQ(ColorAt(grid_.DotRect(9 * 40).topRight() + middle), divider);
  EXPECT_EQ(ColorAt(grid_.DotRect(23).bottomLeft() + QPoint(pitch / 2, 0)), divider);
  // And no thin line crosses it.
  EXPECT_EQ(ColorAt(grid_.DotRect(8 * 40 + 3).topLeft()), divider);
  EXPECT_EQ(ColorAt(grid_.DotRect(8 * 40 + 4).topLeft()), divider);
}

TEST_F(DotGridTest, DotsDoNotGrowBeyond48Pixels) {
  grid_.resize(4000, 4000);
  EXPECT_EQ(grid_.DotRect(1).top() - grid_.DotRect(0).top(), 48);
}

TEST_F(DotGridTest, TheCursorsFrameHasTheHighlightsColour) {
  QPalette palette = grid_.palette();
  palette.setColor(QPalette::Highlight, QColor(1, 2, 250));
  grid_.setPalette(palette);
  Show();
  grid_.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&grid_, Qt::Key_Down);
  const QRect dot = grid_.DotRect(1);
  for (const QPoint& corner : {dot.topLeft(), dot.topRight(), dot.bottomLeft(), dot.bottomRight()})
    EXPECT_EQ(ColorAt(corner), QColor(1, 2, 250));
  EXPECT_EQ(ColorAt(dot.center()), grid_.palette().color(QPalette::Base));
  EXPECT_NE(ColorAt(grid_.DotRect(3).topLeft()), QColor(1, 2, 250));
}

TEST_F(DotGridTest, ScreenReadersGetNamesStatesAndActions) {
  QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&grid_);
  ASSERT_NE(grid, nullptr);
  EXPECT_FALSE(grid->text(QAccessible::Name).isEmpty());
  ASSERT_EQ(grid->childCount(), 1680);
  QAccessibleInterface* dot = grid->child(43);
  EXPECT_EQ(dot->text(QAccessible::Name), "Column 1, row 3");
  EXPECT_EQ(dot->role(), QAccessible::CheckBox);
  EXPECT_FALSE(dot->state().checked);
  dot->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(dot->state().checked);
  EXPECT_TRUE(IsBlack(grid_, 43));
  EXPECT_EQ(dot->rect().size(), QSize(9, 9));
  EXPECT_EQ(grid->indexOfChild(dot), 43);
  EXPECT_EQ(dot->parent(), grid);

  EXPECT_EQ(grid->child(1604)->text(QAccessible::Name), "Select row 4");
  QAccessibleInterface* column = grid->child(1642);
  EXPECT_EQ(column->text(QAccessible::Name), "Select column 2");
  column->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(IsBlack(grid_, 80));
  column->actionInterface()->doAction("Clear");
  EXPECT_FALSE(IsBlack(grid_, 80));

  Size("479", "0");
  EXPECT_TRUE(dot->state().invisible);
  dot->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_FALSE(IsBlack(grid_, 43));
}

// The line at the right and the bottom edge is the last dot's own.
TEST_F(DotGridTest, AClickOnTheLastPixelOfTheLastDotIsAClickOnIt) {
  QTest::mouseClick(&grid_, Qt::LeftButton, {}, grid_.DotRect(1599).bottomRight());
  EXPECT_TRUE(IsBlack(grid_, 1599));
  QTest::mouseClick(&grid_, Qt::LeftButton, {}, grid_.DotRect(1599).bottomRight() + QPoint(1, 1));
  EXPECT_TRUE(IsBlack(grid_, 1599));
}

TEST_F(DotGridTest, AHeldSpaceTogglesOnce) {
  Show();
  grid_.setFocus(Qt::TabFocusReason);
  QTest::keyPress(&grid_, Qt::Key_Space);
  for (int i = 0; i < 3; ++i) {
    QKeyEvent again(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
    QApplication::sendEvent(&grid_, &again);
    EXPECT_TRUE(IsBlack(grid_, 0));
  }
}

TEST_F(DotGridTest, ScreenReadersHearWhatHasTheFocus) {
  Size("478", "39");  // 2 lines of 8 dots
  Show();
  QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&grid_);
  ASSERT_NE(grid, nullptr);
  const auto focused = [grid] {
    std::vector<int> numbers;
    for (int i = 0; i < grid->childCount(); ++i)
      if (grid->child(i)->state().focused) numbers.push_back(i);
    return numbers;
  };
  grid_.setFocus(Qt::TabFocusReason);
  EXPECT_EQ(focused(), std::vector<int>{0});
  QTest::keyClick(&grid_, Qt::Key_Right);
  EXPECT_EQ(focused(), std::vector<int>{40});
  EXPECT_EQ(grid->focusChild(), grid->child(40));
  // On to the selector of row 0.
  QTest::keyClick(&grid_, Qt::Key_Right);
  EXPECT_EQ(focused(), std::vector<int>{1600});
  EXPECT_EQ(grid->child(1600)->role(), QAccessible::Button);
  grid_.clearFocus();
  EXPECT_EQ(focused(), std::vector<int>{});
  EXPECT_EQ(grid->focusChild(), nullptr);
}

TEST(DotGridScale, ALargerGridKeepsTheProportion) {
  link::CommonVariables common;
  FontEditor editor(common);
  editor.Form_Activate();
  support::RecordingGuard guard;
  DotGrid grid("LblDot", editor, 2, guard);
  EXPECT_EQ(grid.DotRect(0).size(), QSize(18, 18));
  EXPECT_EQ(grid.DotRect(24).left() - grid.DotRect(0).left(), 16);
  for (const int dot : {0, 23, 24, 287}) {
    ClickAt(grid, grid.DotRect(dot));
    EXPECT_TRUE(IsBlack(grid, dot));
  }
}

}  // namespace
}  // namespace vantrel::editors
