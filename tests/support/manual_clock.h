// SPDX-License-Identifier: MIT
#pragma once

#include "link/clock.h"
#include "tests/support/call_log.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vantrel::support {

// A clock whose time stands still until the test moves it, or until code under test waits with
// nothing left to do: then time jumps to the next timer or scripted event. Events of one instant
// run in the order in which they were made.
//
// An event may itself wait (a click that sends a nested command). An event that ends in PortError
// or ExchangeEnded is caught here, as the application catches it around each event it delivers; any
// other exception leaves the clock.
class ManualClock : public link::Clock {
 public:
  using Event = std::function<void()>;

  // Writes "Start TimeOut 20000", "Stop TimeOut", "Yield" and ticks ("TimeOut ticks") to the log.
  void LogTo(CallLog& log) { log_ = &log; }

  // Milliseconds since the clock was made.
  int Now() const { return now_; }
  // Scripts an event for the time `milliseconds` after the clock was made; one whose time has gone
  // by runs at the next opportunity.
  void At(int milliseconds, Event event);
  // Scripts an event for `milliseconds` from now.
  void After(int milliseconds, Event event) { At(now_ + milliseconds, std::move(event)); }
  // Scripts an event for the yield of that number, counted from 1 over the clock's life; it runs
  // after what was due anyway.
  void InYield(int number, Event event) { in_yield_[number] = std::move(event); }
  // Moves the time forward and runs what comes due on the way.
  void Advance(int milliseconds);

  bool IsRunning(link::Timer timer) const { return timers_.contains(timer); }
  // The time at which a running timer ticks.
  int DueAt(link::Timer timer) const { return timers_.at(timer).time; }
  // Ticks of a timer so far.
  int Ticks(link::Timer timer) const;
  // Messages of the port failures that ended events, first to last.
  const std::vector<std::string>& PortErrors() const { return port_errors_; }
  // How many events ended in ExchangeEnded.
  int EventsEndedSilently() const { return ended_silently_; }

  void SetListener(Listener* listener) override { listener_ = listener; }
  void Start(link::Timer timer, int milliseconds) override;
  void Stop(link::Timer timer) override;
  // Runs what is due now.
  void Yield() override;
  // Runs the next event, moving the time to it. Fails the test and throws std::logic_error where
  // nothing is left to come but the passes of the wait itself, because it would never end.
  void WaitForEvents() override;

 private:
  struct Due {
    int time;
    int order;  // of making, among those of one instant
    bool operator<(const Due& other) const {
      return time != other.time ? time < other.time : order < other.order;
    }
  };

  // Runs the first event or tick that comes due up to `limit`; returns whether there was one.
  bool RunNext(int limit);
  void Tick(link::Timer timer);
  void Deliver(const Event& event);

  int now_ = 0;
  int made_ = 0;
  std::map<Due, Event> events_;
  std::map<int, Event> in_yield_;
  int yields_ = 0;
  std::map<link::Timer, Due> timers_;
  std::map<link::Timer, int> ticks_;
  std::vector<std::string> port_errors_;
  int ended_silently_ = 0;
  int passes_without_end_ = 0;
  Listener* listener_ = nullptr;
  CallLog* log_ = nullptr;
};

}  // namespace vantrel::support
