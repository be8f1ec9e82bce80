#include "tour/box_watcher.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>

#include <stdexcept>

namespace vantrel {

BoxWatcher::BoxWatcher() {
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
  timer_.start(20);
}

void BoxWatcher::Look() {
  auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (box == nullptr || !box->isVisible() || box == seen_) return;
  seen_ = box;
  if (acts_.empty())
    throw std::runtime_error("An unexpected box opened: " + box->windowTitle().toStdString() +
                             ": " + box->property("text").toString().toStdString());
  const Act act = acts_.front();
  acts_.pop_front();
  act(*box);
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

void TypeAndPressOk(QDialog& box, const QString& text) {
  box.findChild<QLineEdit*>()->setText(text);
  PressButton(box, "OK");
}

}  // namespace vantrel
