// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"

#include <QObject>
#include <QSocketNotifier>

namespace vantrel::printer {

// Tells of the signals that ask a program to end, SIGINT, SIGTERM and SIGHUP, from the event loop.
class EndWatch : public QObject {
  Q_OBJECT

 public:
  // Keeps these signals from ending the program at once. To be called before any thread is made, so
  // that every thread leaves them to the watch.
  static void Block();

  // Throws std::system_error when the system gives no descriptor for it.
  explicit EndWatch(QObject* parent = nullptr);

 signals:
  // The first of the signals has come.
  void Asked();

 private:
  link::UniqueDescriptor descriptor_;
  QSocketNotifier notifier_;
};

}  // namespace vantrel::printer
