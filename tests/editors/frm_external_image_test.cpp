// SPDX-License-Identifier: MIT

#include "editors/frm_external_image.h"

#include "tests/editors/editor_forms.h"
#include "tests/editors/text.h"
#include "tests/support/recording_guard.h"
#include "tests/support/scripted_dialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QTimer>

#include <memory>

namespace vantrel::editors {
namespace {

class FrmExternalImageTest : public testing::Test {
 protected:
  void Open(bool block) {
    common_.IsBlockMode = block;
    form_ = std::make_unique<FrmExternalImage>(common_, dialogs_, guard_);
    ShowActive(*form_);
  }
  dialogs::DigitBox& Box(const char* name) { return Find<dialogs::DigitBox>(*form_, name); }
  QWidget& Control(const char* name) { return Find<QWidget>(*form_, name); }
  DotGrid& Grid() { return Find<DotGrid>(*form_, "Lbldot"); }
  void Set(const char* x, const char* y) {
    Box("TxtXCoordinate").setText(x);
    Box("TxtYCoordinate").setText(y);
    ClickControl(*form_, "CmdSet");
  }
  void ExpectStep(bool drawing) {
    EXPECT_EQ(Control("FraDotMatrix").isVisible(), drawing);
    EXPECT_EQ(Control("CmdNext").isEnabled(), drawing);
    EXPECT_EQ(Control("CmdSet").isVisible(), !drawing);
  }

