// SPDX-License-Identifier: MIT

#include "protocol/line_speed.h"

// The kernel's own view of a terminal's settings tells every speed as a number, which that of
// termios.h does not; the two headers cannot be included together.
#include <asm/termbits.h>
#include <sys/ioctl.h>

#include <utility>

namespace vantrel::protocol {
namespace {

// How the settings tell a speed: the usual ones have bits of their own, by which programs that know
// no others tell them.
tcflag_t SpeedBitsOf(int speed) {
  constexpr std::pair<int, tcflag_t> kUsual[] = {
      {50, B50},           {75, B75},           {110, B110},         {134, B134},
      {150, B150},         {200, B200},         {300, B300},         {600, B600},
      {1200, B1200},       {1800, B1800},       {2400, B2400},       {4800, B4800},
      {9600, B9600},       {19200, B19200},     {38400, B38400},     {57600, B57600},
      {115200, B115200},   {230400, B230400},   {460800, B460800},   {500000, B500000},
      {576000, B576000},   {921600, B921600},   {1000000, B1000000}, {1152000, B1152000},
      {1500000, B1500000}, {2000000, B2000000}, {2500000, B2500000}, {3000000, B3000000},
      {3500000, B3500000}, {4000000, B4000000}};
  for (const auto& [usual, bits] : kUsual) {
    if (usual == speed) return bits;
  }
  return BOTHER;
}

}  // namespace

std::optional<int> LineSpeedOf(int descriptor) {
  termios2 settings{};
  if (ioctl(descriptor, TCGETS2, &settings) != 0 || settings.c_ospeed == 0) return std::nullopt;
  return static_cast<int>(settings.c_ospeed);
}

bool SetLineSpeed(int descriptor, int speed) {
  termios2 settings{};
  if (ioctl(descriptor, TCGETS2, &settings) != 0) return false;
  const tcflag_t all_bits = CBAUD;
  const tcflag_t bits = SpeedBitsOf(speed);
  // The bits of the speed of what comes in stay 0: it is that of what goes out.
  settings.c_cflag &= ~(all_bits | all_bits << IBSHIFT);
  settings.c_cflag |= bits;
  settings.c_ispeed = static_cast<speed_t>(speed);
  settings.c_ospeed = static_cast<speed_t>(speed);
  return ioctl(descriptor, TCSETSW2, &settings) == 0;
}

}  // namespace vantrel::protocol
