// SPDX-License-Identifier: MIT

#include "printer/service/end_watch.h"

#include "tests/support/wait_for.h"

#include <QTest>
#include <gtest/gtest.h>

#include <csignal>

namespace vantrel::printer {
namespace {

class EndWatchTest : public testing::Test {
 protected:
  EndWatchTest() {
    pthread_sigmask(SIG_SETMASK, nullptr, &found_);
    EndWatch::Block();
  }
  ~EndWatchTest() override { pthread_sigmask(SIG_SETMASK, &found_, nullptr); }

  sigset_t found_{};
};

TEST_F(EndWatchTest, TellsOfEachSignalThatAsksForTheEnd) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const EndWatch watch;
    int asked = 0;
    QObject::connect(&watch, &EndWatch::Asked, &watch, [&asked] { ++asked; });
    pthread_kill(pthread_self(), signal);
    EXPECT_EQ(asked, 0) << "from the event loop alone";
    EXPECT_TRUE(support::WaitFor([&] { return asked == 1; })) << signal;
    // What the watch has told of is still pending.
    sigset_t pending{};
    sigpending(&pending);
    ASSERT_EQ(sigismember(&pending, signal), 1);
    int taken = 0;
    ASSERT_EQ(sigwait(&pending, &taken), 0);
    EXPECT_EQ(taken, signal);
  }
}

}  // namespace
}  // namespace vantrel::printer
