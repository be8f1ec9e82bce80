// SPDX-License-Identifier: MIT

#include "tests/support/manual_clock.h"

#include "link/port.h"
#include "link/transaction.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

namespace vantrel::support {
namespace {

constexpr int kMostPassesWithoutEnd = 1000;

std::string NameOf(link::Timer timer) {
  return timer == link::Timer::TimeOut ? "TimeOut" : "WaitTimer";
}

}  // namespace

void ManualClock::At(int milliseconds, Event event) {
  events_.emplace(Due{milliseconds, made_++}, std::move(event));
}

void ManualClock::Advance(int milliseconds) {
  const int end = now_ + milliseconds;
  while (RunNext(end)) {
  }
  now_ = std::max(now_, end);
}

int ManualClock::Ticks(link::Timer timer) const {
  const auto found = ticks_.find(timer);
  return found == ticks_.end() ? 0 : found->second;
}

void ManualClock::Start(link::Timer timer, int milliseconds) {
  Note(log_, "Start " + NameOf(timer) + " " + std::to_string(milliseconds));
  timers_.insert_or_assign(timer, Due{now_ + milliseconds, made_++});
}

void ManualClock::Stop(link::Timer timer) {
  Note(log_, "Stop " + NameOf(timer));
  timers_.erase(timer);
}

void ManualClock::Yield() {
  Note(log_, "Yield");
  const auto scripted = in_yield_.find(++yields_);
  while (RunNext(now_)) {
  }
  if (scripted != in_yield_.end()) Deliver(scripted->second);
}

void ManualClock::WaitForEvents() {
  // Passes of a wait, by themselves, go on for ever.
  const bool has_end = IsRunning(link::Timer::TimeOut) || !events_.empty();
  passes_without_end_ = has_end ? 0 : passes_without_end_ + 1;
  if (passes_without_end_ < kMostPassesWithoutEnd && RunNext(std::numeric_limits<int>::max()))
    return;
  ADD_FAILURE() << "The code under test waits at " << now_ << " ms and nothing is left to come.";
  throw std::logic_error("endless wait");
}

bool ManualClock::RunNext(int limit) {
  const auto earlier = [](const auto& a, const auto& b) { return a.second < b.second; };
  const auto timer = std::min_element(timers_.begin(), timers_.end(), earlier);
  const auto event = events_.begin();
  const bool has_timer = timer != timers_.end() && timer->second.time <= limit;
  const bool has_event = event != events_.end() && event->first.time <= limit;
  if (!has_timer && !has_event) return false;
  if (has_timer && (!has_event || timer->second < event->first)) {
    now_ = std::max(now_, timer->second.time);
    Tick(timer->first);
  } else {
    now_ = std::max(now_, event->first.time);
    // Taken out of the script before it runs, because it may wait and come back here.
    const Event action = std::move(event->second);
    events_.erase(event);
    Deliver(action);
  }
  return true;
}

void ManualClock::Tick(link::Timer timer) {
  timers_.erase(timer);
  ++ticks_[timer];
  Note(log_, NameOf(timer) + " ticks");
  if (listener_ != nullptr) listener_->OnTick(timer);
}

void ManualClock::Deliver(const Event& event) {
  try {
    event();
  } catch (const link::ExchangeEnded&) {
    ++ended_silently_;
  } catch (const link::PortError& error) {
    port_errors_.emplace_back(error.what());
  }
}

}  // namespace vantrel::support
