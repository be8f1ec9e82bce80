// SPDX-License-Identifier: MIT

#include "dialogs/window_dialogs.h"

#include "tests/support/window_checks.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>

namespace vantrel::dialogs {
namespace {

// Runs `act` on the box that opens next, once it is shown.
void OnBox(std::function<void(QDialog*)> act) {
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, act = std::move(act)] {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    timer->stop();
    timer->deleteLater();
    act(box);
  });
  timer->start(1);
}

void PressButton(QDialog* box, const QString& text) {
  for (auto* button : box->findChildren<QAbstractButton*>()) {
    if (button->text().remove('&') != text) continue;
    QTest::mouseClick(button, Qt::LeftButton);
    return;
  }
  ADD_FAILURE() << "There is no button " << text.toStdString();
  box->close();
}

QStringList ButtonsOf(QDialog* box) {
  QStringList texts;
  for (auto* button : box->findChildren<QAbstractButton*>())
    if (button->isVisible()) texts += button->text().remove('&');
  texts.sort();
  return texts;
}

TEST(MsgBox, ShowsPromptTitleAndButtonsAndReturnsTheAnswer) {
  WindowDialogs dialogs;
  struct Case {
    Buttons buttons;
    QStringList texts;
    QString press;
    Answer answer;
  };
  for (const Case& row :
       {Case{Buttons::kOk, {"OK"}, "OK", Answer::kOk},
        {Buttons::kYesNo, {"No", "Yes"}, "Yes", Answer::kYes},
        {Buttons::kYesNo, {"No", "Yes"}, "No", Answer::kNo},
        {Buttons::kYesNoCancel, {"Cancel", "No", "Yes"}, "Yes", Answer::kYes},
        {Buttons::kYesNoCancel, {"Cancel", "No", "Yes"}, "No", Answer::kNo},
        {Buttons::kYesNoCancel, {"Cancel", "No", "Yes"}, "Cancel", Answer::kCancel}}) {
    OnBox([&row](QDialog* box) {
      EXPECT_EQ(box->windowTitle(), "A title ");
      EXPECT_EQ(box->property("text").toString(), "One & two\r\n<b>three</b>");
      EXPECT_EQ(box->property("textFormat").toInt(), Qt::PlainText);
      EXPECT_EQ(ButtonsOf(box), row.texts);
      PressButton(box, row.press);
    });
    EXPECT_EQ(dialogs.MsgBox("One & two\r\n<b>three</b>", row.buttons, "A title "), row.answer);
  }
}

TEST(MsgBox, ShowsALongWordWholeAndKeepsItsText) {
  WindowDialogs dialogs;
  const std::string text = "0,0," + std::string(144, 'F');
  OnBox([&](QDialog* box) {
    EXPECT_EQ(box->property("text").toString().toStdString(), text);
    bool shown_whole = false;
    for (auto* label : box->findChildren<QLabel*>()) {
      if (!label->isVisible() || label->text().remove(QChar(0x200B)).toStdString() != text)
        continue;
      const QRect needed = label->fontMetrics().boundingRect(QRect(0, 0, label->width(), 10000),
                                                             Qt::TextWordWrap, label->text());
      shown_whole = needed.width() <= label->width() && needed.height() <= label->height();
    }
    EXPECT_TRUE(shown_whole);
    box->close();
  });
  dialogs.MsgBox(text, Buttons::kOk, "Print Data");
}

TEST(MsgBox, ItsCloseBoxCountsAsNoOrCancel) {
  WindowDialogs dialogs;
  const auto close = [](QDialog* box) { box->close(); };
  OnBox(close);
  EXPECT_EQ(dialogs.MsgBox("?", Buttons::kYesNo, ""), Answer::kNo);
  OnBox(close);
  EXPECT_EQ(dialogs.MsgBox("?", Buttons::kYesNoCancel, ""), Answer::kCancel);
  OnBox(close);
  EXPECT_EQ(dialogs.MsgBox("?", Buttons::kOk, ""), Answer::kOk);
}

QLabel* PromptOf(QDialog* box) { return box->findChild<QLabel*>(); }

