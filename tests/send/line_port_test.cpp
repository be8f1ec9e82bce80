// SPDX-License-Identifier: MIT

// The line on a pseudo-terminal, heard as the transaction hears it.

#include "send/line_port.h"

#include "link/unique_descriptor.h"
#include "tests/send/local_listener.h"
#include "tests/support/test_terminal.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <unistd.h>

#include <functional>
#include <string>
#include <vector>

namespace vantrel::send {
namespace {

class LinePortTest : public testing::Test, public link::PortListener {
 protected:
  LinePortTest() {
    port_.SetListener(this);
    port_.Open();
  }
  // Takes what has come and then empties the port both ways, as the transaction does.
  void OnComm(int) override {
    heard_ += link::HexTextOf(port_.Input());
    if (meanwhile_) std::exchange(meanwhile_, {})();
    port_.DiscardInput();
    port_.DiscardOutput();
  }
  void OnLost(const link::PortError& error) override { lost_ = error.what(); }

  support::TestTerminal terminal_;
  PollClock clock_;
  LinePort port_{terminal_.Device(), 9600, clock_};
  std::string heard_;
  std::string lost_;
  std::function<void()> meanwhile_;  // once, after the bytes of a call have been taken
};

// What is heard of a port, in its order: bytes as hex text, and the end in words.
struct Ears : link::PortListener {
  explicit Ears(LinePort& port) : line(port) { line.SetListener(this); }
  void OnComm(int) override { heard.push_back(link::HexTextOf(line.Input())); }
  void OnLost(const link::PortError& error) override { heard.emplace_back(error.what()); }

  LinePort& line;
  std::vector<std::string> heard;
};

// A TCP port on this machine that speaks to the first who connects.
class Host {
 public:
  std::string HostAndPort() const { return listener_.HostAndPort(); }
  // To who has connected.
  void SendAndEnd(const std::string& bytes) const {
    const link::UniqueDescriptor guest(
        accept4(listener_.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
    EXPECT_EQ(write(guest.Get(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }

 private:
  const LocalListener listener_{1};
};

TEST_F(LinePortTest, LosesNoByteThatComesBeforeTheDiscard) {
  meanwhile_ = [this] {
    terminal_.Send("0258");
    while (terminal_.Unread() < 2) continue;
  };
  terminal_.Send("06");
  clock_.WaitForEvents();
  while (heard_.size() < 6) clock_.WaitForEvents();
  EXPECT_EQ(heard_, "060258");
}

TEST_F(LinePortTest, SendsAFrameWholeThoughAByteComesMeanwhile) {
  // More than the system takes at once.
  const link::Bytes frame(200'000, 0x41);
  port_.Output(frame);
  terminal_.Send("07");
  while (heard_.empty()) clock_.WaitForEvents();
  EXPECT_EQ(heard_, "07");
  std::size_t received = 0;
  while (received < frame.size()) {
    const std::size_t more = terminal_.Received(1).size() / 2;
    ASSERT_GT(more, 0U) << received;
    received += more;
    clock_.Yield();
  }
  EXPECT_EQ(received, frame.size());
}

TEST_F(LinePortTest, EmptiesWhatLiesUnreadWhenItIsOpened) {
  port_.Close();
  terminal_.Send("FF");
  while (terminal_.Unread() < 1) continue;
  port_.Open();
  terminal_.Send("06");
  clock_.WaitForEvents();
  EXPECT_EQ(heard_, "06");
}

// As many bytes as are read at once, so that the end is met in the same turn.
TEST_F(LinePortTest, TellsWhatCameBeforeTheEndOfAConnection) {
  const Host host;
  LinePort port("tcp:" + host.HostAndPort(), 9600, clock_);
  Ears ears(port);
  port.Open();
  host.SendAndEnd(std::string(4096, 'A'));
  while (ears.heard.empty() || ears.heard.back().starts_with("4141")) clock_.WaitForEvents();
  std::string bytes;
  for (int i = 0; i < 4096; ++i) bytes += "41";
  EXPECT_EQ(ears.heard, (std::vector<std::string>{
                            bytes, "The connection to " + host.HostAndPort() + " has ended."}));
}

TEST_F(LinePortTest, TellsTheEndOfTheDeviceAndIsClosed) {
  terminal_.Vanish();
  while (lost_.empty()) clock_.WaitForEvents();
  EXPECT_EQ(lost_, "The device " + terminal_.Device() + " is gone.");
  EXPECT_FALSE(port_.IsOpen());
  EXPECT_THROW(port_.Output({0x02}), link::PortError);
}

}  // namespace
}  // namespace vantrel::send
