// SPDX-License-Identifier: MIT

#include "printdata/frm_4e.h"

#include "tests/printdata/code_set_tables.h"
#include "tests/printdata/form_driver.h"
#include "tests/support/recording_guard.h"

#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QRadioButton>

#include <vector>

namespace vantrel::printdata {
namespace {

class BarcodeForm : public testing::Test {
 protected:
  BarcodeForm() : form((common.DataString = "left by another form", common), guard), user(form) {}

  std::string Frame(const char* name) const {
    return user.Find<QGroupBox>(name)->title().toStdString();
  }
  std::string Panel(int panel) const { return user.Label(QString("StatusBarFrm4E_%1").arg(panel)); }
  std::string Data() const { return user.Label("LblBarcodeData"); }
  bool IsEnabled(const char* name) const { return user.Find(name)->isEnabled(); }
  void ClickType(int type) const { user.Click(QString("OptBarcodeType_%1").arg(type)); }
  void ClickCodeSet(int code_set) const { user.Click(QString("OptCodeSet_%1").arg(code_set)); }
  void ClickKeys(const std::vector<int>& keys) const {
    for (const int key : keys) user.Click(QString("CmdKey_%1").arg(key));
  }
  std::string Next() {
    user.Click("CmdNext");
    EXPECT_FALSE(form.isVisible());
    return common.DataString;
  }
  // The captions of the visible keys, key 0 first. A hidden key below a visible one fails the test.
  std::vector<std::string> Keys() const {
    std::vector<std::string> captions;
    for (int i = 0; i < 103; ++i) {
      const auto* key = user.Find<QAbstractButton>(QString("CmdKey_%1").arg(i));
      if (!key->isVisible()) continue;
      EXPECT_EQ(captions.size(), static_cast<std::size_t>(i));
      captions.push_back(key->text().toStdString());
    }
    return captions;
  }

