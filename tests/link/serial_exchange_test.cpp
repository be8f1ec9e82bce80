// SPDX-License-Identifier: MIT

#include "link/event_loop_clock.h"
#include "link/transaction.h"
#include "tests/link/serial_port_fixture.h"
#include "tests/support/fake_display.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QTimer>

#include <gmock/gmock.h>

#include <functional>
#include <utility>
#include <vector>

namespace vantrel::link {
namespace {

using testing::StartsWith;

// The transaction on the real event loop and a real pseudo-terminal.
class SerialExchangeTest : public testing::Test {
 protected:
  SerialExchangeTest() { port.Open(); }

  // The printer's side reads along and does `action` when `bytes` bytes have come in all.
  void AfterReceiving(std::size_t bytes, std::function<void()> action) {
    QObject::connect(&printer, &QSocketNotifier::activated, &printer,
                     [this, bytes, action = std::move(action)] {
                       received += terminal.Received(0);
                       if (received.size() / 2 == bytes) action();
                     });
  }
  std::string Response() const { return display.Text(Field::TxtResponse); }

  support::TestTerminal terminal;
  SerialPort port{[this](int) { return terminal.Device(); }};
  EventLoopClock clock;
  support::FakeDisplay display;
  Transaction transaction{port, display, clock, CodePage::kWestern};
  QSocketNotifier printer{terminal.Descriptor(), QSocketNotifier::Read};
  std::string received;  // by the printer's side, as hex text
};

TEST_F(SerialExchangeTest, FrameGoesOutAndTheReplyComesBack) {
  AfterReceiving(4, [this] { terminal.Send("0602212041420301"); });
  transaction.SendCommand("02210322", 20000);
  EXPECT_EQ(received, "02210322");
  EXPECT_EQ(Response(), "02 21 20 41 42 03 01 ");
  EXPECT_EQ(display.Text(Field::LblHints), "\r\nFirst Track: AB");
}

TEST_F(SerialExchangeTest, ReplyByteByByteIsPutTogether) {
  // Each byte goes out when the one before is stored: what arrives between the console's read and
  // its discard is lost, and that is meant.
  const std::string reply = "0602212041420301";
  std::size_t sent = 0;
  QTimer next;
  QObject::connect(&next, &QTimer::timeout, &next, [&] {
    if (transaction.ReceiveBuffer().size() < sent || sent == reply.size()) return;
    terminal.Send(reply.substr(sent, 2));
    sent += 2;
  });
  AfterReceiving(4, [&next] { next.start(1); });
  transaction.SendCommand("02210322", 20000);
  EXPECT_EQ(Response(), "02 21 20 41 42 03 01 ");
}

TEST_F(SerialExchangeTest, SilenceEndsInTimeUp) {
  QElapsedTimer wall;
  wall.start();
  transaction.SendCommand("02210322", 100);
  EXPECT_EQ(Response(), "Time up! ");
  EXPECT_GE(wall.elapsed(), 99);
  EXPECT_TRUE(port.IsOpen());
}

TEST_F(SerialExchangeTest, WaitingForACardSleepsBetweenThePasses) {
  AfterReceiving(4, [] {});
  int turns = 0;
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &printer,
                   [&turns] { ++turns; });
  transaction.SendCommand("02210322", 100);
  // Ten passes of 10 ms; a wait that polls wakes thousands of times.
  EXPECT_LT(turns, 60);
}

TEST_F(SerialExchangeTest, DeviceThatVanishesDuringAWaitEndsItBeforeItsTimeIsUp) {
  AfterReceiving(4, [this] {
    printer.setEnabled(false);
    terminal.Vanish();
  });
  QElapsedTimer wall;
  wall.start();
  try {
    transaction.SendCommand("02210322", 20000);
    FAIL() << "The loss was not reported.";
  } catch (const PortError& error) {
    EXPECT_THAT(error.what(), StartsWith("COM 1 (" + terminal.Device() + ") is gone: "));
  }
  EXPECT_LT(wall.elapsed(), 20000);
  EXPECT_FALSE(port.IsOpen());
  EXPECT_TRUE(display.ButtonsEnabled());
}

TEST_F(SerialExchangeTest, CommandNestedInAWaitRunsFromTheEventLoop) {
  std::string nested_response;
  AfterReceiving(8, [this] { terminal.Send("10"); });
  QTimer::singleShot(20, &printer, [&] {
    transaction.SendCommand("02540357", 5000);
    nested_response = Response();
  });
  transaction.SendCommand("02210322", 20000);
  EXPECT_EQ(nested_response, "&H10: Reject Response");
  EXPECT_EQ(Response(), "&H10: Reject Response");
  EXPECT_FALSE(transaction.IsWaiting());
}

}  // namespace
}  // namespace vantrel::link