TEST(InputBox, ShowsAnAmpersandInItsPrompt) {
  WindowDialogs dialogs;
  OnBox([](QDialog* box) {
    ASSERT_NE(PromptOf(box), nullptr);
    EXPECT_EQ(PromptOf(box)->text(), "R&W: <b>erase</b>\r\nPress '2'");
    EXPECT_EQ(PromptOf(box)->textFormat(), Qt::PlainText);
    // With a buddy the label would swallow the sign.
    EXPECT_EQ(PromptOf(box)->buddy(), nullptr);
    box->close();
  });
  EXPECT_EQ(dialogs.InputBox("R&W: <b>erase</b>\r\nPress '2'", "Title"), "");
}

TEST(InputBox, NamesItsTextByThePrompt) {
  WindowDialogs dialogs;
  OnBox([](QDialog* box) {
    EXPECT_EQ(support::UnnamedIn(*box), QStringList());
    EXPECT_EQ(support::MnemonicsTwiceIn(*box), QStringList());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(box->findChild<QLineEdit*>())
                  ->text(QAccessible::Name),
              "R&W: 1 or 2?");
    box->close();
  });
  dialogs.InputBox("R&W: 1 or 2?", "Title", "2");
}

TEST(MsgBox, NamesEveryWidgetAndHasNoMnemonicTwice) {
  WindowDialogs dialogs;
  for (const Buttons buttons : {Buttons::kOk, Buttons::kYesNo, Buttons::kYesNoCancel}) {
    OnBox([](QDialog* box) {
      EXPECT_EQ(support::UnnamedIn(*box), QStringList());
      EXPECT_EQ(support::MnemonicsTwiceIn(*box), QStringList());
      box->close();
    });
    dialogs.MsgBox("?", buttons, "Title", Icon::kExclamation);
  }
}

TEST(InputBox, HoldsTheDefaultAndReturnsWhatWasTyped) {
  WindowDialogs dialogs;
  OnBox([](QDialog* box) {
    auto* edit = box->findChild<QLineEdit*>();
    EXPECT_EQ(edit->text(), "2");
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, " ab ");
    PressButton(box, "OK");
  });
  EXPECT_EQ(dialogs.InputBox("?", "Title", "2"), " ab ");
}

TEST(InputBox, CancelledReturnsAnEmptyText) {
  WindowDialogs dialogs;
  OnBox([](QDialog* box) { PressButton(box, "Cancel"); });
  EXPECT_EQ(dialogs.InputBox("?", "Title", "2"), "");
}

TEST(MsgBox, EnterAnswersYesOrOkAndEscapeNoOrCancel) {
  WindowDialogs dialogs;
  const auto press = [](Qt::Key key) { return [key](QDialog* box) { QTest::keyClick(box, key); }; };
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    OnBox(press(key));
    EXPECT_EQ(dialogs.MsgBox("?", Buttons::kYesNo, ""), Answer::kYes);
    OnBox(press(key));
    EXPECT_EQ(dialogs.MsgBox("?", Buttons::kYesNoCancel, ""), Answer::kYes);
    OnBox(press(key));
    EXPECT_EQ(dialogs.MsgBox("?", Buttons::kOk, ""), Answer::kOk);
  }
  OnBox(press(Qt::Key_Escape));
  EXPECT_EQ(dialogs.MsgBox("?", Buttons::kYesNo, ""), Answer::kNo);
  OnBox(press(Qt::Key_Escape));
  EXPECT_EQ(dialogs.MsgBox("?", Buttons::kYesNoCancel, ""), Answer::kCancel);
}

TEST(MsgBox, HasTheIconThatIsAskedFor) {
  WindowDialogs dialogs;
  struct Case {
    Icon icon;
    QMessageBox::Icon shown;
  };
  for (const Case& row : {Case{Icon::kNone, QMessageBox::NoIcon},
                          {Icon::kExclamation, QMessageBox::Warning},
                          {Icon::kCritical, QMessageBox::Critical}}) {
    OnBox([&row](QDialog* box) {
      EXPECT_EQ(qobject_cast<QMessageBox*>(box)->icon(), row.shown);
      box->close();
    });
    dialogs.MsgBox("?", Buttons::kOk, "", row.icon);
  }
}

}  // namespace
}  // namespace vantrel::dialogs
