// SPDX-License-Identifier: MIT

#include "tests/support/test_terminal.h"

#include "link/frame.h"
#include "tests/support/patience.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace vantrel::support {

TestTerminal::TestTerminal() {
  std::array<char, 128> name = {};
  termios raw = {};
  cfmakeraw(&raw);
  raw.c_cflag |= CREAD | CLOCAL;
  if (openpty(&printer_, &console_, name.data(), &raw, nullptr) != 0)
    throw std::system_error(errno, std::generic_category(), "openpty");
  device_ = name.data();
}

TestTerminal::~TestTerminal() {
  Vanish();
  close(console_);
}

void TestTerminal::Send(std::string_view hex) const {
  const link::Bytes bytes = link::BytesOf(hex);
  EXPECT_EQ(write(printer_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

std::string TestTerminal::Received(std::size_t bytes) const {
  std::string hex;
  pollfd descriptor = {printer_, POLLIN, 0};
  while (poll(&descriptor, 1, hex.size() / 2 < bytes ? kPatience : 0) > 0) {
    link::Bytes block(4096);
    const ssize_t count = read(printer_, block.data(), block.size());
    if (count <= 0) break;
    block.resize(static_cast<std::size_t>(count));
    hex += link::HexTextOf(block);
  }
  return hex;
}

int TestTerminal::Unread() const {
  int count = 0;
  ioctl(console_, FIONREAD, &count);
  return count;
}

unsigned TestTerminal::Speed() const {
  termios line = {};
  tcgetattr(console_, &line);
  const std::pair<speed_t, unsigned> speeds[] = {
      {B2400, 2400}, {B4800, 4800}, {B9600, 9600}, {B19200, 19200}, {B38400, 38400}};
  for (const auto& [code, speed] : speeds)
    if (cfgetospeed(&line) == code && cfgetispeed(&line) == code) return speed;
  return 0;
}

bool TestTerminal::Is8N1() const {
  termios line = {};
  tcgetattr(console_, &line);
  return (line.c_cflag & (CSIZE | PARENB | CSTOPB)) == CS8;
}

bool TestTerminal::HasFlowControl() const {
  termios line = {};
  tcgetattr(console_, &line);
  return (line.c_cflag & CRTSCTS) != 0 || (line.c_iflag & (IXON | IXOFF)) != 0;
}

void TestTerminal::SetFlowControl() {
  termios line = {};
  tcgetattr(console_, &line);
  line.c_cflag |= CRTSCTS;
  line.c_iflag |= IXON | IXOFF;
  EXPECT_EQ(tcsetattr(console_, TCSANOW, &line), 0);
}

void TestTerminal::Vanish() {
  if (printer_ >= 0) close(std::exchange(printer_, -1));
}

}  // namespace vantrel::support
