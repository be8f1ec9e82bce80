// SPDX-License-Identifier: MIT

#include "printdata/frm_print_buffer.h"
#include "tests/printdata/form_driver.h"
#include "tests/support/recording_guard.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/wait_for.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QMenu>
#include <QRadioButton>

namespace vantrel::printdata {
namespace {

constexpr const char* kXVertical =
    "X Coordinate should be within 0 - 319 if the printing direction is vertical";

// A user of the form of 41h, or of 42h, who leaves its fields.
class LeavingAField : public testing::Test {
 protected:
  explicit LeavingAField(bool print_data = true)
      : common(Variables(print_data)), form(common, dialogs, guard), user(form) {}

  static link::CommonVariables Variables(bool print_data) {
    link::CommonVariables variables;
    variables.IsPrintData = print_data;
    return variables;
  }

  std::size_t Boxes() const { return dialogs.All().size(); }
  // A message box that the user answers; the field has got its focus back by then.
  void ExpectBox(const char* field) {
    dialogs.Answers(dialogs::Answer::kOk, [this, field] {
      EXPECT_TRUE(user.HasFocus(field));
      EXPECT_TRUE(form.isVisible());
    });
  }

  link::CommonVariables common;
  support::ScriptedDialogs dialogs;
  support::RecordingGuard guard;
  FrmPrintBuffer form;
  FormDriver user;
};

class LeavingTheImageNo : public LeavingAField {
 protected:
  LeavingTheImageNo() : LeavingAField(false) {}
};

TEST_F(LeavingAField, ByTabShowsTheBoxOnTheNextTurnOnce) {
  user.Type("TxtXCoordinate", "320");
  QTest::keyClick(user.Find("TxtXCoordinate"), Qt::Key_Tab);
  EXPECT_EQ(Boxes(), 0U);
  EXPECT_TRUE(user.HasFocus("TxtYCoordinate"));
  ExpectBox("TxtXCoordinate");
  FormDriver::Turn();
  ASSERT_EQ(Boxes(), 1U);
  EXPECT_EQ(dialogs.Last().title, "Invalid X coordinate");
  EXPECT_EQ(dialogs.Last().prompt, kXVertical);
  EXPECT_EQ(dialogs.Last().buttons, dialogs::Buttons::kOk);
  EXPECT_TRUE(user.HasFocus("TxtXCoordinate"));
  EXPECT_EQ(user.Text("TxtXCoordinate"), "320");
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 1U);
}

TEST_F(LeavingAField, EachLeavingShowsTheBoxAgain) {
  user.Type("TxtYCoordinate", "480");
  for (std::size_t i = 1; i <= 3; ++i) {
    ExpectBox("TxtYCoordinate");
    QTest::keyClick(user.Find("TxtYCoordinate"), Qt::Key_Backtab, Qt::ShiftModifier);
    FormDriver::Turn();
    EXPECT_EQ(Boxes(), i);
  }
  EXPECT_EQ(dialogs.Last().title, "Invalid Y coordinate");
  EXPECT_EQ(dialogs.Last().prompt,
            "Y Coordinate should be within 0 - 479 if the printing direction is vertical");
}

TEST_F(LeavingAField, InRangeOrEmptyShowsNoBox) {
  for (const char* text : {"319", "0", "", "00319"}) {
    user.Type("TxtXCoordinate", text);
    user.Click("TxtPrint");
    EXPECT_TRUE(user.HasFocus("TxtPrint"));
  }
  EXPECT_EQ(Boxes(), 0U);
}

TEST_F(LeavingAField, AnEmptyFieldIsSentAsTwoCommasInARow) {
  user.Type("TxtXCoordinate", "");
  dialogs.Types("0");
  user.Click("CmdEscFf");
  EXPECT_EQ(common.DataString,
            "2,,47,Test Print\x1B"
            "F0Test Print");
}

TEST_F(LeavingAField, TwoWrongFieldsDoNotChaseEachOther) {
  user.Click("TxtXCoordinate");
  user.Find<QLineEdit>("TxtXCoordinate")->setText("999");
  user.Find<QLineEdit>("TxtYCoordinate")->setText("999");
  // From one wrong field into the other: the focus that comes back leaves the other untold.
  ExpectBox("TxtXCoordinate");
  user.Click("TxtYCoordinate");
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 1U);
  EXPECT_TRUE(user.HasFocus("TxtXCoordinate"));
  // Through both before the event loop turns: the first one takes the focus back, and that is all.
  // The focus that the program moves counts as leaving.
  user.Find("TxtYCoordinate")->setFocus();
  user.Find("TxtPrint")->setFocus();
  ExpectBox("TxtXCoordinate");
  FormDriver::Turn();
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 2U);
  EXPECT_TRUE(user.HasFocus("TxtXCoordinate"));
}

TEST_F(LeavingAField, ARightOneLeftFirstDoesNotHideAWrongOne) {
  user.Type("TxtYCoordinate", "999");
  user.Find("TxtXCoordinate")->setFocus(Qt::ActiveWindowFocusReason);
  ExpectBox("TxtYCoordinate");
  user.Find("TxtYCoordinate")->setFocus();
  user.Find("TxtPrint")->setFocus();
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 1U);
}

TEST_F(LeavingAField, ByAClickOnAnEscButtonShowsTheBoxAndThenPressesTheButton) {
  user.Type("TxtXCoordinate", "320");
  ExpectBox("TxtXCoordinate");
  dialogs.Types("1");
  user.Click("CmdEscFf");
  ASSERT_EQ(Boxes(), 2U);
  EXPECT_EQ(dialogs.All()[0].prompt, kXVertical);
  EXPECT_TRUE(dialogs.All()[1].is_input);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(common.DataString,
            "2,320,47,Test Print\x1B"
            "F1Test Print");
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 2U);
}

