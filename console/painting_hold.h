// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <vector>

namespace vantrel::console {

// Puts off for a moment what a window lays out and paints, so that what is urgent goes first.
// Nothing is lost: it is laid out and painted in the event loop's next turn after that.
class PaintingHold : public QObject {
 public:
  // A hold ends of itself after `longest`.
  explicit PaintingHold(std::chrono::milliseconds longest, QObject* parent = nullptr);

  // Has put off by each hold what the widget does itself when something in it wants another size,
  // and all painting where it is a window. A QLayout does its work at once.
  void Watch(QWidget* widget);
  void Begin();
  // What was put off is due now.
  void End();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Due {
    QPointer<QObject> receiver;
    QEvent::Type type;
  };

  QTimer end_;
  std::vector<Due> due_;
};

}  // namespace vantrel::console
