#include "printer/pseudo_terminal.h"

#include "tests/printer/device_user.h"

#include <gtest/gtest.h>

#include <sys/ioctl.h>
#include <termios.h>

namespace vantrel {
namespace {

TEST(PseudoTerminal, IsRawBeforeAnyoneHasOpenedIt) {
  PseudoTerminal terminal;
  const DeviceUser user(terminal.DevicePath());
  ASSERT_TRUE(user.IsOpen());
  termios settings{};
  ASSERT_EQ(tcgetattr(user.Descriptor(), &settings), 0);
  EXPECT_EQ(settings.c_lflag & tcflag_t{ECHO | ICANON | ISIG | IEXTEN}, 0U);
  EXPECT_EQ(settings.c_iflag & tcflag_t{ICRNL | IXON | ISTRIP | INLCR | IGNCR}, 0U);
  EXPECT_EQ(settings.c_oflag & tcflag_t{OPOST}, 0U);
  EXPECT_EQ(settings.c_cflag & tcflag_t{CSIZE}, tcflag_t{CS8});
}

TEST(PseudoTerminal, CarriesEveryByteUnchanged) {
  PseudoTerminal terminal;
  const DeviceUser user(terminal.DevicePath());
  Bytes every;
  for (unsigned byte = 0; byte < 256; ++byte) every.push_back(static_cast<std::uint8_t>(byte));
  EXPECT_EQ(terminal.Write(every), 256U);
  std::string spaced = SpacedPairs(HexTextOf(every));
  spaced.pop_back();
  EXPECT_EQ(user.Read(256), spaced);
  user.Write(spaced);
  EXPECT_EQ(terminal.Read(), every);
  // Nothing came back as an echo.
  EXPECT_EQ(user.ReadNow(), "");
}

TEST(PseudoTerminal, HasNothingToReadAtFirst) {
  PseudoTerminal terminal;
  EXPECT_EQ(terminal.Read(), Bytes{});
}

TEST(PseudoTerminal, OutlivesTheOneWhoClosesIt) {
  PseudoTerminal terminal;
  { const DeviceUser first(terminal.DevicePath()); }
  EXPECT_EQ(terminal.Read(), Bytes{});
  const DeviceUser second(terminal.DevicePath());
  second.Write("02 21");
  EXPECT_EQ(terminal.Read(), (Bytes{0x02, 0x21}));
}

TEST(PseudoTerminal, TellsTheSpeedThatAConsoleHasSet) {
  PseudoTerminal terminal;
  const DeviceUser user(terminal.DevicePath());
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
    const DeviceUser killed(terminal.DevicePath());
    ASSERT_EQ(ioctl(killed.Descriptor(), TIOCEXCL), 0);
    ASSERT_EQ(ioctl(killed.Descriptor(), TIOCGEXCL, &exclusive), 0);
    ASSERT_EQ(exclusive, 1);
  }
  terminal.ClearExclusiveUse();
  const DeviceUser next(terminal.DevicePath());
  ASSERT_TRUE(next.IsOpen());
  ASSERT_EQ(ioctl(next.Descriptor(), TIOCGEXCL, &exclusive), 0);
  EXPECT_EQ(exclusive, 0);
}

TEST(PseudoTerminal, LosesWhatDoesNotFitAndGoesOn) {
  PseudoTerminal terminal;
  const DeviceUser user(terminal.DevicePath());
  const Bytes much(1 << 20, 0x41);
  EXPECT_LT(terminal.Write(much), much.size());
  EXPECT_EQ(terminal.Write(much), 0U);
  tcflush(user.Descriptor(), TCIFLUSH);
  user.Write("02");
  EXPECT_EQ(terminal.Read(), Bytes{0x02});
}

TEST(PseudoTerminal, EndsItsDeviceWithItself) {
  std::string path;
  {
    PseudoTerminal terminal;
    path = terminal.DevicePath();
    EXPECT_TRUE(DeviceUser(path).IsOpen());
  }
  EXPECT_FALSE(DeviceUser(path).IsOpen());
}

}  // namespace
}  // namespace vantrel
