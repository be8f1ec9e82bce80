// SPDX-License-Identifier: MIT

#include "tests/link/serial_port_fixture.h"
#include "tests/support/event_loop_turns.h"
#include "tests/support/wait_for.h"

#include <QTest>

#include <gmock/gmock.h>

namespace vantrel::link {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// Three turns of the watch over an open device.
constexpr int kAWhile = 60;
// An event loop that sleeps between turns wakes less often in that time.
constexpr int kFewTurns = 50;

TEST_F(SerialPortTest, DeviceThatVanishesIsReportedOnce) {
  port.Open();
  terminal.Vanish();
  ASSERT_TRUE(support::WaitFor([this] { return !ears.losses.empty(); }));
  EXPECT_THAT(ears.losses[0],
              StartsWith("COM 1 (" + terminal.Device() + ") is gone: Input/output error\r\n"));
  EXPECT_FALSE(ears.port_was_open);
  EXPECT_FALSE(port.IsOpen());
  EXPECT_FALSE(IsLocked());
}

TEST_F(SerialPortTest, DeviceThatVanishedWakesNobodyAndIsNotReportedAgain) {
  port.Open();
  terminal.Vanish();
  ASSERT_TRUE(support::WaitFor([this] { return !ears.losses.empty(); }));
  EXPECT_LT(support::EventLoopTurns(kAWhile), kFewTurns);
  EXPECT_EQ(ears.losses.size(), 1U);
}

TEST_F(SerialPortTest, IdleOpenPortSleeps) {
  port.Open();
  EXPECT_LT(support::EventLoopTurns(kAWhile), kFewTurns);
  EXPECT_TRUE(port.IsOpen());
  EXPECT_TRUE(ears.losses.empty());
}

TEST_F(SerialPortTest, WriteToAVanishedDeviceThrowsBeforeAnyEventRan) {
  port.Open();
  terminal.Vanish();
  try {
    port.Output({0x02, 0x21, 0x03, 0x22});
    FAIL() << "A device that is gone took a frame.";
  } catch (const PortError& error) {
    EXPECT_THAT(error.what(),
                StartsWith("COM 1 (" + terminal.Device() + ") is gone: Input/output error\r\n"));
  }
  EXPECT_FALSE(port.IsOpen());
  // The failure was told; there is nothing more to report.
  EXPECT_LT(support::EventLoopTurns(kAWhile), kFewTurns);
  EXPECT_TRUE(ears.losses.empty());
}

TEST_F(SerialPortTest, WriteAfterTheLossWasReportedSaysThatThePortIsNotOpen) {
  port.Open();
  terminal.Vanish();
  ASSERT_TRUE(support::WaitFor([this] { return !ears.losses.empty(); }));
  try {
    port.Output({0x02});
    FAIL() << "A closed port took a byte.";
  } catch (const PortError& error) {
    EXPECT_THAT(error.what(), HasSubstr(") is not open, so nothing was sent"));
  }
}

TEST_F(SerialPortTest, BytesSentJustBeforeTheDeviceVanishedDoNoHarm) {
  port.Open();
  terminal.Send("060221");
  terminal.Vanish();
  ASSERT_TRUE(support::WaitFor([this] { return !ears.losses.empty(); }));
  EXPECT_FALSE(port.IsOpen());
}

TEST_F(SerialPortTest, OpensTheNextDeviceAfterALoss) {
  port.Open();
  terminal.Vanish();
  ASSERT_TRUE(support::WaitFor([this] { return !ears.losses.empty(); }));
  const support::TestTerminal next;
  SerialPort again([&next](int) { return next.Device(); });
  Ears again_ears(again);
  again.Open();
  next.Send("06");
  EXPECT_TRUE(support::WaitFor([&] { return again_ears.received == "06"; }));
}

TEST_F(SerialPortTest, BlockedLineIsNoLossAndItsBytesArriveWhenItIsRead) {
  port.Open();
  port.Output(Bytes(100'000, 0x41));
  // Nobody reads the other end, so most of the bytes wait for the line.
  EXPECT_LT(support::EventLoopTurns(kAWhile), kFewTurns);
  EXPECT_TRUE(port.IsOpen());
  EXPECT_TRUE(ears.losses.empty());
  std::string received;
  EXPECT_TRUE(support::WaitFor([&] {
    received += terminal.Received(0);
    return received.size() >= 200'000;
  }));
  EXPECT_EQ(received.size(), 200'000U);
  EXPECT_EQ(received.find_first_not_of("41"), std::string::npos);
}

TEST_F(SerialPortTest, ClosingByHandIsNoLoss) {
  port.Open();
  port.Close();
  terminal.Vanish();
  EXPECT_LT(support::EventLoopTurns(kAWhile), kFewTurns);
  EXPECT_TRUE(ears.losses.empty());
}

TEST_F(SerialPortTest, ConsoleThatClosesAndReopensFindsTheDeviceStillThere) {
  port.Open();
  port.Close();
  EXPECT_EQ(OpenFailureOf(port), "");
  port.Output({0x06});
  EXPECT_EQ(terminal.Received(1), "06");
}

}  // namespace
}  // namespace vantrel::link
