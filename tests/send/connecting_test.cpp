// SPDX-License-Identifier: MIT

// How a TCP connection comes about, and how long that may take.

#include "link/port.h"
#include "send/connection.h"
#include "tests/send/full_listener.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

namespace vantrel::send {
namespace {

using std::chrono::milliseconds;

bool IsReady(int descriptor, short events, int most) {
  pollfd one{descriptor, events, 0};
  return poll(&one, 1, most) > 0;
}

std::string Refusal(const std::string& address, const WaitFor& wait_for,
                    milliseconds limit = kConnectLimit) {
  try {
    OpenTcp(address, wait_for, limit);
    return "";
  } catch (const link::PortError& error) {
    return error.what();
  }
}

TEST(Connecting, WaitsFiveSecondsInAllAndThenGivesUp) {
  EXPECT_EQ(kConnectLimit, milliseconds(5000));
  const FullListener listener;
  std::vector<int> asked;
  // The name is looked up; the connection is what does not come in its time.
  const std::string refusal =
      Refusal(listener.HostAndPort(), [&](int descriptor, short events, int most) {
        asked.push_back(most);
        return events == POLLIN && IsReady(descriptor, events, -1);
      });
  EXPECT_EQ(refusal,
            "There is no connection to " + listener.HostAndPort() + ": Connection timed out.");
  ASSERT_EQ(asked.size(), 2U);
  EXPECT_LE(asked[0], 5000);
  EXPECT_LE(asked[1], asked[0]);
  EXPECT_GT(asked[1], 0);
}

TEST(Connecting, EndsWithItsLimit) {
  const FullListener listener;
  EXPECT_EQ(Refusal(listener.HostAndPort(), IsReady, milliseconds(20)),
            "There is no connection to " + listener.HostAndPort() + ": Connection timed out.");
}

TEST(Connecting, SaysWhatHindersIt) {
  EXPECT_EQ(Refusal("127.0.0.1:1", IsReady),
            "There is no connection to 127.0.0.1:1: Connection refused.");
  EXPECT_TRUE(Refusal("[::1]:1", IsReady).starts_with("There is no connection to [::1]:1: "));
  // What is no name at all is looked up nowhere.
  EXPECT_TRUE(Refusal("a..b:1", IsReady).starts_with("There is no connection to a..b:1: "));
}

}  // namespace
}  // namespace vantrel::send
