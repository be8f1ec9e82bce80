// SPDX-License-Identifier: MIT
#pragma once

#include "link/clock.h"
#include "link/unique_descriptor.h"

#include <QTimer>

#include <memory>

class QSocketNotifier;

namespace vantrel::link {

// The clock of the user-interface thread: Qt's timers, precise to the millisecond, and its event
// loop.
class EventLoopClock : public Clock {
 public:
  EventLoopClock();
  ~EventLoopClock() override;
  EventLoopClock(const EventLoopClock&) = delete;
  EventLoopClock& operator=(const EventLoopClock&) = delete;

  void SetListener(Listener* listener) override { listener_ = listener; }
  void Start(Timer timer, int milliseconds) override;
  void Stop(Timer timer) override;
  void Yield() override;
  void WaitForEvents() override;

  // Milliseconds left until the timer ticks; 0 when it is not running.
  int Remaining(Timer timer) const;
  // Milliseconds that the timer was last started with.
  int Interval(Timer timer) const;

 private:
  QTimer& TimerOf(Timer timer) { return timer == Timer::TimeOut ? time_out_ : wait_timer_; }
  const QTimer& TimerOf(Timer timer) const {
    return timer == Timer::TimeOut ? time_out_ : wait_timer_;
  }

  QTimer time_out_;
  QTimer wait_timer_;
  // Wakes the event loop when `wait_timer_` is due. The loop sleeps for whole milliseconds, and
  // once more after each event, so by itself it comes up to a millisecond late. Ticks are the
  // timers' alone; where the system has no such descriptor they come as late as that.
  UniqueDescriptor alarm_;
  std::unique_ptr<QSocketNotifier> alarm_notifier_;
  Listener* listener_ = nullptr;
};

}  // namespace vantrel::link
