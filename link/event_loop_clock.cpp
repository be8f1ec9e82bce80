#include "link/event_loop_clock.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace vantrel {

EventLoopClock::EventLoopClock() {
  for (const Timer timer : {Timer::TimeOut, Timer::WaitTimer}) {
    QTimer& qtimer = TimerOf(timer);
    qtimer.setSingleShot(true);
    qtimer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&qtimer, &QTimer::timeout, &qtimer, [this, timer] {
      if (listener_ != nullptr) listener_->OnTick(timer);
    });
  }
}

void EventLoopClock::Start(Timer timer, int milliseconds) { TimerOf(timer).start(milliseconds); }

void EventLoopClock::Stop(Timer timer) { TimerOf(timer).stop(); }

void EventLoopClock::Yield() { QCoreApplication::processEvents(); }

void EventLoopClock::WaitForEvents() {
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

int EventLoopClock::Remaining(Timer timer) const {
  const int remaining = (timer == Timer::TimeOut ? time_out_ : wait_timer_).remainingTime();
  return remaining > 0 ? remaining : 0;
}

}  // namespace vantrel