  link::CommonVariables common;
  support::RecordingGuard guard;
  Frm4E form;
  FormDriver user;
};

TEST_F(BarcodeForm, CaptionsAndStatesAtLoad) {
  EXPECT_EQ(form.windowTitle(), "4Eh Bar Code Data Setting Commands");
  EXPECT_EQ(common.DataString, "");
  const char* const types[] = {"Code 128",
                               "Code 128 with Subscript",
                               "Code 39 (3 of 9)",
                               "Code 39 (3 of 9) with Subscript",
                               "ITF (Interleaved 2 of 5)",
                               "ITF (Interleaved 2 of 5) with Subscript",
                               "CODABAR (NW-7)",
                               "CODABAR (NW-7) with Subscript"};
  for (int i = 0; i < 8; ++i)
    EXPECT_EQ(user.Caption(QString("OptBarcodeType_%1").arg(i)), types[i]);
  EXPECT_TRUE(user.Find<QRadioButton>("OptBarcodeType_0")->isChecked());
  EXPECT_EQ(Frame("FraCodeSet"), "CodeSet");
  EXPECT_TRUE(user.IsVisible("FraCodeSet"));
  EXPECT_EQ(user.Caption("OptCodeSet_0"), "Set A");
  EXPECT_EQ(user.Caption("OptCodeSet_1"), "Set B");
  EXPECT_EQ(user.Caption("OptCodeSet_2"), "Set C");
  EXPECT_TRUE(user.Find<QRadioButton>("OptCodeSet_0")->isChecked());
  EXPECT_EQ(Frame("FraStartStop"), "Start / End Characters");
  EXPECT_FALSE(user.IsVisible("FraStartStop"));
  for (const char* name : {"ComboStart", "ComboEnd"}) {
    const auto* combo = user.Find<QComboBox>(name);
    EXPECT_EQ(combo->currentText(), "A");
    QStringList items;
    for (int i = 0; i < combo->count(); ++i) items << combo->itemText(i);
    EXPECT_EQ(items, QStringList({"A", "B", "C", "D"}));
  }
  EXPECT_EQ(Frame("FraKey"), "Characters");
  EXPECT_EQ(Frame("FraBarcodeData"), "Barcode Data");
  EXPECT_EQ(user.Caption("CmdClear"), "Clear");
  EXPECT_EQ(user.Caption("CmdNext"), ">>");
  EXPECT_TRUE(IsEnabled("CmdNext"));
  EXPECT_TRUE(IsEnabled("FraKey"));
  EXPECT_EQ(Frame("FraYCoordinate"), "Y Coordinate");
  EXPECT_EQ(user.Text("TxtStartCoordinate"), "0");
  EXPECT_EQ(user.Text("TxtEndCoordinate"), "47");
  EXPECT_EQ(Data(), "");
  EXPECT_EQ(Panel(1), "");
  EXPECT_EQ(Panel(2), "");
  EXPECT_EQ(Keys(), kSetA);
}

TEST_F(BarcodeForm, TheKeysOfEveryCodeSet) {
  ClickCodeSet(1);
  EXPECT_EQ(Keys(), kSetB);
  ClickCodeSet(2);
  EXPECT_EQ(Keys(), kSetC);
  ClickCodeSet(0);
  EXPECT_EQ(Keys(), kSetA);
  // One ampersand is seen, two are its caption.
  EXPECT_EQ(user.Caption("CmdKey_6"), "&&");
}

TEST_F(BarcodeForm, TheKeysOfTheOtherTypes) {
  const std::vector<std::string> digits = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
  std::vector<std::string> code_39 = digits;
  for (const char* sign : {"-", ".", "SPC", "$", "/", "+", "%"}) code_39.emplace_back(sign);
  std::vector<std::string> codabar = digits;
  for (const char* sign : {"-", ".", ":", "$", "/", "+"}) codabar.emplace_back(sign);
  for (const int first : {2, 3}) {
    ClickType(first);
    EXPECT_EQ(Keys(), code_39);
    ClickType(first + 2);
    EXPECT_EQ(Keys(), digits);
    ClickType(first + 4);
    EXPECT_EQ(Keys(), codabar);
  }
}

// The visible keys fill their rows from the left, every row but the last whole, and stand inside
// the form with their captions whole.
void ExpectTidyKeys(const dialogs::SubForm& form) {
  std::vector<const QAbstractButton*> keys;
  for (int i = 0; i < 103; ++i) {
    const auto* key = form.findChild<QAbstractButton*>(QString("CmdKey_%1").arg(i));
    if (key->isVisible()) keys.push_back(key);
  }
  std::vector<int> row_ends;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const QRect place(keys[i]->mapTo(&form, QPoint()), keys[i]->size());
    EXPECT_TRUE(form.rect().contains(place)) << i;
    QString caption = keys[i]->text();
    caption.replace("&&", "&");
    EXPECT_GE(keys[i]->width(), keys[i]->fontMetrics().horizontalAdvance(caption) + 4) << i;
    EXPECT_GE(keys[i]->height(), keys[i]->fontMetrics().height()) << i;
    EXPECT_FALSE(keys[i]->visibleRegion().isEmpty());
    EXPECT_EQ(keys[i]->visibleRegion().boundingRect(), keys[i]->rect()) << i;
    if (i == 0) continue;
    const QRect before = keys[i - 1]->geometry();
    if (keys[i]->y() == before.y()) {
      EXPECT_EQ(keys[i]->x(), before.right() + 1 + 4) << i;
    } else {
      EXPECT_EQ(keys[i]->x(), keys[0]->x()) << i;
      EXPECT_EQ(keys[i]->y(), before.bottom() + 1 + 4) << i;
      row_ends.push_back(before.right());
    }
  }
  for (const int end : row_ends) EXPECT_EQ(end, row_ends.front());
}

TEST_F(BarcodeForm, AllKeysAreReadableOnASmallScreenAndLeaveNoHoles) {
  const auto expect_tidy = [this] {
    FormDriver::Turn();
    EXPECT_LE(form.width(), 1024);
    EXPECT_LE(form.height(), 640 - 40);  // less a title bar
    ExpectTidyKeys(form);
  };
  expect_tidy();
  for (const int code_set : {1, 2, 0}) {
    ClickCodeSet(code_set);
    expect_tidy();
  }
  for (int type = 7; type >= 0; --type) {
    ClickType(type);
    expect_tidy();
  }
}

TEST_F(BarcodeForm, AfterSetCTheKeysOfTheOthersAreAsWideAsBefore) {
  const auto place = [this](int key) {
    FormDriver::Turn();
    return user.Find(QString("CmdKey_%1").arg(key))->geometry();
  };
  const QRect of_a = place(15);  // the last of the first row
  ClickType(2);
  const QRect of_code_39 = place(9);
  ClickType(0);
  ClickCodeSet(2);
  EXPECT_NE(place(15), of_a);
  ClickCodeSet(0);
  EXPECT_EQ(place(15), of_a);
  ClickCodeSet(2);
  ClickType(2);
  EXPECT_EQ(place(9), of_code_39);
}

TEST_F(BarcodeForm, Examples) {
  ClickCodeSet(1);
  ClickKeys({33, 34});
  EXPECT_EQ(Data(), "2122");
  EXPECT_EQ(Next(), "0,47,0,B,2122");
}

TEST_F(BarcodeForm, ExampleOfCode39) {
  ClickType(2);
  EXPECT_FALSE(user.IsVisible("FraCodeSet"));
  EXPECT_FALSE(user.IsVisible("FraStartStop"));
  EXPECT_EQ(Panel(1), "Press 0 -  9, －, ．, <Space> , ＄, ／, ＋, ％");
  EXPECT_EQ(Panel(2),
            "Max 10 characters.   ＊(the start and stop code) is automatically applied. ");
  ClickKeys({1, 2, 13});
  EXPECT_EQ(Next(), "0,47,2,12$");
}

TEST_F(BarcodeForm, ExampleOfCodabarWithSubscript) {
  ClickType(7);
  EXPECT_TRUE(user.IsVisible("FraStartStop"));
  EXPECT_TRUE(user.Find("ComboStart")->isAncestorOf(QApplication::focusWidget()) ||
              user.HasFocus("ComboStart"));
  user.Find<QComboBox>("ComboEnd")->setCurrentIndex(1);
  ClickKeys({1, 2, 3});
  EXPECT_EQ(Next(), "0,47,7,AB,123");
}

TEST_F(BarcodeForm, EveryKeyOfCode39AndASpaceAtTheEnd) {
  ClickType(3);
  ClickKeys({9, 10, 11, 13, 14, 15, 16, 12});
  EXPECT_EQ(Next(), "0,47,3,9-.$/+% ");
}

TEST_F(BarcodeForm, NextWithNoDataSendsTheHeaderAlone) { EXPECT_EQ(Next(), "0,47,0,A,"); }

TEST_F(BarcodeForm, TheCloseBoxSendsNoData) {
  ClickKeys({1, 2});
  form.close();
  EXPECT_EQ(common.DataString, "");
}

TEST_F(BarcodeForm, AFullPadIsDisabledUntilClear) {
  ClickType(4);
  ClickKeys(std::vector<int>(19, 5));
  EXPECT_TRUE(IsEnabled("FraKey"));
  ClickKeys({6, 7, 8});  // the pad takes the first alone
  EXPECT_EQ(Data(), "55555555555555555556");
  EXPECT_FALSE(IsEnabled("FraKey"));
  EXPECT_EQ(Panel(1), "Data is full!!");
  EXPECT_EQ(Panel(2), "Max 20 characters");
  user.Click("CmdClear");
  EXPECT_EQ(Data(), "");
  EXPECT_TRUE(IsEnabled("FraKey"));
  EXPECT_FALSE(IsEnabled("CmdNext"));
  EXPECT_EQ(Panel(1), "");
  ClickKeys({7});
  EXPECT_TRUE(IsEnabled("CmdNext"));
  EXPECT_EQ(Next(), "0,47,4,7");
}

TEST_F(BarcodeForm, ATypeChangeLeavesAFullPadDisabled) {
  ClickType(2);
  ClickKeys(std::vector<int>(10, 1));
  ClickType(6);
  EXPECT_EQ(Data(), "");
  EXPECT_FALSE(IsEnabled("FraKey"));
  EXPECT_EQ(Panel(1), "Press 0 -  9, －, ．, ：, ＄, ／, ＋");
  EXPECT_EQ(Panel(2), "Max 13 characters");
  user.Click("CmdClear");
  EXPECT_TRUE(IsEnabled("FraKey"));
}

TEST_F(BarcodeForm, ACode128TypeOrACodeSetEnablesAFullPad) {
  ClickKeys(std::vector<int>(11, 1));
  EXPECT_FALSE(IsEnabled("FraKey"));
  ClickCodeSet(0);  // selected already; the click counts
  EXPECT_TRUE(IsEnabled("FraKey"));
  EXPECT_EQ(Data(), "");
  EXPECT_EQ(Panel(1), "");
  ClickKeys(std::vector<int>(11, 1));
  ClickType(0);  // selected already; the click counts
  EXPECT_TRUE(IsEnabled("FraKey"));
  EXPECT_FALSE(IsEnabled("CmdNext"));
  EXPECT_EQ(Data(), "");
  EXPECT_EQ(Panel(1),
            "Press the keys of the code set; a code change inside the data is a key (CodeA, CodeB, "
            "CodeC, Shift)");
  EXPECT_EQ(Panel(2), "Max 11 characters.");
}

TEST_F(BarcodeForm, ACode128TypeShowsSetAButSendsTheSelectedSetsLetter) {
  ClickCodeSet(1);
  ClickType(1);
  EXPECT_EQ(Keys(), kSetA);
  EXPECT_TRUE(user.Find<QRadioButton>("OptCodeSet_1")->isChecked());
  ClickKeys({65});
  EXPECT_EQ(Next(), "0,47,1,B,41");
}

TEST_F(BarcodeForm, AnArrowKeyCountsAsAClick) {
  ClickType(2);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  FormDriver::Turn();
  EXPECT_TRUE(user.Find<QRadioButton>("OptBarcodeType_3")->isChecked());
  ClickKeys({12});
  user.Find("OptBarcodeType_3")->setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_EQ(Data(), "");
  EXPECT_EQ(Panel(2), "Max 20 characters");
}

TEST_F(BarcodeForm, AnArrowKeyToCodabarGivesTheFocusToTheStartCharacter) {
  ClickType(5);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  FormDriver::Turn();
  EXPECT_TRUE(user.Find<QRadioButton>("OptBarcodeType_6")->isChecked());
  EXPECT_TRUE(user.Find("ComboStart")->hasFocus());
}

TEST_F(BarcodeForm, TypedStartAndEndCharactersStayAsTyped) {
  ClickType(6);
  for (const char* name : {"ComboStart", "ComboEnd"}) {
    auto* combo = user.Find<QComboBox>(name);
    QTest::mouseClick(combo->lineEdit(), Qt::LeftButton);
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo->lineEdit(), name == std::string("ComboStart") ? "a" : "b*");
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    QTest::keyClick(combo->lineEdit(), Qt::Key_Tab);
    FormDriver::Turn();
    EXPECT_EQ(combo->count(), 4);
  }
  EXPECT_EQ(user.Find<QComboBox>("ComboStart")->currentText(), "a");
  EXPECT_TRUE(form.isVisible());
  ClickKeys({4});
  EXPECT_EQ(Next(), "0,47,6,ab*,4");
}

