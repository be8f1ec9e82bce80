// SPDX-License-Identifier: MIT

#include "dialogs/digit_box.h"

#include "dialogs/sub_form.h"
#include "tests/support/recording_guard.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace vantrel::dialogs {
namespace {

TEST(DigitBox, TakesDigitsAlone) {
  DigitBox box("TxtX", "", DigitBox::Deleting::kAllowed);
  QTest::keyClicks(&box, "1a-2 .3");
  EXPECT_EQ(box.text(), "123");
  EXPECT_EQ(box.text(), "123");
}

TEST(DigitBox, BackspaceIsDiscarded) {
  DigitBox box("TxtX", "12", DigitBox::Deleting::kAllowed);
  QTest::keyClick(&box, Qt::Key_Backspace);
  QTest::keyClick(&box, Qt::Key_Backspace, Qt::ControlModifier);
  EXPECT_EQ(box.text(), "12");
}

TEST(DigitBox, DeleteWorksWhereItIsAllowed) {
  DigitBox box("TxtX", "12", DigitBox::Deleting::kAllowed);
  QTest::keyClick(&box, Qt::Key_Home);
  QTest::keyClick(&box, Qt::Key_Delete);
  EXPECT_EQ(box.text(), "2");
}

TEST(DigitBox, DeleteAndCutAreDiscardedWhereTheyAreNotAllowed) {
  DigitBox box("TxtX", "12", DigitBox::Deleting::kDiscarded);
  QTest::keyClick(&box, Qt::Key_Home);
  QTest::keyClick(&box, Qt::Key_Delete);
  box.selectAll();
  QTest::keyClick(&box, Qt::Key_X, Qt::ControlModifier);
  QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box.text(), "12");
}

TEST(DigitBox, UndoIsDiscardedWhereDeletingIsNotAllowed) {
  for (const auto deleting : {DigitBox::Deleting::kDiscarded, DigitBox::Deleting::kAllowed}) {
    DigitBox box("TxtX", "12", deleting);
    QTest::keyClicks(&box, "3");
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.text(), deleting == DigitBox::Deleting::kAllowed ? "12" : "123");
  }
}

TEST(DigitBox, TheContextMenuTakesNothingAwayWhereThatIsNotAllowed) {
  DigitBox box("TxtX", "12", DigitBox::Deleting::kDiscarded);
  box.show();
  QContextMenuEvent event(QContextMenuEvent::Mouse, {1, 1}, box.mapToGlobal(QPoint(1, 1)));
  QApplication::sendEvent(&box, &event);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  QStringList entries;
  for (const QAction* entry : menu->actions()) entries += entry->text();
  menu->close();
  EXPECT_EQ(entries, (QStringList{"Copy", "Paste", "Select All"}));
}

TEST(DigitBox, SelectingAndTypingOverReplaces) {
  DigitBox box("TxtX", "12", DigitBox::Deleting::kDiscarded);
  box.selectAll();
  QTest::keyClicks(&box, "7");
  EXPECT_EQ(box.text(), "7");
}

TEST(DigitBox, PastingTakesDigitsOnly) {
  DigitBox box("TxtX", "", DigitBox::Deleting::kDiscarded);
  QApplication::clipboard()->setText("a1b2 3");
  QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box.text(), "123");
}

TEST(DigitBox, EnterAndEscapeReachNothingElse) {
  support::RecordingGuard guard;
  SubForm form("FrmTest", guard);
  auto* box = new DigitBox("TxtX", "1", DigitBox::Deleting::kAllowed, &form);
  auto* button = new QPushButton(&form);
  int clicks = 0;
  QObject::connect(button, &QPushButton::clicked, button, [&] { ++clicks; });
  form.show();
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
    QTest::keyClick(box, key);
  EXPECT_EQ(clicks, 0);
  EXPECT_TRUE(form.isVisible());
}

TEST(DigitBox, ClickIsPressAndRelease) {
  DigitBox box("TxtX", "1", DigitBox::Deleting::kAllowed);
  box.show();
  int clicks = 0;
  QObject::connect(&box, &DigitBox::Click, &box, [&] { ++clicks; });
  QTest::mousePress(&box, Qt::LeftButton);
  EXPECT_EQ(clicks, 0);
  QTest::mouseRelease(&box, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  QTest::mouseClick(&box, Qt::RightButton);
  EXPECT_EQ(clicks, 1);
}

TEST(DigitBox, AReleaseOutsideTheBoxIsNoClick) {
  DigitBox box("TxtX", "1", DigitBox::Deleting::kAllowed);
  box.show();
  int clicks = 0;
  QObject::connect(&box, &DigitBox::Click, &box, [&] { ++clicks; });
  for (const QPoint& outside : {QPoint(-1, 3), QPoint(3, -1), QPoint(box.width(), 3)}) {
    QTest::mousePress(&box, Qt::LeftButton);
    QTest::mouseRelease(&box, Qt::LeftButton, {}, outside);
  }
  EXPECT_EQ(clicks, 0);
  // The last pixel is the box's own.
  QTest::mousePress(&box, Qt::LeftButton);
  QTest::mouseRelease(&box, Qt::LeftButton, {}, box.rect().bottomRight());
  EXPECT_EQ(clicks, 1);
}

TEST(DigitBox, CopyIsOfferedForASelectionAlone) {
  DigitBox box("TxtX", "12", DigitBox::Deleting::kDiscarded);
  box.show();
  const auto copy_is_offered = [&box] {
    QContextMenuEvent event(QContextMenuEvent::Mouse, {1, 1}, box.mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(&box, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    const bool offered = menu != nullptr && menu->actions().front()->isEnabled();
    if (menu != nullptr) menu->close();
    return offered;
  };
  box.deselect();
  EXPECT_FALSE(copy_is_offered());
  box.selectAll();
  EXPECT_TRUE(copy_is_offered());
}

TEST(DigitBox, DigitsPastedBetweenLeaveTheCursorBehindThem) {
  DigitBox box("TxtX", "1289", DigitBox::Deleting::kAllowed);
  box.setCursorPosition(2);
  QApplication::clipboard()->setText("a3b4");
  box.paste();
  EXPECT_EQ(box.text(), "123489");
  EXPECT_EQ(box.cursorPosition(), 4);
}

}  // namespace
}  // namespace vantrel::dialogs