  link::CommonVariables common_;
  support::ScriptedDialogs dialogs_;
  support::RecordingGuard guard_;
  std::unique_ptr<FrmExternalImage> form_;
};

TEST_F(FrmExternalImageTest, NamesAndCaptionsInLineMode) {
  Open(false);
  EXPECT_EQ(form_->windowTitle(), "43h External image data expand command (Line Mode)");
  EXPECT_EQ(LabelText(*form_, "StatusBarExImage_1"), "Y: 0 - 39");
  EXPECT_EQ(Find<QGroupBox>(*form_, "FraCoordinate").title(), "Printing Coordinate");
  EXPECT_EQ(LabelText(*form_, "LblXCoordinate"), "X-Coordinate");
  EXPECT_EQ(LabelText(*form_, "LblYCoordinate"), "Y-Coordinate");
  EXPECT_EQ(LabelText(*form_, "LblOrigin"), "Origin (0,0)");
  EXPECT_EQ(LabelText(*form_, "LblDescriptipn"), "Click -> Select DbClick -> DeSelect");
  EXPECT_EQ(Find<QPushButton>(*form_, "CmdSet").text(), "Set");
  EXPECT_EQ(Find<QPushButton>(*form_, "CmdClear").text(), "Clear All");
  EXPECT_EQ(Find<QPushButton>(*form_, "CmdNext").text(), ">>");
  EXPECT_EQ(Box("TxtXCoordinate").text(), "0");
  EXPECT_EQ(Box("TxtYCoordinate").text(), "0");
  ExpectStep(false);
}

TEST_F(FrmExternalImageTest, NamesAndCaptionsInBlockMode) {
  Open(true);
  EXPECT_EQ(form_->windowTitle(), "4Dh External image data expand command (Block Mode)");
  EXPECT_EQ(LabelText(*form_, "StatusBarExImage_1"), "X: 0 - 479;   Y: 0 - 39");
  EXPECT_EQ(Find<QGroupBox>(*form_, "FraDotMatrix").title(), "40 X 40");
  ExpectStep(false);
}

TEST_F(FrmExternalImageTest, TheOriginStaysWithTheDotsAsTheyGrow) {
  for (const bool is_block_mode : {false, true}) {
    Open(is_block_mode);
    Set("0", "0");
    ExpectOriginToStayWithTheDots(*form_, Grid());
  }
}

TEST_F(FrmExternalImageTest, FitsASmallScreen) {
  Open(true);
  Set("0", "0");
  EXPECT_LE(form_->frameGeometry().width(), 1024);
  EXPECT_LE(form_->frameGeometry().height(), 600);
}

TEST_F(FrmExternalImageTest, SetOpensTheGridAndFocusesClearAll) {
  Open(true);
  const QSize size = form_->size();
  Set("441", "36");
  ExpectStep(true);
  EXPECT_EQ(Find<QGroupBox>(*form_, "FraDotMatrix").title(), "39 X 32");
  EXPECT_TRUE(Control("CmdClear").hasFocus());
  EXPECT_EQ(form_->size(), size);
}

TEST_F(FrmExternalImageTest, XOutOfRangeIsReportedSetToZeroAndFocused) {
  Open(true);
  dialogs_.Answers(dialogs::Answer::kOk);
  Set("480", "40");
  EXPECT_EQ(dialogs_.Last().prompt, "X Coordinate should be within 0 - 479");
  EXPECT_EQ(dialogs_.Last().title, "Invalid X coordinate");
  EXPECT_EQ(dialogs_.Last().buttons, dialogs::Buttons::kOk);
  EXPECT_EQ(Box("TxtXCoordinate").text(), "0");
  EXPECT_TRUE(Box("TxtXCoordinate").hasFocus());
  EXPECT_EQ(Box("TxtYCoordinate").text(), "40");
  ExpectStep(false);
}

TEST_F(FrmExternalImageTest, YOutOfRangeIsReportedSetToZeroAndFocused) {
  Open(false);
  dialogs_.Answers(dialogs::Answer::kOk);
  Set("479", "40");
  EXPECT_EQ(dialogs_.Last().prompt, "Y Coordinate should be within 0 - 39");
  EXPECT_EQ(dialogs_.Last().title, "Invalid Y coordinate");
  EXPECT_EQ(Box("TxtXCoordinate").text(), "479");
  EXPECT_EQ(Box("TxtYCoordinate").text(), "0");
  EXPECT_TRUE(Box("TxtYCoordinate").hasFocus());
  ExpectStep(false);
}

TEST_F(FrmExternalImageTest, TypingReplacesTheZeroOfAFreshOrRefusedBox) {
  Open(true);
  EXPECT_TRUE(Box("TxtXCoordinate").hasFocus());
  QTest::keyClicks(&Box("TxtXCoordinate"), "480");
  EXPECT_EQ(Box("TxtXCoordinate").text(), "480");
  dialogs_.Answers(dialogs::Answer::kOk);
  ClickControl(*form_, "CmdSet");
  QTest::keyClicks(&Box("TxtXCoordinate"), "12");
  EXPECT_EQ(Box("TxtXCoordinate").text(), "12");
}

TEST_F(FrmExternalImageTest, LineWithItsTopAndBottomDotClicked) {
  Open(false);
  Set("100", "0");
  ClickAt(Grid(), Grid().DotRect(0));
  ClickAt(Grid(), Grid().DotRect(39));
  ClickControl(*form_, "CmdNext");
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(common_.DataString, "100,0,0100000080");
}

TEST_F(FrmExternalImageTest, SelectorsInBlockMode) {
  Open(true);
  Set("478", "38");
  ClickAt(Grid(), Grid().RowSelectorRect(0));
  ClickAt(Grid(), Grid().ColumnSelectorRect(1));
  DoubleClickAt(Grid(), Grid().RowSelectorRect(15));
  ClickControl(*form_, "CmdNext");
  EXPECT_EQ(common_.DataString, "478,38,2,0100FF7F");
}

TEST_F(FrmExternalImageTest, AClickInACoordinateBoxGoesBackAndKeepsTheDots) {
  for (const char* box : {"TxtXCoordinate", "TxtYCoordinate"}) {
    Open(false);
    Set("0", "0");
    ClickAt(Grid(), Grid().DotRect(0));
    ClickControl(*form_, box);
    ExpectStep(false);
    ClickControl(*form_, "CmdSet");
    ExpectStep(true);
    ClickControl(*form_, "CmdNext");
    EXPECT_EQ(common_.DataString, "0,0,0100000000");
  }
}

TEST_F(FrmExternalImageTest, KeyboardFocusInACoordinateBoxDoesNotGoBack) {
  Open(false);
  Set("0", "0");
  Box("TxtYCoordinate").setFocus(Qt::TabFocusReason);
  QTest::keyClick(&Box("TxtYCoordinate"), Qt::Key_Tab);
  ExpectStep(true);
}

TEST_F(FrmExternalImageTest, LeavingABoxChecksNothingAndItsTextIsSentAsItStands) {
  Open(false);
  Set("0", "0");
  auto& box = Box("TxtXCoordinate");
  box.setFocus(Qt::TabFocusReason);
  box.selectAll();
  QTest::keyClicks(&box, "99999");
  QTest::keyClick(&box, Qt::Key_Tab);
  ExpectStep(true);
  ClickControl(*form_, "CmdNext");
  EXPECT_EQ(common_.DataString, "99999,0,0000000000");
}

TEST_F(FrmExternalImageTest, AnEmptyXCountsAsZeroAndTheDataBeginWithAComma) {
  Open(false);
  auto& box = Box("TxtXCoordinate");
  box.setFocus();
  box.setCursorPosition(0);
  QTest::keyClick(&box, Qt::Key_Delete);
  EXPECT_EQ(box.text(), "");
  ClickControl(*form_, "CmdSet");
  ClickControl(*form_, "CmdNext");
  EXPECT_EQ(common_.DataString, ",0,0000000000");
}

TEST_F(FrmExternalImageTest, BoxesTakeDigitsAndDeleteAlone) {
  Open(false);
  for (const char* name : {"TxtXCoordinate", "TxtYCoordinate"}) {
    auto& box = Box(name);
    box.setFocus();
    box.setText("123");
    QTest::keyClick(&box, Qt::Key_Backspace);
    QTest::keyClicks(&box, "a-. /:");
    EXPECT_EQ(box.text(), "123") << name;
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_TRUE(form_->isVisible());
    ExpectStep(false);
    QTest::keyClick(&box, Qt::Key_Left);
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, "90");
    EXPECT_EQ(box.text(), "1290") << name;
    QApplication::clipboard()->setText("-4x5");
    box.paste();
    EXPECT_EQ(box.text(), "129045") << name;
  }
}

TEST_F(FrmExternalImageTest, AfterClearAllTheDotsThatWereSetAreStillSent) {
  Open(false);
  Set("0", "0");
  ClickAt(Grid(), Grid().DotRect(0));
  ClickControl(*form_, "CmdClear");
  EXPECT_FALSE(IsBlack(Grid(), 0));
  ClickControl(*form_, "CmdNext");
  EXPECT_EQ(common_.DataString, "0,0,0100000000");
}

TEST_F(FrmExternalImageTest, ClearAllIsSeen) {
  Open(false);
  Set("0", "0");
  const QPoint dot = Grid().DotRect(0).center();
  ClickAt(Grid(), Grid().DotRect(0));
  EXPECT_EQ(Grid().grab().toImage().pixelColor(dot), QColor(Qt::black));
  ClickControl(*form_, "CmdClear");
  EXPECT_EQ(Grid().grab().toImage().pixelColor(dot), Grid().palette().color(QPalette::Base));
}

TEST_F(FrmExternalImageTest, BlockX479Y0IsOneLineOf40Bytes) {
  Open(true);
  Set("479", "0");
  EXPECT_EQ(Find<QGroupBox>(*form_, "FraDotMatrix").title(), "1 X 40");
  ClickControl(*form_, "CmdNext");
  EXPECT_EQ(common_.DataString, "479,0,40," + Times(40, "00"));
}

TEST_F(FrmExternalImageTest, X441EndsInASubscriptErrorWhenNextComposes) {
  Open(true);
  Set("441", "0");
  ClickControl(*form_, "CmdNext");
  EXPECT_EQ(guard_.TakeFaults(), std::vector<std::string>{"Subscript out of range"});
  EXPECT_TRUE(form_->isVisible());
}

// Meant: a line of 40 bytes leads past the last dot.
TEST_F(FrmExternalImageTest, AColumnSelectorThatLeadsPastTheDotsEndsInASubscriptError) {
  Open(true);
  Set("441", "0");
  ClickAt(Grid(), Grid().ColumnSelectorRect(38));
  EXPECT_EQ(guard_.TakeFaults(), std::vector<std::string>{"Subscript out of range"});
}

TEST_F(FrmExternalImageTest, TheCloseBoxLeavesZero) {
  Open(true);
  Set("0", "0");
  ClickAt(Grid(), Grid().DotRect(0));
  form_->close();
  EXPECT_EQ(common_.DataString, "0");
}

TEST_F(FrmExternalImageTest, ShownModallyItReturnsWhenNextUnloadsIt) {
  common_.IsBlockMode = false;
  form_ = std::make_unique<FrmExternalImage>(common_, dialogs_, guard_);
  QTimer::singleShot(0, form_.get(), [this] {
    Set("1", "39");
    ClickControl(*form_, "CmdNext");
  });
  form_->exec();
  EXPECT_EQ(common_.DataString, "1,39,00");
}

TEST_F(FrmExternalImageTest, ClosesWithTheKeyboardOnTheGrid) {
  Open(true);
  Set("0", "0");
  Grid().setFocus(Qt::TabFocusReason);
  QTest::keyClick(&Grid(), Qt::Key_Right);
  form_.reset();
  EXPECT_EQ(common_.DataString, "0");
}

}  // namespace
}  // namespace vantrel::editors
