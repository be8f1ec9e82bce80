// SPDX-License-Identifier: MIT

#include "dialogs/sub_form.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QShowEvent>

namespace vantrel::dialogs {

SubForm::SubForm(const QString& name, Guard& guard, QWidget* parent)
    : QDialog(parent), guard_(guard) {
  setObjectName(name);
}

void SubForm::done(int result) {
  if (active_) {
    active_ = false;
    guard_.Run([this] { Form_Unload(); });
  }
  QDialog::done(result);
}

void SubForm::showEvent(QShowEvent* event) {
  // A spontaneous show is the window system's own, after a minimised window comes back.
  if (!event->spontaneous() && !active_) {
    active_ = true;
    for (auto* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
    guard_.Run([this] { Form_Activate(); });
  }
  QDialog::showEvent(event);
}

void SubForm::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Escape:
      event->accept();
      return;
    default:
      QDialog::keyPressEvent(event);
  }
}

}  // namespace vantrel::dialogs
