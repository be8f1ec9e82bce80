// SPDX-License-Identifier: MIT

#include "tour/box_watcher.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>

#include <algorithm>
#include <stdexcept>

namespace vantrel::tour {

BoxWatcher::BoxWatcher() {
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
  timer_.start(20);
}

void BoxWatcher::Look() {
  auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (box == nullptr || !box->isVisible() ||
      std::find(seen_.begin(), seen_.end(), box) != seen_.end())
    return;
  seen_.emplace_back(box);
  if (acts_.empty())
    throw std::runtime_error("An unexpected box opened: " + box->windowTitle().toStdString() +
                             ": " + box->property("text").toString().toStdString());
  const Act act = acts_.front();
  acts_.pop_front();
  // Outside of this timer's own report: an act may bring up the next box and wait for it.
  QMetaObject::invokeMethod(
      box, [act, box] { act(*box); }, Qt::QueuedConnection);
}

void PressButton(QDialog& box, const QString& caption) {
  for (auto* button : box.findChildren<QAbstractButton*>()) {
    if (button->text().remove('&') != caption) continue;
    button->click();
    return;
  }
  throw std::runtime_error("There is no button " + caption.toStdString() + " in the box " +
                           box.windowTitle().toStdString());
}

namespace {

QWidget& Control(QWidget& form, const char* name) {
  auto* control = form.findChild<QWidget*>(name);
  if (control == nullptr)
    throw std::runtime_error(form.objectName().toStdString() + " has no control " + name);
  return *control;
}

void Click(QWidget& widget, QPoint place) {
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
  }
}

}  // namespace

void ClickOn(QWidget& form, const char* name) {
  dynamic_cast<QAbstractButton&>(Control(form, name)).click();
}

void ClickDot(QDialog& form, const char* grid, int index) {
  QWidget& dots = Control(form, grid);
  QRect dot;
  QMetaObject::invokeMethod(&dots, "DotRect", Q_RETURN_ARG(QRect, dot), Q_ARG(int, index));
  Click(dots, dot.center());
}

void TypeInto(QDialog& form, const char* name, const QString& text) {
  Control(form, name).setProperty("text", text);
}

void TypeAndPressOk(QDialog& box, const QString& text) {
  box.findChild<QLineEdit*>()->setText(text);
  PressButton(box, "OK");
}

}  // namespace vantrel::tour
