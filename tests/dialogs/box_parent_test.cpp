// SPDX-License-Identifier: MIT

// To which window a box belongs.

#include "dialogs/window_dialogs.h"

#include <QApplication>
#include <QDialog>
#include <QFontDatabase>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>

namespace vantrel::dialogs {
namespace {

class BoxParentTest : public testing::Test {
 protected:
  // Runs `look` on the box that opens next and closes it.
  static void OnBox(std::function<void(QDialog&)> look) {
    auto* timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, timer, [timer, look = std::move(look)] {
      auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (box == nullptr || !box->isVisible() || box->objectName() == "form") return;
      timer->stop();
      timer->deleteLater();
      look(*box);
      box->reject();
    });
    timer->start(1);
  }
  WindowDialogs dialogs_;
};

TEST_F(BoxParentTest, TheSecondBoxOfASequenceHasTheParentOfTheFirst) {
  QMainWindow console;
  console.show();
  console.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&console));
  for (int i = 0; i < 3; ++i) {
    OnBox([&](QDialog& box) { EXPECT_EQ(box.parentWidget(), &console); });
    // As while a window manager has not yet given the focus back.
    QApplication::setActiveWindow(nullptr);
    dialogs_.InputBox("Prompt", "Title");
  }
}

TEST_F(BoxParentTest, ABoxOfAFormBelongsToTheForm) {
  QMainWindow console;
  console.show();
  QDialog form(&console);
  form.setObjectName("form");
  QTimer::singleShot(0, &form, [&] {
    for (int i = 0; i < 2; ++i) {
      QApplication::setActiveWindow(nullptr);
      OnBox([&](QDialog& box) { EXPECT_EQ(box.parentWidget(), &form); });
      dialogs_.MsgBox("Prompt", Buttons::kOk, "Title");
    }
    form.reject();
  });
  form.exec();
}

TEST_F(BoxParentTest, AHiddenWindowIsNoParent) {
  QMainWindow console;
  QMainWindow other;
  console.show();
  OnBox([&](QDialog& box) { EXPECT_EQ(box.parentWidget(), &console); });
  dialogs_.InputBox("Prompt", "Title");
  console.hide();
  other.show();
  OnBox([&](QDialog& box) { EXPECT_EQ(box.parentWidget(), &other); });
  QApplication::setActiveWindow(nullptr);
  dialogs_.InputBox("Prompt", "Title");
}

TEST_F(BoxParentTest, ABoxIsWideEnoughForItsTitle) {
  const QString title(50, 'M');
  const int wanted =
      QFontMetrics(QFontDatabase::systemFont(QFontDatabase::TitleFont)).horizontalAdvance(title);
  OnBox([&](QDialog& box) { EXPECT_GT(box.width(), wanted); });
  dialogs_.InputBox("Prompt", title.toStdString());
  OnBox([&](QDialog& box) { EXPECT_GT(box.width(), wanted); });
  dialogs_.MsgBox("Prompt", Buttons::kOk, title.toStdString());
}

}  // namespace
}  // namespace vantrel::dialogs
