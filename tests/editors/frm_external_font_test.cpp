// SPDX-License-Identifier: MIT

#include "editors/frm_external_font.h"

#include "tests/editors/editor_forms.h"
#include "tests/editors/text.h"
#include "tests/support/recording_guard.h"
#include "tests/support/scripted_dialogs.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>

#include <memory>

namespace vantrel::editors {
namespace {

class FrmExternalFontTest : public testing::Test {
 protected:
  void Open(bool double_byte) {
    common_.IsDoubleByteFont = double_byte;
    form_ = std::make_unique<FrmExternalFont>(common_, dialogs_, guard_);
    ShowActive(*form_);
  }
  DotGrid& Grid() { return Find<DotGrid>(*form_, "LblDot"); }
  QComboBox& ImageNo() { return Find<QComboBox>(*form_, "ComboImageNo"); }
  std::string Caption() { return Find<QGroupBox>(*form_, "FraFontMatrix").title().toStdString(); }
  void Choose(const char* option) {
    QTest::mouseClick(&Find<QRadioButton>(*form_, option), Qt::LeftButton, {}, QPoint(8, 8));
  }
  // Presses ">>" and answers the box that shows the data; returns them.
  std::string Next() {
    dialogs_.Answers(dialogs::Answer::kOk, [this] { EXPECT_TRUE(form_->isVisible()); });
    ClickControl(*form_, "CmdNext");
    EXPECT_FALSE(form_->isVisible());
    EXPECT_EQ(dialogs_.Last().prompt, common_.DataString);
    EXPECT_EQ(dialogs_.Last().title, "Print Data");
    EXPECT_EQ(dialogs_.Last().buttons, dialogs::Buttons::kOk);
    return common_.DataString;
  }

