// SPDX-License-Identifier: MIT

#include "link/event_loop_clock.h"

#include "tests/support/wait_for.h"

#include <QElapsedTimer>
#include <QTest>

#include <gmock/gmock.h>

#include <vector>

namespace vantrel::link {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EventLoopClockTest : public testing::Test, public Clock::Listener {
 protected:
  EventLoopClockTest() { clock.SetListener(this); }
  void OnTick(Timer timer) override { ticks.push_back(timer); }
  // Waits as the transaction does until the number of ticks is reached.
  void WaitForTicks(std::size_t count) {
    while (ticks.size() < count) clock.WaitForEvents();
  }

  EventLoopClock clock;
  std::vector<Timer> ticks;
};

TEST_F(EventLoopClockTest, TicksOnce) {
  clock.Start(Timer::WaitTimer, 5);
  WaitForTicks(1);
  // The other timer's tick comes long after a second tick of the first would have.
  clock.Start(Timer::TimeOut, 50);
  WaitForTicks(2);
  EXPECT_THAT(ticks, ElementsAre(Timer::WaitTimer, Timer::TimeOut));
}

TEST_F(EventLoopClockTest, BothTimersRunSideBySide) {
  // Started in time even where the machine pauses between the two.
  clock.Start(Timer::TimeOut, 300);
  clock.Start(Timer::WaitTimer, 10);
  WaitForTicks(2);
  EXPECT_THAT(ticks, ElementsAre(Timer::WaitTimer, Timer::TimeOut));
}

TEST_F(EventLoopClockTest, StartOfARunningTimerBeginsAnew) {
  QElapsedTimer wall;
  wall.start();
  clock.Start(Timer::WaitTimer, 20);
  clock.Start(Timer::WaitTimer, 80);
  WaitForTicks(1);
  EXPECT_GE(wall.elapsed(), 79);
  EXPECT_EQ(ticks.size(), 1U);
}

TEST_F(EventLoopClockTest, StoppedTimerDoesNotTick) {
  clock.Start(Timer::TimeOut, 5);
  clock.Stop(Timer::TimeOut);
  clock.Start(Timer::WaitTimer, 50);
  WaitForTicks(1);
  EXPECT_THAT(ticks, ElementsAre(Timer::WaitTimer));
}

TEST_F(EventLoopClockTest, TenMillisecondsAreNotLess) {
  QElapsedTimer wall;
  wall.start();
  clock.Start(Timer::WaitTimer, 10);
  WaitForTicks(1);
  EXPECT_GE(static_cast<double>(wall.nsecsElapsed()) / 1e6, 9.0);
}

TEST_F(EventLoopClockTest, WaitingSleepsUntilATickComes) {
  // What earlier cases left for the event loop runs first.
  clock.Yield();
  int turns = 0;
  for (std::size_t i = 1; i <= 5; ++i) {
    clock.Start(Timer::WaitTimer, 10);
    while (ticks.size() < i) {
      clock.WaitForEvents();
      ++turns;
    }
  }
  EXPECT_LE(turns, 20);
}

TEST_F(EventLoopClockTest, YieldRunsWhatIsPendingAndDoesNotWait) {
  bool ran = false;
  QObject target;
  QMetaObject::invokeMethod(
      &target, [&ran] { ran = true; }, Qt::QueuedConnection);
  clock.Start(Timer::TimeOut, 60000);
  clock.Yield();
  EXPECT_TRUE(ran);
  EXPECT_GT(clock.Remaining(Timer::TimeOut), 50000);
  EXPECT_THAT(ticks, IsEmpty());
}

TEST_F(EventLoopClockTest, TellsHowMuchOfATimeLimitIsLeft) {
  EXPECT_EQ(clock.Remaining(Timer::TimeOut), 0);
  clock.Start(Timer::TimeOut, 60000);
  EXPECT_EQ(clock.Interval(Timer::TimeOut), 60000);
  EXPECT_LE(clock.Remaining(Timer::TimeOut), 60000);
  EXPECT_GT(clock.Remaining(Timer::TimeOut), 50000);
  clock.Stop(Timer::TimeOut);
  EXPECT_EQ(clock.Remaining(Timer::TimeOut), 0);
}

TEST_F(EventLoopClockTest, TickWithoutAListenerIsNoFault) {
  clock.SetListener(nullptr);
  clock.Start(Timer::WaitTimer, 1);
  EXPECT_TRUE(support::WaitFor([this] { return clock.Remaining(Timer::WaitTimer) == 0; }));
  clock.Yield();
  EXPECT_THAT(ticks, IsEmpty());
}

}  // namespace
}  // namespace vantrel::link
