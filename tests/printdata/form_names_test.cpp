// SPDX-License-Identifier: MIT

// Names for a screen reader and letters behind Alt in the print data forms.

#include "printdata/frm_4e.h"
#include "printdata/frm_print_buffer.h"
#include "tests/printdata/form_driver.h"
#include "tests/support/recording_guard.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/window_checks.h"

namespace vantrel::printdata {
namespace {

class FormNamesTest : public testing::Test {
 protected:
  static void ExpectNamesAndLetters(const QWidget& form, const std::string& where) {
    EXPECT_EQ(support::UnnamedIn(form), QStringList()) << where;
    EXPECT_EQ(support::MnemonicsTwiceIn(form), QStringList()) << where;
  }
  static QString NameOf(const FormDriver& user, const char* control) {
    return QAccessible::queryAccessibleInterface(user.Find(control))->text(QAccessible::Name);
  }

  link::CommonVariables common_;
  support::ScriptedDialogs dialogs_;
  support::RecordingGuard guard_;
};

TEST_F(FormNamesTest, OfPrintData) {
  common_.IsPrintData = true;
  FrmPrintBuffer form(common_, dialogs_, guard_);
  const FormDriver user(form);
  for (const char* direction : {"Opt_direction_0", "Opt_direction_1"}) {
    user.Click(direction);
    ExpectNamesAndLetters(form, direction);
  }
  EXPECT_EQ(NameOf(user, "TxtPrint"), "Print Text");
  EXPECT_EQ(NameOf(user, "TxtXCoordinate"), "X-Coordinate");
}

TEST_F(FormNamesTest, OfImageExpansion) {
  common_.IsPrintData = false;
  FrmPrintBuffer form(common_, dialogs_, guard_);
  const FormDriver user(form);
  ExpectNamesAndLetters(form, "42h");
  EXPECT_EQ(NameOf(user, "TxtImageNo"), "Image No");
  EXPECT_EQ(NameOf(user, "CmdNext"), "Next");
}

TEST_F(FormNamesTest, OfBarcodesOfEveryType) {
  Frm4E form(common_, guard_);
  const FormDriver user(form);
  for (int type = 0; type < 8; ++type) {
    const QString option = QString("OptBarcodeType_%1").arg(type);
    user.Click(option);
    ExpectNamesAndLetters(form, option.toStdString());
  }
  user.Click("OptBarcodeType_0");
  for (int code_set = 0; code_set < 3; ++code_set) {
    const QString option = QString("OptCodeSet_%1").arg(code_set);
    user.Click(option);
    ExpectNamesAndLetters(form, option.toStdString());
  }
  EXPECT_EQ(NameOf(user, "CmdNext"), "Next");
  EXPECT_EQ(NameOf(user, "LblBarcodeData"), "Barcode data: none");
  user.Click("OptBarcodeType_2");
  user.Click("CmdKey_7");
  EXPECT_EQ(NameOf(user, "LblBarcodeData"), "Barcode data: 7");
}

}  // namespace
}  // namespace vantrel::printdata