  link::CommonVariables common_;
  support::ScriptedDialogs dialogs_;
  support::RecordingGuard guard_;
  std::unique_ptr<FrmExternalFont> form_;
};

TEST_F(FrmExternalFontTest, TheOriginStaysWithTheDotsAsTheyGrow) {
  for (const bool is_double_byte : {false, true}) {
    Open(is_double_byte);
    ExpectOriginToStayWithTheDots(*form_, Grid());
  }
}

TEST_F(FrmExternalFontTest, NamesAndCaptionsOfADoubleByteFont) {
  Open(true);
  EXPECT_EQ(form_->windowTitle(), "44h Double byte external character registered font command");
  EXPECT_EQ(Find<QGroupBox>(*form_, "FraCoordinate").title(), "Font Type And Number");
  EXPECT_EQ(Caption(), "24 X 24");
  EXPECT_EQ(LabelText(*form_, "StatusBarExImage_1"), "Max 16 registered fonts");
  EXPECT_EQ(LabelText(*form_, "LblImageNo"), "Image No:");
  EXPECT_EQ(LabelText(*form_, "LblOrigin"), "Origin(0,0)");
  EXPECT_EQ(LabelText(*form_, "LblDescriptipn"), "Click -> Select DbClick -> DeSelect");
  EXPECT_EQ(Find<QPushButton>(*form_, "CmdAll_0").text(), "Fill All");
  EXPECT_EQ(Find<QPushButton>(*form_, "CmdAll_1").text(), "Clear All");
  EXPECT_EQ(Find<QPushButton>(*form_, "CmdNext").text(), ">>");
  EXPECT_EQ(Find<QRadioButton>(*form_, "Opt24dot").text(), "24 dot");
  EXPECT_EQ(Find<QRadioButton>(*form_, "Opt16dot").text(), "16 dot");
  EXPECT_TRUE(Find<QRadioButton>(*form_, "Opt24dot").isChecked());
  QStringList items;
  for (int i = 0; i < ImageNo().count(); ++i) items << ImageNo().itemText(i);
  EXPECT_EQ(items.join(" "), "0 1 2 3 4 5 6 7 8 9 A B C D E F");
  EXPECT_EQ(ImageNo().currentText(), "0");
}

TEST_F(FrmExternalFontTest, CaptionsOfASingleByteFont) {
  Open(false);
  EXPECT_EQ(form_->windowTitle(), "45h Single byte external character registered font command");
  EXPECT_EQ(Caption(), "12 X 24");
  Choose("Opt16dot");
  EXPECT_EQ(Caption(), "8 X 16");
  // Meant, although the grid is 12 x 24.
  Choose("Opt24dot");
  EXPECT_EQ(Caption(), "16 X 16");
}

TEST_F(FrmExternalFontTest, ActivationReplacesTheCaptionThatTheConsoleSet) {
  FrmExternalFont form(common_, dialogs_, guard_);
  form.setWindowTitle("45h Single byte external font register command");
  form.show();
  EXPECT_EQ(form.windowTitle(), "45h Single byte external character registered font command");
}

TEST_F(FrmExternalFontTest, FitsASmallScreen) {
  Open(true);
  EXPECT_LE(form_->frameGeometry().width(), 1024);
  EXPECT_LE(form_->frameGeometry().height(), 600);
}

TEST_F(FrmExternalFontTest, TheHintOfTheSixteenDotFontIsWhollySeen) {
  Open(true);
  Choose("Opt16dot");
  auto& panel = Find<QLabel>(*form_, "StatusBarExImage_1");
  EXPECT_EQ(panel.text(), "16 dot font is invalid on Japan, China, HK & Taiwan version");
  EXPECT_GE(panel.contentsRect().height(), panel.heightForWidth(panel.width()) - 4);
}

TEST_F(FrmExternalFontTest, TopLeftDotOfA16DotSingleByteFontInRegister3) {
  Open(false);
  Choose("Opt16dot");
  ClickAt(Grid(), Grid().DotRect(0));
  ImageNo().setCurrentIndex(3);
  EXPECT_EQ(Next(), "1,3,0100" + Times(28, "0"));
}

TEST_F(FrmExternalFontTest, FillAllOf24By24) {
  Open(true);
  ClickControl(*form_, "CmdAll_0");
  EXPECT_EQ(Next(), "0,0," + Times(72, "FF"));
}

TEST_F(FrmExternalFontTest, ClearAllClearsValuesAsWellAsColours) {
  Open(true);
  ClickControl(*form_, "CmdAll_0");
  ClickControl(*form_, "CmdAll_1");
  EXPECT_FALSE(IsBlack(Grid(), 0));
  EXPECT_EQ(Next(), "0,0," + Times(72, "00"));
}

TEST_F(FrmExternalFontTest, SelectorsOfA16DotFont) {
  Open(true);
  Choose("Opt16dot");
  EXPECT_TRUE(Grid().RowSelectorRect(16).isEmpty());
  EXPECT_TRUE(Grid().ColumnSelectorRect(16).isEmpty());
  ClickAt(Grid(), Grid().RowSelectorRect(8));
  ClickAt(Grid(), Grid().ColumnSelectorRect(15));
  DoubleClickAt(Grid(), Grid().ColumnSelectorRect(0));
  EXPECT_EQ(Next(), "1,0,0000" + Times(14, "0001") + "FFFF");
}

TEST_F(FrmExternalFontTest, AClickOnTheOptionThatIsSelectedRunsItAgain) {
  Open(true);
  ClickAt(Grid(), Grid().DotRect(0));
  Choose("Opt24dot");
  EXPECT_TRUE(IsBlack(Grid(), 0));
  EXPECT_EQ(Next(), "0,0," + Times(72, "00"));
}

TEST_F(FrmExternalFontTest, AnArrowKeySelectsASizeAsAClickDoes) {
  Open(false);
  auto& option = Find<QRadioButton>(*form_, "Opt24dot");
  option.setFocus();
  QTest::keyClick(&option, Qt::Key_Right);
  EXPECT_TRUE(Find<QRadioButton>(*form_, "Opt16dot").isChecked());
  EXPECT_EQ(Caption(), "8 X 16");
}

TEST_F(FrmExternalFontTest, ADotThatStayedBlackIsClearedByAClick) {
  Open(true);
  ClickAt(Grid(), Grid().DotRect(0));
  Choose("Opt16dot");
  const QPoint dot = Grid().DotRect(0).center();
  EXPECT_EQ(Grid().grab().toImage().pixelColor(dot), QColor(Qt::black));
  ClickAt(Grid(), Grid().DotRect(0));
  EXPECT_EQ(Grid().grab().toImage().pixelColor(dot), Grid().palette().color(QPalette::Base));
}

TEST_F(FrmExternalFontTest, ATypedRegisterStaysAsTyped) {
  Open(false);
  Choose("Opt16dot");
  QLineEdit& box = *ImageNo().lineEdit();
  box.setFocus();
  box.selectAll();
  QTest::keyClicks(&box, "a");
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_TRUE(form_->isVisible());
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_EQ(ImageNo().currentText(), "a");
  EXPECT_EQ(ImageNo().count(), 16);
  EXPECT_EQ(Next(), "1,a," + Times(32, "0"));
}

TEST_F(FrmExternalFontTest, TheCloseBoxLeavesTheAllSetPattern) {
  Open(false);
  ClickControl(*form_, "CmdAll_1");
  form_->close();
  EXPECT_EQ(common_.DataString, Times(144, "F"));
}

}  // namespace
}  // namespace vantrel::editors
