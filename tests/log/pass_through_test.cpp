// SPDX-License-Identifier: MIT

#include "log/pass_through.h"

#include "printer/line/pseudo_terminal.h"
#include "protocol/line_speed.h"
#include "tests/support/device_user.h"
#include "tests/support/patience.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <iterator>
#include <memory>
#include <mutex>
#include <numeric>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;

// Keeps what a pass-through tells, from its thread.
class Told {
 public:
  PassThrough::Listener Listener() {
    return {[this](protocol::Direction direction, const link::Bytes& bytes, WallTime) {
              const std::lock_guard lock(mutex_);
              link::Bytes& all = bytes_.at(static_cast<std::size_t>(direction));
              all.insert(all.end(), bytes.begin(), bytes.end());
              changed_.notify_all();
            },
            [this](const std::string& reason) {
              const std::lock_guard lock(mutex_);
              end_ = reason;
              changed_.notify_all();
            }};
  }
  link::Bytes WaitFor(protocol::Direction direction, std::size_t count) {
    std::unique_lock lock(mutex_);
    const link::Bytes& all = bytes_.at(static_cast<std::size_t>(direction));
    changed_.wait_for(lock, 10s, [&] { return all.size() >= count; });
    return all;
  }
  std::string WaitForEnd() {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, 10s, [&] { return !end_.empty(); });
    return end_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::array<link::Bytes, 2> bytes_;
  std::string end_;
};

// Waits until a descriptor has something to read.
bool IsReadable(int descriptor) {
  pollfd ready{descriptor, POLLIN, 0};
  return poll(&ready, 1, support::kPatience) == 1;
}

class PassThroughTest : public testing::Test {
 protected:
  // What a side of the line reads, until it is as long as this.
  static link::Bytes ReadAll(printer::PseudoTerminal& terminal, std::size_t count) {
    link::Bytes all;
    while (all.size() < count && IsReadable(terminal.Descriptor())) {
      const link::Bytes part = terminal.Read();
      all.insert(all.end(), part.begin(), part.end());
    }
    return all;
  }

  Told told_;
  std::unique_ptr<printer::PseudoTerminal> printer_ = std::make_unique<printer::PseudoTerminal>();
  PassThrough pass_{printer_->DevicePath(), printer::MakePseudoTerminal(), told_.Listener()};
  support::DeviceUser console_{pass_.DevicePath()};
};

TEST_F(PassThroughTest, PassesEveryByteOnBothWays) {
  link::Bytes every(256);
  std::iota(every.begin(), every.end(), std::uint8_t{0});
  console_.Write(link::HexTextOf(every));
  EXPECT_EQ(ReadAll(*printer_, 256), every);
  EXPECT_EQ(printer_->Write(every), 256U);
  std::string spaced = link::SpacedPairs(link::HexTextOf(every));
  spaced.pop_back();
  EXPECT_EQ(console_.Read(256), spaced);
  EXPECT_EQ(told_.WaitFor(protocol::Direction::kFromConsole, 256), every);
  EXPECT_EQ(told_.WaitFor(protocol::Direction::kFromPrinter, 256), every);
}

TEST_F(PassThroughTest, LosesNothingOfMuch) {
  // More than all buffers on the way hold, so that the console has to wait for the printer.
  link::Bytes much(300000);
  for (std::size_t i = 0; i < much.size(); ++i)
    much[i] = static_cast<std::uint8_t>((i * 31U) >> 2U);
  std::thread writer([&] { console_.Write(link::HexTextOf(much)); });
  const link::Bytes read = ReadAll(*printer_, much.size());
  writer.join();
  EXPECT_EQ(read, much);
  EXPECT_EQ(told_.WaitFor(protocol::Direction::kFromConsole, much.size()), much);
}

TEST_F(PassThroughTest, FollowsTheSpeedOfTheConsole) {
  const auto printer_speed = [this] {
    termios settings{};
    tcgetattr(printer_->Descriptor(), &settings);
    return cfgetospeed(&settings);
  };
  for (const speed_t speed : {speed_t{B19200}, speed_t{B115200}, speed_t{B9600}}) {
    termios settings{};
    ASSERT_EQ(tcgetattr(console_.Descriptor(), &settings), 0);
    cfsetspeed(&settings, speed);
    ASSERT_EQ(tcsetattr(console_.Descriptor(), TCSANOW, &settings), 0);
    console_.Write("02");
    ASSERT_EQ(ReadAll(*printer_, 1), link::Bytes{0x02});
    // What is written at a speed goes out at that speed.
    EXPECT_EQ(printer_speed(), speed);
  }
}

