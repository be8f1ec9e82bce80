// SPDX-License-Identifier: MIT

#include "dialogs/window_dialogs.h"
#include "printdata/frm_print_buffer.h"
#include "tests/printdata/form_driver.h"
#include "tests/support/recording_guard.h"
#include "tests/support/wait_for.h"

#include <QTimer>
#include <QWindow>

#include <vector>

namespace vantrel::printdata {
namespace {

// Range messages in real boxes, driven by events of the window system's kind: a box must not take
// the click away that opened it.
class RealBoxes : public testing::Test {
 protected:
  RealBoxes() {
    // Whenever a box stands over the form, notes its title and presses Enter in it.
    answering_.setInterval(0);
    QObject::connect(&answering_, &QTimer::timeout, [this] {
      QWidget* box = QApplication::activeModalWidget();
      if (box == nullptr || box->objectName() == "FrmPrintBuffer") return;
      titles.push_back(box->windowTitle().toStdString());
      QTest::keyClick(box, Qt::Key_Return);
    });
    answering_.start();
  }

  // Presses and releases the mouse as the window system does.
  static void ClickThroughWindow(const dialogs::SubForm& form, const QString& name) {
    const auto* control = form.findChild<QWidget*>(name);
    QTest::mouseClick(form.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      control->mapTo(&form, control->rect().center()));
  }

  dialogs::WindowDialogs dialogs;
  support::RecordingGuard guard;
  std::vector<std::string> titles;

 private:
  QTimer answering_;
};

TEST_F(RealBoxes, AClickOnNextThatLeavesAWrongFieldIsNotLost) {
  link::CommonVariables common;
  common.IsPrintData = false;
  FrmPrintBuffer form(common, dialogs, guard);
  QTimer::singleShot(0, [&form] {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    form.findChild<QWidget*>("TxtImageNo")->setFocus();
    form.findChild<QLineEdit*>("TxtImageNo")->setText("2000");
    ClickThroughWindow(form, "CmdNext");
  });
  form.exec();
  EXPECT_EQ(titles, std::vector<std::string>{"Invalid X coordinate"});
  EXPECT_EQ(common.DataString, "2,0,47,2000");
}

TEST_F(RealBoxes, ALeftFieldsMessageAndTheButtonsPromptComeOneAfterTheOther) {
  link::CommonVariables common;
  common.IsPrintData = true;
  FrmPrintBuffer form(common, dialogs, guard);
  QTimer::singleShot(0, [&form] {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    form.findChild<QWidget*>("TxtYCoordinate")->setFocus();
    form.findChild<QLineEdit*>("TxtYCoordinate")->setText("480");
    ClickThroughWindow(form, "CmdEscMm");
  });
  form.exec();
  EXPECT_EQ(titles, (std::vector<std::string>{"Invalid Y coordinate",
                                              "ESC M/m : Sets the dot space between lines"}));
  // Enter in the empty input box is 0.
  EXPECT_EQ(common.DataString,
            "2,0,480,\x1BM00\r\nTest Print\r\nTest Print\r\nTest Print\r\nTest Print");
}

TEST_F(RealBoxes, AWrongFieldLeftForAnotherKeepsTheFocusAfterOneBox) {
  link::CommonVariables common;
  common.IsPrintData = true;
  FrmPrintBuffer form(common, dialogs, guard);
  const FormDriver user(form);
  user.Find("TxtXCoordinate")->setFocus();
  user.Find<QLineEdit>("TxtXCoordinate")->setText("320");
  user.Find<QLineEdit>("TxtYCoordinate")->setText("480");
  ClickThroughWindow(form, "TxtYCoordinate");
  ASSERT_TRUE(support::WaitFor([this] { return !titles.empty(); }));
  // Off-screen there is no window manager that would do so.
  form.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  FormDriver::Turn();
  EXPECT_EQ(titles, std::vector<std::string>{"Invalid X coordinate"});
  EXPECT_TRUE(user.HasFocus("TxtXCoordinate"));
}

}  // namespace
}  // namespace vantrel::printdata
