// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/sub_form.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

#include <string>

namespace vantrel::printdata {

// Drives a form as a user does, its controls found by their names.
class FormDriver {
 public:
  explicit FormDriver(dialogs::SubForm& form) : form_(form) {
    form.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
  }

  template <typename Control = QWidget>
  Control* Find(const QString& name) const {
    auto* control = form_.findChild<Control*>(name);
    if (control == nullptr) ADD_FAILURE() << "no control " << name.toStdString();
    return control;
  }

  void Click(const QString& name) const {
    QTest::mouseClick(Find(name), Qt::LeftButton);
    Turn();
  }
  // Replaces the text of a box as a user does: clicks it, selects all and types over.
  void Type(const QString& name, const QString& text) const {
    auto* box = Find<QLineEdit>(name);
    Click(name);
    box->selectAll();
    if (text.isEmpty())
      box->clear();
    else
      QTest::keyClicks(box, text);
  }
  // One turn of the event loop.
  static void Turn() { QApplication::processEvents(); }

  std::string Text(const QString& name) const {
    return Find<QLineEdit>(name)->text().toStdString();
  }
  std::string Label(const QString& name) const { return Find<QLabel>(name)->text().toStdString(); }
  std::string Caption(const QString& name) const {
    return Find<QAbstractButton>(name)->text().toStdString();
  }
  bool IsVisible(const QString& name) const { return Find(name)->isVisible(); }
  bool HasFocus(const QString& name) const { return QApplication::focusWidget() == Find(name); }

 private:
  dialogs::SubForm& form_;
};

}  // namespace vantrel::printdata