TEST_F(BarcodeForm, TheStartCoordinateTakesDigitsAndDeleteButNoBackspace) {
  auto* field = user.Find<QLineEdit>("TxtStartCoordinate");
  user.Type("TxtStartCoordinate", "1x2-3");
  EXPECT_EQ(field->text(), "123");
  QTest::keyClick(field, Qt::Key_Backspace);
  EXPECT_EQ(field->text(), "123");
  QTest::keyClick(field, Qt::Key_Home);
  QTest::keyClick(field, Qt::Key_Delete);
  EXPECT_EQ(field->text(), "23");
  field->selectAll();
  QTest::keyClick(field, Qt::Key_Delete);
  EXPECT_EQ(field->text(), "");
  user.Click("CmdClear");
  ClickKeys({0});
  EXPECT_EQ(Next(), ",47,0,A,00");
}

TEST_F(BarcodeForm, TheEndCoordinateTakesAnything) {
  QApplication::clipboard()->setText("a<b>&,\u00E9");
  auto* field = user.Find<QLineEdit>("TxtEndCoordinate");
  user.Type("TxtEndCoordinate", "x -9");
  QTest::keyClick(field, Qt::Key_Backspace);
  QTest::keySequence(field, QKeySequence::Paste);
  EXPECT_EQ(Next(), "0,x -a<b>&,\u00E9,0,A,");
}

TEST_F(BarcodeForm, NoCoordinateIsRangeChecked) {
  user.Type("TxtStartCoordinate", "99999");
  user.Type("TxtEndCoordinate", "");
  EXPECT_EQ(Next(), "99999,,0,A,");
}

TEST_F(BarcodeForm, EnterAndEscapeDoNothing) {
  for (const char* name :
       {"TxtStartCoordinate", "TxtEndCoordinate", "CmdKey_5", "CmdNext", "CmdClear"}) {
    user.Find(name)->setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
      QTest::keyClick(QApplication::focusWidget(), key);
    FormDriver::Turn();
    EXPECT_TRUE(form.isVisible()) << name;
    EXPECT_EQ(Data(), "");
    EXPECT_TRUE(IsEnabled("CmdNext"));
  }
}

}  // namespace
}  // namespace vantrel::printdata
