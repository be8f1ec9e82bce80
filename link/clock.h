// SPDX-License-Identifier: MIT
#pragma once

namespace vantrel::link {

// The console's two interval timers. Both are one-shot.
enum class Timer {
  TimeOut,    // the time limit of a command
  WaitTimer,  // one pass of a wait
};

// Timers and the event loop, as far as waiting needs them.
class Clock {
 public:
  // Hears the ticks. A tick must not throw and must not wait.
  class Listener {
   public:
    virtual ~Listener() = default;
    virtual void OnTick(Timer timer) = 0;
  };

  virtual ~Clock() = default;
  virtual void SetListener(Listener* listener) = 0;
  // Starts the timer, again if it is running; it ticks once after `milliseconds`.
  virtual void Start(Timer timer, int milliseconds) = 0;
  virtual void Stop(Timer timer) = 0;
  // Lets all events that are pending run and returns.
  virtual void Yield() = 0;
  // Sleeps until an event has come and has run.
  virtual void WaitForEvents() = 0;
};

}  // namespace vantrel::link
