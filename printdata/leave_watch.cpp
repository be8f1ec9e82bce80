// SPDX-License-Identifier: MIT

#include "printdata/leave_watch.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>

#include <utility>

namespace vantrel::printdata {
namespace {

bool IsLeaving(Qt::FocusReason reason) {
  switch (reason) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
    case Qt::NoFocusReason:
      return false;
    default:
      return true;
  }
}

}  // namespace

LeaveWatch::LeaveWatch(QWidget* form, dialogs::Guard& guard)
    : QObject(form), form_(form), guard_(guard) {
  form->installEventFilter(this);
}

void LeaveWatch::Watch(QWidget* box, LostFocus lost_focus) {
  boxes_[box] = std::move(lost_focus);
  box->installEventFilter(this);
}

bool LeaveWatch::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut && boxes_.contains(watched)) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    // While a box is told, the focus moves back by the program's hand.
    if (telling_ || !IsLeaving(reason)) return false;
    left_.push_back(watched);
    if (reason == Qt::MouseFocusReason && QApplication::mouseButtons() != Qt::NoButton)
      qApp->installEventFilter(this);
    else
      TellSoon();
    return false;
  }
  if (event->type() == QEvent::Hide && watched == form_ && !event->spontaneous()) left_.clear();
  if (event->type() == QEvent::MouseButtonRelease && watched->isWidgetType()) {
    qApp->removeEventFilter(this);
    if (left_.empty()) return false;
    if (ClickAfterTelling(watched)) return true;
    TellSoon();
  }
  return false;
}

void LeaveWatch::TellSoon() {
  QMetaObject::invokeMethod(this, &LeaveWatch::Tell, Qt::QueuedConnection);
}

void LeaveWatch::Tell() {
  if (telling_) return;
  telling_ = true;
  guard_.Run([this] {
    for (QObject* box : std::exchange(left_, {}))
      if (boxes_.at(box)()) break;
  });
  telling_ = false;
}

bool LeaveWatch::ClickAfterTelling(QObject* released_on) {
  auto* button = qobject_cast<QAbstractButton*>(released_on);
  if (button == nullptr || !button->isDown() || button->window() != form_) return false;
  // The message box would take the release away from the button, so the click is made by hand.
  button->setDown(false);
  Tell();
  button->click();
  return true;
}

}  // namespace vantrel::printdata
