// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/wait_for.h"

#include <QAccessible>
#include <QObject>

#include <stdexcept>
#include <vector>

namespace vantrel::support {

// Hears what the library is told for a screen reader. The window system has to have accessibility,
// so a program with this runs under tests/support/with_screen_reader.
class ScreenReader {
 public:
  struct Heard {
    QAccessible::Event event;
    QObject* object;
    int child;                   // -1 where the event is of the object itself
    QAccessible::State changed;  // of QAccessible::StateChanged
  };

  ScreenReader() {
    if (!WaitFor([] { return QAccessible::isActive(); }))
      throw std::runtime_error("accessibility is not switched on");
    heard_.clear();
    QAccessible::installUpdateHandler(&Hear);
  }
  ~ScreenReader() { QAccessible::installUpdateHandler(nullptr); }
  ScreenReader(const ScreenReader&) = delete;
  ScreenReader& operator=(const ScreenReader&) = delete;

  // What was heard of this object, with this event, in its order.
  std::vector<Heard> HeardOf(const QObject& object, QAccessible::Event event) const {
    std::vector<Heard> found;
    for (const Heard& one : heard_)
      if (one.object == &object && one.event == event) found.push_back(one);
    return found;
  }

 private:
  static void Hear(QAccessibleEvent* event) {
    Heard heard{event->type(), event->object(), event->child(), {}};
    if (heard.event == QAccessible::StateChanged)
      heard.changed = static_cast<QAccessibleStateChangeEvent*>(event)->changedStates();
    heard_.push_back(heard);
  }

  static inline std::vector<Heard> heard_;
};

}  // namespace vantrel::support
