// SPDX-License-Identifier: MIT

// The console by keyboard alone.

#include "console/command_button.h"
#include "dialogs/focus_ring.h"
#include "tests/support/console_fixture.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QTest>

namespace vantrel::console {
namespace {

class ConsoleKeyboardTest : public support::ConsoleTest {
 protected:
  void LoadActive() {
    Load();
    form_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }
  std::string Focused() {
    QWidget* widget = form_->focusWidget();
    return widget != nullptr ? widget->objectName().toStdString() : "";
  }
  void Key(int key) { QTest::keyClick(form_->focusWidget(), static_cast<Qt::Key>(key)); }
  void Type(const char* text) {
    for (; *text != 0; ++text) QTest::keyClick(form_->focusWidget(), *text);
  }
};

TEST_F(ConsoleKeyboardTest, ArrowsGoWhereTheyPoint) {
  LoadActive();
  Button("Cmd21")->setFocus();
  Key(Qt::Key_Right);
  EXPECT_EQ(Focused(), "Cmd2B");
  Key(Qt::Key_Down);
  EXPECT_EQ(Focused(), "Cmd31");
  Key(Qt::Key_Left);
  EXPECT_EQ(Focused(), "Cmd22");
  Key(Qt::Key_Up);
  EXPECT_EQ(Focused(), "Cmd21");
  Key(Qt::Key_Up);
  Key(Qt::Key_Left);
  EXPECT_EQ(Focused(), "Cmd21");
  Button("Cmd96")->setFocus();
  Key(Qt::Key_Right);
  Key(Qt::Key_Down);
  EXPECT_EQ(Focused(), "Cmd96");
}

TEST_F(ConsoleKeyboardTest, ArrowsSkipWhatIsDisabled) {
  LoadActive();
  Button("Cmd22")->setEnabled(false);
  Button("Cmd21")->setFocus();
  Key(Qt::Key_Down);
  EXPECT_EQ(Focused(), "Cmd23");
}

TEST_F(ConsoleKeyboardTest, EnterPressesTheFocusedButton) {
  LoadActive();
  AnswerAll();
  Button("Cmd58")->setFocus();
  Key(Qt::Key_Return);
  EXPECT_EQ(Frames(), std::vector<std::string>{"0258035B"});
  Button("CmdExit")->setFocus();
  Key(Qt::Key_Enter);
  EXPECT_EQ(end_status_, 0);
}

TEST_F(ConsoleKeyboardTest, TwoTypedCharactersBringTheFocusToTheirCommand) {
  LoadActive();
  Type("5F");
  EXPECT_EQ(Focused(), "Cmd5F");
  Type("2a");
  EXPECT_EQ(Focused(), "Cmd2A");
  // There is no 15h; the 5 begins 52h.
  Type("152");
  EXPECT_EQ(Focused(), "cmd52");
  form_->findChild<QWidget*>("TxtSyntax")->setFocus();
  Type("96");
  EXPECT_EQ(Focused(), "Cmd96");
  EXPECT_TRUE(Frames().empty());
}

TEST_F(ConsoleKeyboardTest, F10ReachesTheMenu) {
  LoadActive();
  Key(Qt::Key_F10);
  ASSERT_NE(form_->menuBar()->activeAction(), nullptr);
  EXPECT_EQ(form_->menuBar()->activeAction()->objectName(), "Mnu_Setting");
  EXPECT_TRUE(form_->menuBar()->hasFocus());
}

TEST_F(ConsoleKeyboardTest, AltReachesTheMenu) {
  LoadActive();
  QTest::keyClick(form_->focusWidget(), Qt::Key_Alt);
  EXPECT_TRUE(form_->menuBar()->hasFocus());
}

TEST_F(ConsoleKeyboardTest, TabReachesTheHelp) {
  LoadActive();
  form_->findChild<QWidget*>("TxtResponse")->setFocus();
  bool reached = false;
  for (int i = 0; i < 4 && !reached; ++i) {
    Key(Qt::Key_Tab);
    reached = Focused() == "LblHints";
  }
  EXPECT_TRUE(reached);
}

// The pixels in which two pictures of a widget differ.
int Differing(const QImage& one, const QImage& other) {
  int count = 0;
  for (int y = 0; y < one.height(); ++y)
    for (int x = 0; x < one.width(); ++x) count += one.pixel(x, y) != other.pixel(x, y);
  return count;
}

TEST_F(ConsoleKeyboardTest, WhatHasTheFocusHasARingOfTwoPixels) {
  LoadActive();
  for (const char* name : {"Cmd21", "CmdExit", "TxtCommand", "TxtSyntax", "LblHints"}) {
    auto* widget = form_->findChild<QWidget*>(name);
    Button("Cmd96")->setFocus();
    const QImage without = widget->grab().toImage();
    widget->setFocus(Qt::TabFocusReason);
    const QImage with = widget->grab().toImage();
    // Both long sides.
    EXPECT_GE(Differing(without, with), 2 * 2 * (widget->width() - 8)) << name;
  }
}

TEST_F(ConsoleKeyboardTest, TheBoxThatOnlyKeepsAButtonsFocusShowsNoRing) {
  LoadActive();
  auto* response = form_->findChild<QWidget*>("TxtResponse");
  const QImage without = response->grab().toImage();
  response->setFocus(Qt::OtherFocusReason);
  // The text cursor alone.
  EXPECT_LT(Differing(without, response->grab().toImage()), 60);
  Button("Cmd96")->setFocus();
  response->setFocus(Qt::TabFocusReason);
  EXPECT_GT(Differing(without, response->grab().toImage()), 2 * 2 * (response->width() - 8));
}

TEST_F(ConsoleKeyboardTest, TheRingStandsOutInLightAndDarkPalettes) {
  QPalette light(QColor(0xEF, 0xEF, 0xEF));
  QPalette dark(QColor(0x35, 0x35, 0x35));
  // A highlight that is lost on the buttons is not taken.
  light.setColor(QPalette::Highlight, QColor(0xDD, 0xDD, 0xFF));
  dark.setColor(QPalette::Highlight, QColor(0x40, 0x40, 0x50));
  for (const QPalette& palette : {light, dark, QApplication::palette()})
    for (const auto role : {QPalette::Button, QPalette::Window})
      EXPECT_GE(dialogs::ContrastRatio(dialogs::FocusColor(palette), palette.color(role)), 3);
}

TEST(ContrastRatio, IsThatOfTheGuidelines) {
  EXPECT_NEAR(dialogs::ContrastRatio(Qt::black, Qt::white), 21, 0.01);
  // The grey that the guidelines' own example gives 4.5 to 1.
  EXPECT_NEAR(dialogs::ContrastRatio(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

}  // namespace
}  // namespace vantrel::console
