// SPDX-License-Identifier: MIT

#include "protocol/line_speed.h"

#include "tests/support/test_terminal.h"

// The kernel's own settings, which take any speed as a number.
#include <gtest/gtest.h>

#include <asm/termbits.h>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

namespace vantrel::protocol {
namespace {

// The console's end of a pseudo-terminal.
class OpenTerminal {
 public:
  OpenTerminal() : descriptor_(open(terminal_.Device().c_str(), O_RDWR | O_NOCTTY)) {
    if (descriptor_ < 0) throw std::runtime_error(terminal_.Device() + " cannot be opened.");
  }
  ~OpenTerminal() { close(descriptor_); }
  OpenTerminal(const OpenTerminal&) = delete;
  OpenTerminal& operator=(const OpenTerminal&) = delete;

  int Descriptor() const { return descriptor_; }
  support::TestTerminal& Terminal() { return terminal_; }

  // Sets both ways' speed to one of the constants of termbits.h.
  bool SetConstant(tcflag_t speed) {
    termios2 settings = Settings();
    settings.c_cflag = (settings.c_cflag & ~static_cast<tcflag_t>(CBAUD)) | speed;
    return ioctl(descriptor_, TCSETS2, &settings) == 0;
  }
  // Sets the speeds at which the terminal receives and sends as numbers.
  bool SetNumbers(speed_t in, speed_t out) {
    termios2 settings = Settings();
    const auto input = static_cast<tcflag_t>(CBAUD) << IBSHIFT;
    settings.c_cflag &= ~(static_cast<tcflag_t>(CBAUD) | input);
    settings.c_cflag |= BOTHER | static_cast<tcflag_t>(BOTHER) << IBSHIFT;
    settings.c_ispeed = in;
    settings.c_ospeed = out;
    return ioctl(descriptor_, TCSETS2, &settings) == 0;
  }

 private:
  termios2 Settings() const {
    termios2 settings{};
    if (ioctl(descriptor_, TCGETS2, &settings) != 0)
      throw std::runtime_error("There are no settings.");
    return settings;
  }

  support::TestTerminal terminal_;
  int descriptor_;
};

TEST(LineSpeed, IsThatOfEveryStandardConstant) {
  OpenTerminal line;
  const struct {
    tcflag_t constant;
    int speed;
  } rows[] = {{B50, 50},         {B134, 134},         {B1200, 1200},      {B1800, 1800},
              {B9600, 9600},     {B38400, 38400},     {B57600, 57600},    {B115200, 115200},
              {B230400, 230400}, {B1000000, 1000000}, {B4000000, 4000000}};
  for (const auto& row : rows) {
    ASSERT_TRUE(line.SetConstant(row.constant)) << row.speed;
    EXPECT_EQ(LineSpeedOf(line.Descriptor()), row.speed);
  }
}

TEST(LineSpeed, IsAnOddNumberToo) {
  OpenTerminal line;
  for (const int speed : {51, 12345, 31250, 250000, 3999999}) {
    ASSERT_TRUE(line.SetNumbers(static_cast<speed_t>(speed), static_cast<speed_t>(speed)));
    EXPECT_EQ(LineSpeedOf(line.Descriptor()), speed);
  }
}

TEST(LineSpeed, IsThatOfSendingWhereReceivingIsOfAnother) {
  OpenTerminal line;
  ASSERT_TRUE(line.SetNumbers(1111, 2222));
  EXPECT_EQ(LineSpeedOf(line.Descriptor()), 2222);
}

TEST(LineSpeed, IsToldOfThePrintersEndToo) {
  OpenTerminal line;
  ASSERT_TRUE(line.SetNumbers(12345, 12345));
  EXPECT_EQ(LineSpeedOf(line.Terminal().Descriptor()), 12345);
}

TEST(LineSpeed, IsNoneOfALineThatWasHungUp) {
  OpenTerminal line;
  ASSERT_TRUE(line.SetConstant(B0));
  EXPECT_EQ(LineSpeedOf(line.Descriptor()), std::nullopt);
  ASSERT_TRUE(line.SetConstant(B2400));
  EXPECT_EQ(LineSpeedOf(line.Descriptor()), 2400);
}

TEST(LineSpeed, IsNoneOfATerminalThatHasVanished) {
  OpenTerminal line;
  line.Terminal().Vanish();
  EXPECT_EQ(LineSpeedOf(line.Descriptor()), std::nullopt);
}

TEST(LineSpeed, IsNoneOfWhatIsNoTerminal) {
  const int null = open("/dev/null", O_RDWR);
  ASSERT_GE(null, 0);
  EXPECT_EQ(LineSpeedOf(null), std::nullopt);
  close(null);
  EXPECT_EQ(LineSpeedOf(-1), std::nullopt);
}

}  // namespace
}  // namespace vantrel::protocol
