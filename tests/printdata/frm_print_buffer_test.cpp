// SPDX-License-Identifier: MIT

#include "printdata/frm_print_buffer.h"

#include "tests/printdata/form_driver.h"
#include "tests/support/recording_guard.h"
#include "tests/support/scripted_dialogs.h"

#include <QClipboard>
#include <QGroupBox>
#include <QRadioButton>

#include <vector>

namespace vantrel::printdata {
namespace {

class PrintBufferForm : public testing::Test {
 protected:
  struct Shown {
    Shown(link::CommonVariables& common, dialogs::Dialogs& dialogs, dialogs::Guard& guard)
        : form(common, dialogs, guard), user(form) {}
    FrmPrintBuffer form;
    FormDriver user;
  };

  std::unique_ptr<Shown> Show41h() {
    common.IsPrintData = true;
    return std::make_unique<Shown>(common, dialogs, guard);
  }
  std::unique_ptr<Shown> Show42h() {
    common.IsPrintData = false;
    return std::make_unique<Shown>(common, dialogs, guard);
  }

  link::CommonVariables common;
  support::ScriptedDialogs dialogs;
  support::RecordingGuard guard;
};

TEST_F(PrintBufferForm, CaptionsAndTextsAtLoad) {
  const auto shown = Show41h();
  const FormDriver& user = shown->user;
  const auto frame = [&user](const char* name) {
    return user.Find<QGroupBox>(name)->title().toStdString();
  };
  EXPECT_EQ(frame("FraCardDirection"), "Card Arrangement Direction");
  EXPECT_EQ(user.Caption("Opt_direction_0"), "'0': Vertical + Overwrite");
  EXPECT_EQ(user.Caption("Opt_direction_1"), "'1': Horizontal + Overwrite");
  EXPECT_EQ(user.Caption("Opt_direction_2"), "'2': Vertical + Added Writing");
  EXPECT_EQ(user.Caption("Opt_direction_3"), "'3': Horizontal + Added Writing");
  EXPECT_TRUE(user.Find<QRadioButton>("Opt_direction_2")->isChecked());
  EXPECT_EQ(frame("FraCoordinate"), "Printing Coordinate");
  EXPECT_EQ(user.Label("LblXCoordinate"), "X-Coordinate");
  EXPECT_EQ(user.Label("LblYCoordinate"), "Y-Coordinate");
  EXPECT_EQ(user.Text("TxtXCoordinate"), "0");
  EXPECT_EQ(user.Text("TxtYCoordinate"), "47");
  EXPECT_EQ(frame("FraPrintText"), "Print Text");
  EXPECT_EQ(user.Text("TxtPrint"), "Test Print");
  EXPECT_EQ(frame("FraImageNo"), "Image No");
  EXPECT_EQ(user.Text("TxtImageNo"), "0");
  EXPECT_EQ(user.Caption("CmdNext"), ">>>");
  EXPECT_EQ(frame("FraDescription_0"), "Vertical");
  EXPECT_EQ(frame("FraDescription_1"), "Horizontal");
  EXPECT_EQ(user.Label("StatusBarFrmPrintBuffer_1"), "");
  EXPECT_EQ(user.Label("StatusBarFrmPrintBuffer_2"), "");
}

TEST_F(PrintBufferForm, Of41hHidesTheImageNumber) {
  common.PrintDirection = "3";
  const auto shown = Show41h();
  EXPECT_EQ(shown->form.windowTitle(),
            "41h Data String = Control Header String + Text Data String");
  EXPECT_TRUE(shown->user.IsVisible("FraPrintText"));
  EXPECT_TRUE(shown->user.IsVisible("FraCmdBtn"));
  EXPECT_FALSE(shown->user.IsVisible("FraImageNo"));
  EXPECT_TRUE(shown->user.IsVisible("FraDescription_0"));
  EXPECT_FALSE(shown->user.IsVisible("FraDescription_1"));
  EXPECT_EQ(common.PrintDirection, "2");
  EXPECT_EQ(common.DataString, "Test Print");
}

TEST_F(PrintBufferForm, Of42hShowsTheImageNumberAlone) {
  common.DataString = "left by another form";
  const auto shown = Show42h();
  EXPECT_EQ(shown->form.windowTitle(), "42h Internal image data expand command");
  EXPECT_FALSE(shown->user.IsVisible("FraPrintText"));
  EXPECT_FALSE(shown->user.IsVisible("FraCmdBtn"));
  EXPECT_TRUE(shown->user.IsVisible("FraImageNo"));
  EXPECT_EQ(shown->user.Label("StatusBarFrmPrintBuffer_1"), "Internal Image No : 0 - 1999");
  EXPECT_EQ(shown->form.height(), 416);  // 6240 twips at 96 dots per inch
  EXPECT_EQ(common.DataString, "left by another form");
}

TEST_F(PrintBufferForm, TheTipOfAnEscButtonTellsWhatItDoes) {
  const auto shown = Show41h();
  const auto tip = [&shown](const char* name) {
    return shown->user.Find(name)->toolTip().toStdString();
  };
  EXPECT_EQ(tip("Cmd_EscEe"), "Specifies font size");
  EXPECT_EQ(tip("CmdEscS"), "Moves the next print character to the right an N character amount");
  EXPECT_EQ(tip("CmdEscYy"), "Sets the Y coordinate to expand character");
}

TEST_F(PrintBufferForm, ADirectionShowsItsDiagramAlone) {
  const auto shown = Show41h();
  for (const int index : {1, 0, 3, 2, 2}) {
    shown->user.Click(QString("Opt_direction_%1").arg(index));
    EXPECT_EQ(common.PrintDirection, std::to_string(index));
    EXPECT_EQ(shown->user.IsVisible("FraDescription_0"), index % 2 == 0);
    EXPECT_EQ(shown->user.IsVisible("FraDescription_1"), index % 2 == 1);
  }
}

TEST_F(PrintBufferForm, AnArrowKeyCountsAsAClickOnTheDirection) {
  const auto shown = Show41h();
  shown->user.Click("Opt_direction_2");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_EQ(common.PrintDirection, "3");
  EXPECT_TRUE(shown->user.IsVisible("FraDescription_1"));
}

// Every text of the shown diagram: whole, inside it and clear of the others.
TEST_F(PrintBufferForm, TheTextsOfTheDiagramsAreLegible) {
  const auto shown = Show41h();
  const std::vector<std::string> texts[] = {
      {"Y: 0 - 479", "X: 0 - 319", "Insert Card Direction", "Origin (0,0)",
       "Reference Point (X,Y) = Left Bootom"},
      {"Y: 0 - 319", "X: 0 - 479", "Insert Card Direction", "Origin (0,0)",
       "Reference Point (X,Y) = Left Bootom"}};
  for (const int i : {0, 1}) {
    shown->user.Click(QString("Opt_direction_%1").arg(i));
    const auto* frame = shown->user.Find<QGroupBox>(QString("FraDescription_%1").arg(i));
    const auto labels = frame->findChildren<QLabel*>();
    std::vector<std::string> found;
    for (const QLabel* label : labels) {
      found.push_back(label->text().toStdString());
      EXPECT_TRUE(label->parentWidget()->rect().contains(label->geometry()));
      EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(label->text()));
      EXPECT_GE(label->height(), label->fontMetrics().height());
      for (const QLabel* other : labels)
        EXPECT_TRUE(other == label || !other->geometry().intersects(label->geometry()))
            << label->text().toStdString() << " meets " << other->text().toStdString();
    }
    EXPECT_EQ(found, texts[i]);
  }
}

TEST_F(PrintBufferForm, FitsASmallScreenInBothModes) {
  for (const bool print_data : {true, false}) {
    const auto shown = print_data ? Show41h() : Show42h();
    EXPECT_LE(shown->form.width(), 1024);
    EXPECT_LE(shown->form.height(), 640 - 40);  // less a title bar
  }
}

TEST_F(PrintBufferForm, TheDigitFieldsTakeDigitsAloneAndNeitherBackspaceNorDelete) {
  for (const char* name : {"TxtXCoordinate", "TxtYCoordinate", "TxtImageNo"}) {
    const auto shown = QString(name) == "TxtImageNo" ? Show42h() : Show41h();
    auto* field = shown->user.Find<QLineEdit>(name);
    shown->user.Click(name);
    field->selectAll();
    QTest::keyClicks(field, "1a-2 .3");
    EXPECT_EQ(field->text(), "123");
    QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClick(field, Qt::Key_Home);
    QTest::keyClick(field, Qt::Key_Delete);
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClick(field, Qt::Key_Delete);
    EXPECT_EQ(field->text(), "123");
    QTest::keyClick(field, Qt::Key_7);
    EXPECT_EQ(field->text(), "7");
    QApplication::clipboard()->setText("x1y5");
    field->selectAll();
    QTest::keySequence(field, QKeySequence::Paste);
    EXPECT_EQ(field->text(), "15");
  }
}

TEST_F(PrintBufferForm, EnterAndEscapeDoNothing) {
  for (const bool print_data : {true, false}) {
    const auto shown = print_data ? Show41h() : Show42h();
    for (const char* name :
         {"TxtXCoordinate", "TxtYCoordinate", "Opt_direction_2",
          print_data ? "TxtPrint" : "TxtImageNo", print_data ? "CmdEscMm" : "CmdNext"}) {
      shown->user.Find(name)->setFocus();
      for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        QTest::keyClick(QApplication::focusWidget(), key);
      FormDriver::Turn();
      EXPECT_TRUE(shown->form.isVisible()) << name;
    }
  }
}

TEST_F(PrintBufferForm, ClosedBy41hsCloseBoxLeavesTheTextAsItWasAtActivation) {
  const auto shown = Show41h();
  shown->user.Type("TxtPrint", "Edited");
  shown->user.Type("TxtXCoordinate", "12");
  shown->user.Click("Opt_direction_3");
  shown->form.close();
  EXPECT_EQ(common.DataString, "3,12,47,Test Print");
}

TEST_F(PrintBufferForm, ClosedBy42hsCloseBoxLeavesDataStringUnchanged) {
  for (const char* before : {"", "2,0,47,15", "left by another form"}) {
    common.DataString = before;
    const auto shown = Show42h();
    shown->user.Type("TxtImageNo", "9");
    shown->form.close();
    EXPECT_EQ(common.DataString, before);
  }
}

TEST_F(PrintBufferForm, NextComposes42hAndUnloads) {
  const auto shown = Show42h();
  shown->user.Type("TxtImageNo", "15");
  shown->user.Click("CmdNext");
  EXPECT_EQ(common.DataString, "2,0,47,15");
  EXPECT_FALSE(shown->form.isVisible());
}

TEST_F(PrintBufferForm, NextTakesTheTextsAsTyped) {
  const auto shown = Show42h();
  shown->user.Type("TxtXCoordinate", "007");
  shown->user.Type("TxtYCoordinate", "");
  shown->user.Type("TxtImageNo", "0001");
  shown->user.Click("Opt_direction_1");
  shown->user.Click("CmdNext");
  EXPECT_EQ(common.DataString, "1,007,,0001");
}

struct ButtonCase {
  const char* name;
  const char* caption;
  const char* reply;
  std::string data;  // written out by hand, with X "0" and Y "47"
};

TEST_F(PrintBufferForm, EveryEscButtonComposesItsBodyAndUnloads) {
  const ButtonCase cases[] = {
      {"Cmd_EscEe", "ESC E/e", "21",
       "2,0,47,Tp\r\n\r\n\r\n\r\n\x1B"
       "E21Tp"},
      {"Cmd_EscG", "ESC G", "10", "2,0,47,\x1BGA"},
      {"CmdEsc_d", "ESC d", "1",
       "2,0,47,Tp\r\n\x1B"
       "d1Tp"},
      {"CmdEsc_i", "ESC i", "2", "2,0,47,\x1Bi2"},
      {"CmdEsc_s", "ESC s", "3", "2,0,47,Tp\x1Bs03Tp"},
      {"CmdESCBb", "ESC B/b", "2",
       "2,0,47,Tp\r\n\r\n\x1B"
       "B2Tp"},
      {"CmdEscD", "ESC D", "12",
       "2,0,47,Tp     12\r\n\x1B"
       "DCTpTp"},
      {"CmdEscFf", "ESC F/f", "1",
       "2,0,47,Tp\x1B"
       "F1Tp"},
      {"CmdEscg", "ESC g", "4", "2,0,47,\x1Bg4"},
      {"CmdEscI", "ESC I", "5", "2,0,47,\x1BI5"},
      {"CmdESCJj", "ESC J/j", "1", "2,0,47,Tp\x1BJ1Tp"},
      {"CmdEscLI", "ESC L/I", "6", "2,0,47,Tp\x1BL06Tp"},
      {"CmdEscMm", "ESC M/m", "15", "2,0,47,\x1BMF15\r\nTp\r\nTp\r\nTp\r\nTp"},
      {"CmdEscS", "ESC S", "7", "2,0,47,Tp\x1BS07Tp"},
      {"CmdEscVv", "ESC V/v", "2", "2,0,47,Tp\r\n\r\n\x1BV2Tp"},
      {"CmdESCWw", "ESC W/w", "1", "2,0,47,Tp\r\n\r\n\x1BW1Tp"},
      {"CmdEscXx", "ESC X/x", "8", "2,0,47,\x1BX0088"},
      {"CmdEscYy", "ESC Y/y", "479", "2,0,47,\x1BY479479"},
  };
  for (const ButtonCase& button : cases) {
    const auto shown = Show41h();
    EXPECT_EQ(shown->user.Caption(button.name), button.caption);
    shown->user.Type("TxtPrint", "Tp");
    const bool asks = QString(button.name) == "CmdEsc_i" || QString(button.name) == "CmdEscI";
    if (asks) dialogs.Answers(dialogs::Answer::kYes);
    dialogs.Types(button.reply);
    shown->user.Click(button.name);
    EXPECT_EQ(common.DataString, button.data) << button.name;
    EXPECT_FALSE(shown->form.isVisible()) << button.name;
  }
}

TEST_F(PrintBufferForm, APromptsTitleCarriesPanelOne) {
  const auto shown = Show41h();
  dialogs.Types("1", [&shown] {
    EXPECT_EQ(shown->user.Label("StatusBarFrmPrintBuffer_1"),
              "Sets 24/16 dot fonts for ANK character");
    EXPECT_EQ(shown->user.Label("StatusBarFrmPrintBuffer_2"), "Invalid command for DBSC");
  });
  shown->user.Click("CmdEscFf");
  EXPECT_EQ(dialogs.Last().title, "ESC F/f : Sets 24/16 dot fonts for ANK character");
}

TEST_F(PrintBufferForm, EscXAsksByTheDirectionSelected) {
  const auto shown = Show41h();
  shown->user.Click("Opt_direction_1");
  dialogs.Types("480");
  dialogs.Types("479");
  shown->user.Click("CmdEscXx");
  EXPECT_EQ(dialogs.Last().prompt, "Input '000 - 479' for setting the Y coordinate");
  EXPECT_EQ(common.DataString, "1,0,47,\x1BX479479");
}

TEST_F(PrintBufferForm, EscSmallIAnsweredNoLeavesTheHeaderAloneToTheCloseBox) {
  const auto shown = Show41h();
  dialogs.Answers(dialogs::Answer::kNo);
  shown->user.Click("CmdEsc_i");
  EXPECT_TRUE(shown->form.isVisible());
  shown->form.close();
  EXPECT_EQ(common.DataString, "2,0,47,");
}

TEST_F(PrintBufferForm, EscCapitalIAnsweredNoLeavesTheTextToTheCloseBox) {
  const auto shown = Show41h();
  dialogs.Answers(dialogs::Answer::kNo);
  shown->user.Click("CmdEscI");
  EXPECT_TRUE(shown->form.isVisible());
  shown->form.close();
  EXPECT_EQ(common.DataString, "2,0,47,Test Print");
}

TEST_F(PrintBufferForm, AClosingPromptDoesNotActivateTheFormAgain) {
  const auto shown = Show41h();
  shown->user.Click("Opt_direction_3");
  shown->user.Type("TxtPrint", "Edited");
  dialogs.Answers(dialogs::Answer::kNo, [&shown] {
    QDialog box(&shown->form);
    box.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
    box.close();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&shown->form));
  });
  shown->user.Click("CmdEscI");
  EXPECT_EQ(common.PrintDirection, "3");
  EXPECT_EQ(common.DataString, "Test Print");
  shown->form.close();
}

