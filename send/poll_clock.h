// SPDX-License-Identifier: MIT
#pragma once

#include "link/clock.h"

#include <array>
#include <chrono>
#include <optional>
#include <vector>

namespace vantrel::send {

// Something with a descriptor that the clock waits on.
class EventSource {
 public:
  virtual ~EventSource() = default;
  // -1 while there is none.
  virtual int Descriptor() const = 0;
  // What to wait for, as poll takes it.
  virtual short Events() const = 0;
  // Something of that, or an error, is there. Must not wait on the clock.
  virtual void OnReady(short events) = 0;
};

// The clock of a program without an event loop of its own: timers and descriptors of one thread,
// by poll. What it calls must not throw.
class PollClock : public link::Clock {
 public:
  void SetListener(Listener* listener) override { listener_ = listener; }
  void Start(link::Timer timer, int milliseconds) override;
  void Stop(link::Timer timer) override { DueOf(timer).reset(); }
  void Yield() override;
  void WaitForEvents() override;

  // Sources must outlive the clock or be unwatched. Those watched first are served first.
  void Watch(EventSource& source) { sources_.push_back(&source); }
  void Unwatch(EventSource& source) { std::erase(sources_, &source); }

 private:
  using Time = std::chrono::steady_clock::time_point;

  std::optional<Time>& DueOf(link::Timer timer) { return due_.at(static_cast<std::size_t>(timer)); }
  // Serves what is there, after sleeping until something is, if it may; returns whether anything
  // was.
  bool Turn(bool may_sleep);
  bool Tick();

  Listener* listener_ = nullptr;
  std::array<std::optional<Time>, 2> due_;  // by timer
  std::vector<EventSource*> sources_;
};

}  // namespace vantrel::send
