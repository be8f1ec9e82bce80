// SPDX-License-Identifier: MIT

#include "console/painting_hold.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace vantrel::console {

PaintingHold::PaintingHold(std::chrono::milliseconds longest, QObject* parent) : QObject(parent) {
  end_.setSingleShot(true);
  end_.setTimerType(Qt::PreciseTimer);
  end_.setInterval(longest);
  connect(&end_, &QTimer::timeout, this, [this] { End(); });
}

void PaintingHold::Watch(QWidget* widget) { widget->installEventFilter(this); }

void PaintingHold::Begin() { end_.start(); }

void PaintingHold::End() {
  end_.stop();
  for (const Due& due : std::exchange(due_, {})) {
    // The library posts them at this rank, too, so that what has been changed meanwhile is in them.
    if (due.receiver)
      QCoreApplication::postEvent(due.receiver, new QEvent(due.type), Qt::LowEventPriority);
  }
}

bool PaintingHold::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (!end_.isActive() || (type != QEvent::UpdateRequest && type != QEvent::LayoutRequest))
    return QObject::eventFilter(watched, event);
  const bool known = std::any_of(due_.begin(), due_.end(), [&](const Due& due) {
    return due.receiver == watched && due.type == type;
  });
  if (!known) due_.push_back({watched, type});
  return true;
}

}  // namespace vantrel::console
