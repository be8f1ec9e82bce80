#include "link/event_loop_clock.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <algorithm>

namespace vantrel::link {

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
  return std::max(0, TimerOf(timer).remainingTime());
}

int EventLoopClock::Interval(Timer timer) const { return TimerOf(timer).interval(); }

}  // namespace vantrel::link
