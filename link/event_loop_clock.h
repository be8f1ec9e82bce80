#pragma once

#include "link/clock.h"

#include <QTimer>

#include <functional>
#include <utility>

namespace vantrel {

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

  // Has `work` run each time before WaitForEvents sleeps. It must be quick and must not throw.
  void OnSleep(std::function<void()> work) { on_sleep_ = std::move(work); }

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
  std::function<void()> on_sleep_;
};

}  // namespace vantrel