TEST_F(LeavingAField, ByAClickOnADirectionJudgesByTheOldDirectionAndThenSelectsTheNewOne) {
  user.Type("TxtXCoordinate", "320");
  dialogs.Answers(dialogs::Answer::kOk, [this] {
    EXPECT_FALSE(user.Find<QRadioButton>("Opt_direction_3")->isChecked());
    EXPECT_EQ(common.PrintDirection, "2");
  });
  user.Click("Opt_direction_3");
  EXPECT_EQ(Boxes(), 1U);
  EXPECT_EQ(dialogs.Last().prompt, kXVertical);
  EXPECT_TRUE(user.Find<QRadioButton>("Opt_direction_3")->isChecked());
  EXPECT_EQ(common.PrintDirection, "3");
  EXPECT_TRUE(user.IsVisible("FraDescription_1"));
}

TEST_F(LeavingAField, AChangedDirectionDoesNotCheckAgain) {
  user.Click("Opt_direction_1");
  user.Type("TxtXCoordinate", "479");
  user.Click("TxtPrint");
  user.Click("Opt_direction_0");
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 0U);
  // The next leaving does.
  user.Click("TxtXCoordinate");
  ExpectBox("TxtXCoordinate");
  user.Click("TxtPrint");
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 1U);
}

TEST_F(LeavingAField, HorizontalSwapsTheLimits) {
  user.Click("Opt_direction_3");
  user.Type("TxtYCoordinate", "320");
  ExpectBox("TxtYCoordinate");
  user.Click("TxtPrint");
  FormDriver::Turn();
  ASSERT_EQ(Boxes(), 1U);
  EXPECT_EQ(dialogs.Last().prompt,
            "Y Coordinate should be within 0 - 319 if the printing direction is horizontal");
}

TEST_F(LeavingAField, ByAPressThatIsNotReleasedOnTheButtonShowsTheBoxAndPressesNothing) {
  user.Type("TxtXCoordinate", "320");
  QWidget* button = user.Find("CmdEscFf");
  QTest::mousePress(button, Qt::LeftButton);
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 0U);
  const QPoint outside(-20, -20);
  QMouseEvent move(QEvent::MouseMove, outside, button->mapToGlobal(outside), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(button, &move);
  ExpectBox("TxtXCoordinate");
  QTest::mouseRelease(button, Qt::LeftButton, Qt::NoModifier, outside);
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 1U);
  EXPECT_TRUE(form.isVisible());
  EXPECT_FALSE(user.Find<QAbstractButton>("CmdEscFf")->isDown());
}

TEST_F(LeavingAField, NeverBlocksSending) {
  user.Type("TxtXCoordinate", "99999");
  ExpectBox("TxtXCoordinate");
  dialogs.Types("0");
  user.Click("Cmd_EscG");
  EXPECT_EQ(common.DataString, "2,99999,47,\x1BG0");
}

TEST_F(LeavingAField, AButtonAnsweredNoLeavesTheFocusInTheWrongField) {
  user.Type("TxtXCoordinate", "320");
  for (std::size_t i = 1; i <= 2; ++i) {
    ExpectBox("TxtXCoordinate");
    dialogs.Answers(dialogs::Answer::kNo);
    user.Click("CmdEscI");
    EXPECT_EQ(Boxes(), 2 * i);
    EXPECT_TRUE(user.HasFocus("TxtXCoordinate"));
  }
}

TEST_F(LeavingAField, AnotherWindowThatBecomesActiveIsNotLeaving) {
  user.Type("TxtXCoordinate", "320");
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  EXPECT_FALSE(user.HasFocus("TxtXCoordinate"));
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 0U);
  other.close();
}

TEST_F(LeavingAField, ABoxThatOpensIsNotLeaving) {
  user.Type("TxtXCoordinate", "320");
  QDialog box(&form);
  box.setModal(true);
  box.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
  FormDriver::Turn();
  box.close();
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 0U);
}

TEST_F(LeavingAField, AMenuThatOpensIsNotLeaving) {
  user.Type("TxtXCoordinate", "320");
  QWidget* field = user.Find("TxtXCoordinate");
  const QPoint center = field->rect().center();
  QContextMenuEvent event(QContextMenuEvent::Keyboard, center, field->mapToGlobal(center));
  QApplication::sendEvent(field, &event);
  ASSERT_TRUE(support::WaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
  FormDriver::Turn();
  QApplication::activePopupWidget()->close();
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 0U);
}

TEST_F(LeavingAField, ClosingTheFormIsNotLeaving) {
  user.Type("TxtXCoordinate", "320");
  form.close();
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 0U);
  EXPECT_EQ(common.DataString, "2,320,47,Test Print");
}

TEST_F(LeavingAField, AFieldLeftJustBeforeTheFormClosesIsNotTold) {
  user.Type("TxtXCoordinate", "320");
  QTest::keyClick(user.Find("TxtXCoordinate"), Qt::Key_Tab);
  form.close();
  FormDriver::Turn();
  EXPECT_EQ(Boxes(), 0U);
}

TEST_F(LeavingTheImageNo, ByAClickOnNextShowsTheBoxAndThenSends) {
  user.Type("TxtImageNo", "2000");
  ExpectBox("TxtImageNo");
  user.Click("CmdNext");
  ASSERT_EQ(Boxes(), 1U);
  EXPECT_EQ(dialogs.Last().title, "Invalid X coordinate");
  EXPECT_EQ(dialogs.Last().prompt,
            "Image No should be within 0 - 1999.\r\n"
            "If the printer does not have the corresponding image, a rejected response will be "
            "issued");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(common.DataString, "2,0,47,2000");
}

}  // namespace
}  // namespace vantrel::printdata
