// SPDX-License-Identifier: MIT

#include "link/event_loop_clock.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>

namespace vantrel::link {

EventLoopClock::EventLoopClock()
    : alarm_(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)) {
  for (const Timer timer : {Timer::TimeOut, Timer::WaitTimer}) {
    QTimer& qtimer = TimerOf(timer);
    qtimer.setSingleShot(true);
    qtimer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&qtimer, &QTimer::timeout, &qtimer, [this, timer] {
      if (listener_ != nullptr) listener_->OnTick(timer);
    });
  }
  if (!alarm_.IsOpen()) return;
  alarm_notifier_ = std::make_unique<QSocketNotifier>(alarm_.Get(), QSocketNotifier::Read);
  QObject::connect(alarm_notifier_.get(), &QSocketNotifier::activated, alarm_notifier_.get(),
                   [this] {
                     std::uint64_t expirations = 0;
                     [[maybe_unused]] const ssize_t read_bytes =
                         read(alarm_.Get(), &expirations, sizeof expirations);
                   });
}

EventLoopClock::~EventLoopClock() = default;

void EventLoopClock::Start(Timer timer, int milliseconds) {
  TimerOf(timer).start(milliseconds);
  if (timer != Timer::WaitTimer || !alarm_.IsOpen()) return;
  // After the timer, so that it is due when the loop wakes.
  itimerspec at = {};
  at.it_value = {milliseconds / 1000, milliseconds % 1000 * 1'000'000L};
  timerfd_settime(alarm_.Get(), 0, &at, nullptr);
}

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
