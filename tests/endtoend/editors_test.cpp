// SPDX-License-Identifier: MIT

// 43h, 4Dh, 44h, 45h and 5Ah from the button to the line.

#include "tests/support/console_fixture.h"
#include "tests/support/current_dialogs.h"

#include <QComboBox>
#include <QRadioButton>
#include <QTest>

namespace vantrel::endtoend {
namespace {

class EditorsTest : public support::ConsoleTest {
 protected:
  void Load() {
    support::ConsoleTest::Load();
    AnswerAll();
  }
};

TEST_F(EditorsTest, A43hSendsTheLine) {
  Load();
  OnForm([this](QDialog& form) {
    EXPECT_EQ(form.objectName(), "FrmExternalImage");
    EXPECT_FALSE(form_->isVisible());
    Type(form, "TxtXCoordinate", "100");
    Click(form, "CmdSet");
    ClickDot(form, "Lbldot", 0);
    ClickDot(form, "Lbldot", 39);
    Click(form, "CmdNext");
  });
  Press("Cmd43");
  // "100,0,0100000080"
  EXPECT_EQ(Frames(), std::vector<std::string>{"02433130302C302C303130303030303038300348"});
}

TEST_F(EditorsTest, A43hClosedByItsCloseBoxSendsTheCharacter0) {
  Load();
  OnForm([](QDialog& form) { form.close(); });
  Press("Cmd43");
  EXPECT_EQ(Frames(), std::vector<std::string>{"0243300370"});
}

TEST_F(EditorsTest, A4DhAtX479ReadsOnPastItsLine) {
  Load();
  OnForm([](QDialog& form) {
    Type(form, "TxtXCoordinate", "479");
    Click(form, "CmdSet");
    Click(form, "CmdNext");
  });
  Press("Cmd4D");
  std::string zeros;
  for (int i = 0; i < 80; ++i) zeros += "30";
  EXPECT_EQ(Frames(), std::vector<std::string>{"024D3437392C302C34302C" + zeros + "036C"});
}

// Meant: the byte count of these coordinates leads past the last dot, and that ends the run.
TEST_F(EditorsTest, A4DhAtX441EndsTheRunWithSubscriptOutOfRange) {
  Load();
  dialogs_.Answers(dialogs::Answer::kOk);
  OnForm([](QDialog& form) {
    Type(form, "TxtXCoordinate", "441");
    Click(form, "CmdSet");
    Click(form, "CmdNext");
    // The real program is gone by now.
    EXPECT_EQ(support::CurrentDialogs::Instance().end_status, 1);
    form.close();
  });
  Press("Cmd4D");
  EXPECT_TRUE(dialogs_.Last().prompt.starts_with("Subscript out of range"));
}

TEST_F(EditorsTest, A45hSendsTheCharacterAndExplainsItAfterTheReply) {
  Load();
  dialogs_.Answers(dialogs::Answer::kOk);
  OnForm([](QDialog& form) {
    Click(form, "Opt16dot");
    form.findChild<QComboBox*>("ComboImageNo")->setEditText("3");
    ClickDot(form, "LblDot", 0);
    Click(form, "CmdNext");
  });
  Press("Cmd45");
  // "1,3,01" and 30 zeros
  EXPECT_EQ(Frames(),
            std::vector<std::string>{"0245312C332C3031303030303030303030303030303030303030303030303"
                                     "0303030303030300345"});
  EXPECT_EQ(dialogs_.Last().title, "Print Data");
  EXPECT_EQ(Text("StatusBarFrmMain_1"), "Single byte external character font register command");
  EXPECT_EQ(Text("StatusBarFrmMain_2"),
            "Expand the registered font to print buffer by command 41h");
}

TEST_F(EditorsTest, A44hClosedByItsCloseBoxSendsTheAllSetPattern) {
  Load();
  OnForm([](QDialog& form) { form.close(); });
  Press("Cmd44");
  std::string pattern;
  for (int i = 0; i < 144; ++i) pattern += "46";
  EXPECT_EQ(Frames(), std::vector<std::string>{"0244" + pattern + "0347"});
  EXPECT_EQ(Text("StatusBarFrmMain_1"),
            "Expand the registered font to print buffer by command 41h");
  EXPECT_EQ(Text("StatusBarFrmMain_2"), "24 dot Double byte -> ESC G; 16 dot Double byte -> ESC I");
}

TEST_F(EditorsTest, A5AhSendsTheChosenSettingAndLeavesTheConsoleVisible) {
  Load();
  OnForm([this](QDialog& form) {
    EXPECT_TRUE(form_->isVisible());
    Click(form, "OptLED_3");
    Click(form, "OptLEDColor_2");
    Click(form, "OptBuzzer_4");
    Click(form, "CmdNext");
  });
  Press("Cmd5A");
  EXPECT_EQ(Frames(), std::vector<std::string>{"025A333232036A"});
}

TEST_F(EditorsTest, A5AhClosedByItsCloseBoxSendsNothing) {
  Load();
  OnForm([](QDialog& form) { form.close(); });
  Press("Cmd5A");
  EXPECT_TRUE(Frames().empty());
}

}  // namespace
}  // namespace vantrel::endtoend
