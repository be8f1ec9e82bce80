// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QTimer>

namespace vantrel::support {

// How often an event loop of `milliseconds` wakes. One that sleeps between events wakes a few
// times, one that polls wakes thousands of times.
inline int EventLoopTurns(int milliseconds) {
  int turns = 0;
  QEventLoop loop;
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &loop,
                   [&turns] { ++turns; });
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
  return turns;
}

}  // namespace vantrel::support
