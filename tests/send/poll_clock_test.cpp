// SPDX-License-Identifier: MIT

#include "send/poll_clock.h"

#include "link/unique_descriptor.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>

namespace vantrel::send {
namespace {

// What always has something to read.
class Endless : public EventSource {
 public:
  int Descriptor() const override { return descriptor_.Get(); }
  short Events() const override { return POLLIN; }
  void OnReady(short) override { ++count_; }
  int Count() const { return count_; }

 private:
  const link::UniqueDescriptor descriptor_{open("/dev/zero", O_RDONLY | O_CLOEXEC)};
  int count_ = 0;
};

// Ends a source that is served after it.
class Remover : public Endless {
 public:
  Remover(PollClock& clock, EventSource& other) : clock_(clock), other_(other) {}
  void OnReady(short events) override {
    Endless::OnReady(events);
    clock_.Unwatch(other_);
  }

 private:
  PollClock& clock_;
  EventSource& other_;
};

// What is on the line `at`, an end of a pipe, or nowhere.
struct Line : EventSource {
  int Descriptor() const override { return at; }
  short Events() const override { return POLLIN; }
  void OnReady(short) override { ++count; }
  int at = -1;
  int count = 0;
};

// Opens a source that is served after it on another line.
class Opener : public Endless {
 public:
  Opener(Line& other, int line) : other_(other), line_(line) {}
  void OnReady(short events) override {
    Endless::OnReady(events);
    other_.at = line_;
  }

 private:
  Line& other_;
  const int line_;
};

struct Ticks : link::Clock::Listener {
  void OnTick(link::Timer timer) override { timers.push_back(timer); }
  std::vector<link::Timer> timers;
};

TEST(PollClock, YieldsNoLongerThanItMust) {
  PollClock clock;
  clock.Yield();
  Endless source;
  clock.Watch(source);
  clock.Yield();
  EXPECT_GT(source.Count(), 0);
  clock.Unwatch(source);
}

TEST(PollClock, ServesNoSourceThatWasUnwatchedMeanwhile) {
  PollClock clock;
  Endless second;
  Remover first(clock, second);
  clock.Watch(first);
  clock.Watch(second);
  clock.WaitForEvents();
  EXPECT_EQ(first.Count(), 1);
  EXPECT_EQ(second.Count(), 0);
}

TEST(PollClock, ServesNoSourceWithWhatItsFormerLineHad) {
  PollClock clock;
  std::array<int, 2> silent{};
  ASSERT_EQ(pipe2(silent.data(), O_CLOEXEC), 0);
  const link::UniqueDescriptor silent_end(silent[0]);
  const link::UniqueDescriptor silent_writer(silent[1]);
  const link::UniqueDescriptor loud(open("/dev/zero", O_RDONLY | O_CLOEXEC));
  Line second;
  second.at = loud.Get();
  Opener first(second, silent_end.Get());
  clock.Watch(first);
  clock.Watch(second);
  clock.WaitForEvents();
  EXPECT_EQ(first.Count(), 1);
  EXPECT_EQ(second.count, 0);
}

TEST(PollClock, TicksOncePerStart) {
  PollClock clock;
  Ticks ticks;
  clock.SetListener(&ticks);
  clock.Start(link::Timer::TimeOut, 1);
  clock.Start(link::Timer::WaitTimer, 60'000);
  clock.WaitForEvents();
  EXPECT_EQ(ticks.timers, std::vector{link::Timer::TimeOut});
  clock.Stop(link::Timer::WaitTimer);
  clock.Start(link::Timer::WaitTimer, 0);
  clock.Yield();
  EXPECT_EQ(ticks.timers, (std::vector{link::Timer::TimeOut, link::Timer::WaitTimer}));
}

}  // namespace
}  // namespace vantrel::send
