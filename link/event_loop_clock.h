#pragma once

#include "link/clock.h"

#include <QTimer>

namespace vantrel::link {

// The clock of the user-interface thread: Qt's timers, precise to the millisecond, and its event
// loop.
class EventLoopClock : public Clock {
 public:
  EventLoopClock();

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
  Listener* listener_ = nullptr;
};

}  // namespace vantrel::link
