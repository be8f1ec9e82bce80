// SPDX-License-Identifier: MIT

#include "send/poll_clock.h"

#include <poll.h>

#include <algorithm>
#include <ctime>

namespace vantrel::send {
namespace {

using SteadyClock = std::chrono::steady_clock;

timespec TimespecOf(SteadyClock::duration duration) {
  const auto left = std::max(duration, SteadyClock::duration::zero());
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
  const auto rest = std::chrono::duration_cast<std::chrono::nanoseconds>(left - seconds);
  return {seconds.count(), rest.count()};
}

}  // namespace

void PollClock::Start(link::Timer timer, int milliseconds) {
  DueOf(timer) = SteadyClock::now() + std::chrono::milliseconds(milliseconds);
}

void PollClock::Yield() {
  // A line on which bytes never end does not hold up who yields.
  constexpr int kMostTurns = 1000;
  for (int i = 0; i < kMostTurns && Turn(false); ++i) continue;
}

void PollClock::WaitForEvents() {
  while (!Turn(true)) {
  }
}

bool PollClock::Turn(bool may_sleep) {
  std::vector<EventSource*> polled;
  std::vector<pollfd> descriptors;
  for (EventSource* source : sources_) {
    if (source->Descriptor() < 0) continue;
    polled.push_back(source);
    descriptors.push_back({source->Descriptor(), source->Events(), 0});
  }
  std::optional<Time> next;
  for (const std::optional<Time>& due : due_)
    if (due && (!next || *due < *next)) next = due;
  timespec timeout{};
  if (may_sleep && next) timeout = TimespecOf(*next - SteadyClock::now());
  const timespec* limit = may_sleep && !next ? nullptr : &timeout;

  bool served = false;
  if (ppoll(descriptors.data(), descriptors.size(), limit, nullptr) > 0) {
    for (std::size_t i = 0; i < polled.size(); ++i) {
      // One that was served before may have unwatched or closed this one.
      const bool is_there =
          std::find(sources_.begin(), sources_.end(), polled[i]) != sources_.end();
      if (descriptors[i].revents == 0 || !is_there || polled[i]->Descriptor() != descriptors[i].fd)
        continue;
      polled[i]->OnReady(descriptors[i].revents);
      served = true;
    }
  }
  return Tick() || served;
}

bool PollClock::Tick() {
  bool ticked = false;
  for (const link::Timer timer : {link::Timer::TimeOut, link::Timer::WaitTimer}) {
    std::optional<Time>& due = DueOf(timer);
    if (!due || *due > SteadyClock::now()) continue;
    due.reset();
    ticked = true;
    if (listener_ != nullptr) listener_->OnTick(timer);
  }
  return ticked;
}

}  // namespace vantrel::send
