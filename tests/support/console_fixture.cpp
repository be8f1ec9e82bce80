// SPDX-License-Identifier: MIT

#include "tests/support/console_fixture.h"

#include "console/guarded_application.h"
#include "console/system_time.h"
#include "tests/support/current_dialogs.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace vantrel::support {

ConsoleTest::ConsoleTest()
    : port_([this](int number) { return number == 1 ? first_device_ : second_device_; }) {
  CurrentDialogs::Instance().Set(&dialogs_);
  CurrentDialogs::Instance().end_status = -1;
}

ConsoleTest::~ConsoleTest() {
  form_.reset();
  CurrentDialogs::Instance().Set(nullptr);
}

void ConsoleTest::Load() {
  form_ = std::make_unique<console::FrmVantrel>(
      port_, dialogs_, dynamic_cast<console::GuardedApplication&>(*qApp),
      console::SystemTimeOf(QLocale::c()), link::CodePage::kWestern,
      [this](int status) { end_status_ = status; });
  form_->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(form_.get()));
}

void ConsoleTest::Press(const char* name) { QTest::mouseClick(Button(name), Qt::LeftButton); }

void ConsoleTest::Choose(const char* name) {
  auto* entry = form_->findChild<QAction*>(name);
  ASSERT_NE(entry, nullptr) << name;
  QMetaObject::invokeMethod(entry, &QAction::trigger, Qt::QueuedConnection);
  QCoreApplication::processEvents();
}

void ConsoleTest::AnswerAll(const std::string& data_hex, const std::string& status) {
  peer_.OnFrame([=, this](const std::string& frame) {
    peer_.Send(PtyPeer::Reply(frame.substr(2, 2), data_hex, status));
  });
}

void ConsoleTest::Once(std::function<bool()> condition, std::function<void()> act) {
  auto* timer = new QTimer(form_.get());
  QObject::connect(timer, &QTimer::timeout, timer,
                   [timer, condition = std::move(condition), act = std::move(act)] {
                     if (!condition()) return;
                     timer->stop();
                     act();
                   });
  timer->start(1);
}

void ConsoleTest::OnForm(std::function<void(QDialog&)> act) {
  const auto form = [] { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); };
  Once([form] { return form() != nullptr && form()->isVisible(); },
       [form, act = std::move(act)] { act(*form()); });
}

void ConsoleTest::Click(QDialog& form, const char* name) {
  auto* button = form.findChild<QAbstractButton*>(name);
  ASSERT_NE(button, nullptr) << name;
  QTest::mouseClick(button, Qt::LeftButton);
}

void ConsoleTest::Type(QDialog& form, const char* name, const char* text) {
  auto* box = form.findChild<QLineEdit*>(name);
  ASSERT_NE(box, nullptr) << name;
  box->selectAll();
  QTest::keyClick(box, Qt::Key_Delete);
  QTest::keyClicks(box, text);
}

void ConsoleTest::ClickDot(QDialog& form, const char* grid_name, int index) {
  auto* grid = form.findChild<QWidget*>(grid_name);
  ASSERT_NE(grid, nullptr) << grid_name;
  QRect dot;
  ASSERT_TRUE(
      QMetaObject::invokeMethod(grid, "DotRect", Q_RETURN_ARG(QRect, dot), Q_ARG(int, index)));
  ASSERT_FALSE(dot.isEmpty());
  QTest::mouseClick(grid, Qt::LeftButton, {}, dot.center());
}

QPushButton* ConsoleTest::Button(const char* name) {
  auto* button = form_->findChild<QPushButton*>(name);
  EXPECT_NE(button, nullptr) << name;
  return button;
}

std::string ConsoleTest::Text(const char* name) {
  auto* widget = form_->findChild<QWidget*>(name);
  if (widget == nullptr) {
    ADD_FAILURE() << "There is no control " << name;
    return {};
  }
  return widget->property("text").toString().toStdString();
}

bool ConsoleTest::IsChecked(const char* entry) {
  auto* action = form_->findChild<QAction*>(entry);
  EXPECT_NE(action, nullptr) << entry;
  return action != nullptr && action->isChecked();
}

}  // namespace vantrel::support
