// SPDX-License-Identifier: MIT

#include "printer/line/pseudo_terminal.h"

#include "tests/support/device_user.h"
#include "tests/support/patience.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <memory>
#include <string>

namespace vantrel::printer {
namespace {

// What comes from the console, until `count` bytes have come: the system carries them over in its
// own time.
link::Bytes ReadFrom(PseudoTerminal& terminal, std::size_t count) {
  link::Bytes bytes;
  pollfd readable = {terminal.Descriptor(), POLLIN, 0};
  while (bytes.size() < count && poll(&readable, 1, support::kPatience) > 0) {
    const link::Bytes part = terminal.Read();
    bytes.insert(bytes.end(), part.begin(), part.end());
  }
  return bytes;
}

TEST(PseudoTerminal, IsRawBeforeAnyoneHasOpenedIt) {
  PseudoTerminal terminal;
  const support::DeviceUser user(terminal.DevicePath());
  ASSERT_TRUE(user.IsOpen());
  termios settings{};
  ASSERT_EQ(tcgetattr(user.Descriptor(), &settings), 0);
  EXPECT_EQ(settings.c_lflag & tcflag_t{ECHO | ICANON | ISIG | IEXTEN}, 0U);
  EXPECT_EQ(settings.c_iflag & tcflag_t{ICRNL | IXON | ISTRIP | INLCR | IGNCR}, 0U);
  EXPECT_EQ(settings.c_oflag & tcflag_t{OPOST}, 0U);
  EXPECT_EQ(settings.c_cflag & tcflag_t{CSIZE}, tcflag_t{CS8});
  // Nobody waits for a modem, and what comes is heard.
  EXPECT_EQ(settings.c_cflag & tcflag_t{CLOCAL | CREAD}, tcflag_t{CLOCAL | CREAD});
}

TEST(PseudoTerminal, CarriesEveryByteUnchanged) {
  PseudoTerminal terminal;
  const support::DeviceUser user(terminal.DevicePath());
  link::Bytes every;
  for (unsigned byte = 0; byte < 256; ++byte) every.push_back(static_cast<std::uint8_t>(byte));
  EXPECT_EQ(terminal.Write(every), 256U);
  std::string spaced = link::SpacedPairs(link::HexTextOf(every));
  spaced.pop_back();
  EXPECT_EQ(user.Read(256), spaced);
  user.Write(spaced);
  EXPECT_EQ(ReadFrom(terminal, every.size()), every);
  // Nothing came back as an echo.
  EXPECT_EQ(user.ReadNow(), "");
}

TEST(PseudoTerminal, HasNothingToReadAtFirst) {
  PseudoTerminal terminal;
  EXPECT_EQ(terminal.Read(), link::Bytes{});
}

TEST(PseudoTerminal, OutlivesTheOneWhoClosesIt) {
  PseudoTerminal terminal;
  { const support::DeviceUser first(terminal.DevicePath()); }
  EXPECT_EQ(terminal.Read(), link::Bytes{});
  const support::DeviceUser second(terminal.DevicePath());
  second.Write("02 21");
  EXPECT_EQ(ReadFrom(terminal, 2), (link::Bytes{0x02, 0x21}));
}

TEST(PseudoTerminal, TellsTheSpeedThatAConsoleHasSet) {
  PseudoTerminal terminal;
  const support::DeviceUser user(terminal.DevicePath());
  EXPECT_EQ(terminal.ConsoleSpeed(), 9600);
  termios settings{};
  ASSERT_EQ(tcgetattr(user.Descriptor(), &settings), 0);
  for (const auto& [constant, speed] :
       {std::pair<speed_t, int>(B2400, 2400), std::pair<speed_t, int>(B38400, 38400)}) {
    cfsetspeed(&settings, constant);
    ASSERT_EQ(tcsetattr(user.Descriptor(), TCSANOW, &settings), 0);
    EXPECT_EQ(terminal.ConsoleSpeed(), speed);
  }
  cfsetspeed(&settings, B0);
  ASSERT_EQ(tcsetattr(user.Descriptor(), TCSANOW, &settings), 0);
  EXPECT_FALSE(terminal.ConsoleSpeed());
}

TEST(PseudoTerminal, EndsExclusiveUse) {
  PseudoTerminal terminal;
  int exclusive = 0;
  {
    const support::DeviceUser killed(terminal.DevicePath());
    ASSERT_EQ(ioctl(killed.Descriptor(), TIOCEXCL), 0);
    ASSERT_EQ(ioctl(killed.Descriptor(), TIOCGEXCL, &exclusive), 0);
    ASSERT_EQ(exclusive, 1);
  }
  terminal.ClearExclusiveUse();
  const support::DeviceUser next(terminal.DevicePath());
  ASSERT_TRUE(next.IsOpen());
  ASSERT_EQ(ioctl(next.Descriptor(), TIOCGEXCL, &exclusive), 0);
  EXPECT_EQ(exclusive, 0);
}

TEST(PseudoTerminal, LosesWhatDoesNotFitAndGoesOn) {
  PseudoTerminal terminal;
  const support::DeviceUser user(terminal.DevicePath());
  const link::Bytes much(1 << 20, 0x41);
  // The system makes some more room while it carries the first bytes over, but ever less.
  std::size_t taken = 0;
  for (std::size_t part = 1; part > 0 && taken < much.size(); taken += part)
    part = terminal.Write(much);
  EXPECT_GT(taken, 0U);
  EXPECT_LT(taken, much.size());
  tcflush(user.Descriptor(), TCIFLUSH);
  user.Write("02");
  EXPECT_EQ(ReadFrom(terminal, 1), link::Bytes{0x02});
}

TEST(PseudoTerminal, EndsItsDeviceWithItself) {
  auto terminal = std::make_unique<PseudoTerminal>();
  const std::string path = terminal->DevicePath();
  // While it is in use, no other program's terminal gets its name.
  const support::DeviceUser user(path);
  ASSERT_TRUE(user.IsOpen());
  terminal.reset();
  EXPECT_FALSE(support::DeviceUser(path).IsOpen());
  pollfd gone = {user.Descriptor(), 0, 0};
  EXPECT_EQ(poll(&gone, 1, 0), 1);
  EXPECT_NE(gone.revents & POLLHUP, 0);
}

TEST(PseudoTerminal, TellsWhetherAConsoleHasTakenAll) {
  PseudoTerminal terminal;
  const support::DeviceUser user(terminal.DevicePath());
  EXPECT_TRUE(terminal.IsTaken());
  // At once, however late the system carries it over.
  for (int i = 0; i < 100; ++i) {
    terminal.Write({0x06});
    EXPECT_FALSE(terminal.IsTaken());
    EXPECT_EQ(user.Read(1), "06");
    EXPECT_TRUE(terminal.IsTaken());
  }
}

}  // namespace
}  // namespace vantrel::printer
