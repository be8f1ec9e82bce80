// SPDX-License-Identifier: MIT

#include "editors/frm_5a.h"

#include "tests/editors/editor_forms.h"
#include "tests/support/recording_guard.h"
#include "tests/support/scripted_dialogs.h"

#include <QApplication>
#include <QGroupBox>
#include <QRadioButton>
#include <QTimer>

namespace vantrel::editors {
namespace {

class Frm5ATest : public testing::Test {
 protected:
  // Shows the form modally; `work` runs on it and has to close it.
  template <typename Work>
  void Exec(Work work) {
    Frm5A form(common_, dialogs_, guard_);
    QTimer::singleShot(0, &form, [&] { work(form); });
    form.exec();
  }

  link::CommonVariables common_;
  support::ScriptedDialogs dialogs_;
  support::RecordingGuard guard_;
};

TEST_F(Frm5ATest, NextAtOnceSends203120) {
  Exec([](Frm5A& form) { ClickControl(form, "CmdNext"); });
  EXPECT_EQ(common_.ControlDataString, "203120");
}

TEST_F(Frm5ATest, TheCloseBoxSendsNothing) {
  Exec([](Frm5A& form) {
    ClickControl(form, "OptLED_3");
    form.close();
  });
  EXPECT_EQ(common_.ControlDataString, "");
  EXPECT_EQ(common_.DataString, "");
}

TEST_F(Frm5ATest, EnterAndEscapeCloseNothing) {
  Exec([this](Frm5A& form) {
    QTest::keyClick(&form, Qt::Key_Return);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(common_.ControlDataString, "");
    form.close();
  });
}

TEST_F(Frm5ATest, CaptionsNamesAndSelectionAtLoad) {
  Exec([](Frm5A& form) {
    EXPECT_EQ(form.windowTitle(), "Form5A");
    EXPECT_EQ(Find<QGroupBox>(form, "FraLED").title(), "LED - Alert Cycle");
    EXPECT_EQ(Find<QGroupBox>(form, "FraLEDColor").title(), "LED Color");
    EXPECT_EQ(Find<QGroupBox>(form, "FraBuzzer").title(), "Buzzer - Alert Cycles");
    const QStringList led = {
        "Keep Current Setting", "Turn OFF LED", "Turn ON LED", "Flashing", "1 Cycle", "3 Cycles"};
    const QStringList color = {"Green", "Orange", "Red"};
    const QStringList buzzer = {"Keep Current Setting",
                                "Turn OFF buzzer",
                                "Turn ON buzzer",
                                "Buzzling",
                                "1 Cycle",
                                "3 Cycles"};
    for (int i = 0; i < 6; ++i) {
      auto& option = Find<QRadioButton>(form, QString("OptLED_%1").arg(i));
      EXPECT_EQ(option.text(), led[i]);
      EXPECT_FALSE(option.isChecked());
      auto& sound = Find<QRadioButton>(form, QString("OptBuzzer_%1").arg(i));
      EXPECT_EQ(sound.text(), buzzer[i]);
      EXPECT_FALSE(sound.isChecked());
    }
    for (int i = 0; i < 3; ++i) {
      auto& option = Find<QRadioButton>(form, QString("OptLEDColor_%1").arg(i));
      EXPECT_EQ(option.text(), color[i]);
      EXPECT_EQ(option.isChecked(), i == 0);
    }
    EXPECT_EQ(Find<QPushButton>(form, "CmdNext").text(), ">>");
    form.close();
  });
}

TEST_F(Frm5ATest, FlashingRedWithOneCycleOfTheBuzzer) {
  Exec([](Frm5A& form) {
    for (const char* option : {"OptLED_3", "OptLEDColor_2", "OptBuzzer_4"}) {
      QTest::mouseClick(&Find<QRadioButton>(form, option), Qt::LeftButton, {}, QPoint(8, 8));
      EXPECT_TRUE(Find<QRadioButton>(form, option).isChecked()) << option;
    }
    EXPECT_FALSE(Find<QRadioButton>(form, "OptLEDColor_0").isChecked());
    ClickControl(form, "CmdNext");
  });
  EXPECT_EQ(common_.ControlDataString, "333232");
}

TEST_F(Frm5ATest, AnArrowKeySelectsAsAClickDoes) {
  Exec([](Frm5A& form) {
    ShowActive(form);
    // A group with a selection and one with none.
    for (const QString group : {"OptLEDColor", "OptLED"}) {
      auto& first = Find<QRadioButton>(form, group + "_0");
      first.setFocus();
      QTest::keyClick(&first, Qt::Key_Down);
      EXPECT_TRUE(Find<QRadioButton>(form, group + "_1").isChecked());
      EXPECT_FALSE(first.isChecked());
    }
    ClickControl(form, "CmdNext");
  });
  EXPECT_EQ(common_.ControlDataString, "203330");
}

TEST_F(Frm5ATest, TheFocusAloneSelectsNothing) {
  Exec([](Frm5A& form) {
    ShowActive(form);
    Find<QRadioButton>(form, "OptBuzzer_3").setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(Find<QRadioButton>(form, "OptBuzzer_3").isChecked());
    ClickControl(form, "CmdNext");
  });
  EXPECT_EQ(common_.ControlDataString, "203120");
}

TEST_F(Frm5ATest, ChoicesAreNotKeptBetweenOpenings) {
  Exec([](Frm5A& form) {
    ClickControl(form, "OptLEDColor_2");
    ClickControl(form, "CmdNext");
  });
  Exec([](Frm5A& form) { ClickControl(form, "CmdNext"); });
  EXPECT_EQ(common_.ControlDataString, "203120");
}

TEST_F(Frm5ATest, AnIndexOutsideItsGroupIsReportedAndChangesNothing) {
  Frm5A form(common_, dialogs_, guard_);
  const auto expect = [&](const char* prompt, const char* title) {
    EXPECT_EQ(dialogs_.Last().prompt, prompt);
    EXPECT_EQ(dialogs_.Last().title, title);
    EXPECT_EQ(dialogs_.Last().buttons, dialogs::Buttons::kOk);
  };
  for (int i = 0; i < 3; ++i) dialogs_.Answers(dialogs::Answer::kOk);
  form.OptLED_Click(6);
  expect("Error found in the option of LED Operation", "LED Operation Frame");
  form.OptLEDColor_Click(3);
  expect("Error found in the option of LED Color", "LED Color Frame");
  form.OptBuzzer_Click(-1);
  expect("Error found in the option of Buzzer", "Buzzer Frame");
  EXPECT_TRUE(Find<QRadioButton>(form, "OptLEDColor_0").isChecked());
  form.show();
  ClickControl(form, "CmdNext");
  EXPECT_EQ(common_.ControlDataString, "203120");
}

}  // namespace
}  // namespace vantrel::editors
