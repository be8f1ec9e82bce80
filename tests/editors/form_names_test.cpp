// SPDX-License-Identifier: MIT

// Names for a screen reader and letters behind Alt in the editing forms, step by step.

#include "editors/frm_5a.h"
#include "editors/frm_external_font.h"
#include "editors/frm_external_image.h"
#include "tests/editors/editor_forms.h"
#include "tests/support/recording_guard.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/window_checks.h"

namespace vantrel::editors {
namespace {

class FormNamesTest : public testing::Test {
 protected:
  static void ExpectNamesAndLetters(const QWidget& form) {
    EXPECT_EQ(support::UnnamedIn(form), QStringList());
    EXPECT_EQ(support::MnemonicsTwiceIn(form), QStringList());
  }
  static QString NameOf(const QWidget& form, const char* control) {
    return QAccessible::queryAccessibleInterface(&Find<QWidget>(form, control))
        ->text(QAccessible::Name);
  }

  link::CommonVariables common_;
  support::ScriptedDialogs dialogs_;
  support::RecordingGuard guard_;
};

TEST_F(FormNamesTest, OfLedAndBuzzer) {
  Frm5A form(common_, dialogs_, guard_);
  ShowActive(form);
  ExpectNamesAndLetters(form);
  // The same caption stands in two frames.
  EXPECT_EQ(NameOf(form, "OptLED_4"), "1 Cycle");
  EXPECT_EQ(NameOf(form, "CmdNext"), "Next");
}

TEST_F(FormNamesTest, OfFonts) {
  for (const bool is_double_byte : {false, true}) {
    common_.IsDoubleByteFont = is_double_byte;
    FrmExternalFont form(common_, dialogs_, guard_);
    ShowActive(form);
    ExpectNamesAndLetters(form);
    ClickControl(form, "CmdAll_0");
    ExpectNamesAndLetters(form);
    EXPECT_EQ(Find<QLabel>(form, "LblImageNo").buddy(), &Find<QWidget>(form, "ComboImageNo"));
    EXPECT_EQ(NameOf(form, "CmdNext"), "Next");
  }
}

TEST_F(FormNamesTest, OfImagesInEitherStep) {
  for (const bool is_block_mode : {false, true}) {
    common_.IsBlockMode = is_block_mode;
    FrmExternalImage form(common_, dialogs_, guard_);
    ShowActive(form);
    ExpectNamesAndLetters(form);
    EXPECT_EQ(NameOf(form, "TxtXCoordinate"), "X-Coordinate");
    EXPECT_EQ(NameOf(form, "TxtYCoordinate"), "Y-Coordinate");
    ClickControl(form, "CmdSet");
    ASSERT_TRUE(Find<QWidget>(form, "Lbldot").isVisible());
    ExpectNamesAndLetters(form);
    EXPECT_EQ(NameOf(form, "CmdNext"), "Next");
  }
}

}  // namespace
}  // namespace vantrel::editors