TEST_F(PrintBufferForm, ThePrintTextIsTakenAsTypedSignsOfMarkupAndAll) {
  const auto shown = Show41h();
  QApplication::clipboard()->setText("a & b <b>\"q\"</b> 'q' \u00E9\u65E5");
  shown->user.Find<QLineEdit>("TxtPrint")->selectAll();
  QTest::keySequence(shown->user.Find("TxtPrint"), QKeySequence::Paste);
  dialogs.Types("0");
  shown->user.Click("CmdEscFf");
  EXPECT_EQ(common.DataString,
            "2,0,47,a & b <b>\"q\"</b> 'q' \u00E9\u65E5\x1B"
            "F0a & b <b>\"q\"</b> 'q' \u00E9\u65E5");
}

TEST_F(PrintBufferForm, APrintTextOfFiveHundredCharactersAndAnEmptyOne) {
  {
    const auto shown = Show41h();
    shown->user.Type("TxtPrint", QString(500, 'x'));
    dialogs.Types("1");
    shown->user.Click("CmdEscFf");
    EXPECT_EQ(common.DataString, "2,0,47," + std::string(500, 'x') +
                                     "\x1B"
                                     "F1" +
                                     std::string(500, 'x'));
  }
  const auto shown = Show41h();
  shown->user.Type("TxtPrint", "");
  dialogs.Types("1");
  shown->user.Click("CmdEscFf");
  EXPECT_EQ(common.DataString,
            "2,0,47,\x1B"
            "F1");
}

}  // namespace
}  // namespace vantrel::printdata