TEST_F(PassThroughTest, FollowsAnOddSpeedAndSetsItOnce) {
  ASSERT_TRUE(protocol::SetLineSpeed(console_.Descriptor(), 12345));
  console_.Write("02");
  ASSERT_EQ(ReadAll(*printer_, 1), link::Bytes{0x02});
  EXPECT_EQ(printer_->ConsoleSpeed(), 12345);
  // Nothing but a change of the console's speed touches the device again.
  ASSERT_TRUE(protocol::SetLineSpeed(printer_->Descriptor(), 2400));
  console_.Write("03");
  ASSERT_EQ(ReadAll(*printer_, 1), link::Bytes{0x03});
  EXPECT_EQ(printer_->ConsoleSpeed(), 2400);
}

TEST(PassThrough, LeavesAnOddSpeedAsItWasFound) {
  printer::PseudoTerminal printer;
  ASSERT_TRUE(protocol::SetLineSpeed(printer.Descriptor(), 12345));
  {
    const PassThrough pass(printer.DevicePath(), printer::MakePseudoTerminal(), {});
    EXPECT_EQ(printer.ConsoleSpeed(), 9600);
  }
  EXPECT_EQ(printer.ConsoleSpeed(), 12345);
}

TEST_F(PassThroughTest, TellsThatTheDeviceIsGone) {
  const std::string device = printer_->DevicePath();
  printer_.reset();
  EXPECT_EQ(told_.WaitForEnd(), "The device " + device + " is gone.");
}

TEST_F(PassThroughTest, ServesAConsoleThatComesAfterAnother) {
  { const support::DeviceUser first(pass_.DevicePath()); }
  const support::DeviceUser second(pass_.DevicePath());
  second.Write("02 21");
  EXPECT_EQ(ReadAll(*printer_, 2), (link::Bytes{0x02, 0x21}));
}

TEST(PassThrough, LeavesTheDeviceAsItWasFound) {
  printer::PseudoTerminal printer;
  const auto settings_of = [&printer] {
    termios settings{};
    tcgetattr(printer.Descriptor(), &settings);
    return settings;
  };
  termios before = settings_of();
  before.c_lflag |= ICANON;
  cfsetspeed(&before, B38400);
  ASSERT_EQ(tcsetattr(printer.Descriptor(), TCSANOW, &before), 0);
  {
    const PassThrough pass(printer.DevicePath(), printer::MakePseudoTerminal(), {});
    EXPECT_EQ(settings_of().c_lflag & tcflag_t{ICANON}, 0U);
  }
  EXPECT_EQ(settings_of().c_lflag, before.c_lflag);
  const termios after = settings_of();
  EXPECT_EQ(cfgetospeed(&after), speed_t{B38400});
}

TEST(PassThrough, LeavesNoDescriptorOpen) {
  const auto open_descriptors = [] {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all));
  };
  const printer::PseudoTerminal printer;
  // What the library opens once and keeps.
  { const PassThrough first(printer.DevicePath(), printer::MakePseudoTerminal(), {}); }
  const auto before = open_descriptors();
  for (int i = 0; i < 3; ++i) {
    const PassThrough pass(printer.DevicePath(), printer::MakePseudoTerminal(), {});
    EXPECT_GT(open_descriptors(), before);
  }
  EXPECT_EQ(open_descriptors(), before);
}

TEST(PassThrough, SaysInWordsWhatCannotBeUsed) {
  const auto error_of = [](const std::string& device) -> std::string {
    try {
      const PassThrough pass(device, printer::MakePseudoTerminal(), {});
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "";
  };
  EXPECT_EQ(error_of("/dev/no-such-device"), "There is no device /dev/no-such-device.");
  EXPECT_EQ(error_of("/dev/null"), "/dev/null is no serial device.");
  EXPECT_EQ(error_of("/"), "The device / cannot be used: Is a directory.");
}

}  // namespace
}  // namespace vantrel::log
