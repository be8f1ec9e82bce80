// SPDX-License-Identifier: MIT

#include "printer/line/pseudo_terminal.h"

#include "protocol/line_speed.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace vantrel::printer {
namespace {

constexpr std::size_t kMostPerRead = 65536;

void Require(bool success, const char* what) {
  if (!success) throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

PseudoTerminal::PseudoTerminal() {
  master_.Reset(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
  Require(master_.IsOpen(), "The system gives no pseudo-terminal");
  // The master's settings are the slave's, and the slave is locked still.
  termios settings{};
  Require(tcgetattr(master_.Get(), &settings) == 0,
          "The pseudo-terminal's settings cannot be read");
  cfmakeraw(&settings);
  settings.c_cflag |= CLOCAL | CREAD;
  cfsetspeed(&settings, B9600);
  Require(tcsetattr(master_.Get(), TCSANOW, &settings) == 0,
          "The pseudo-terminal cannot be made raw");
  std::array<char, 128> name{};
  Require(grantpt(master_.Get()) == 0 && unlockpt(master_.Get()) == 0 &&
              ptsname_r(master_.Get(), name.data(), name.size()) == 0,
          "The pseudo-terminal has no device");
  device_path_ = name.data();
  // With a handle of its own to the device, the line does not hang up when a console closes it.
  slave_.Reset(open(device_path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
  Require(slave_.IsOpen(), "The pseudo-terminal's device cannot be opened");
}

link::Bytes PseudoTerminal::Read() {
  link::Bytes bytes;
  std::array<std::uint8_t, 4096> part{};
  while (bytes.size() < kMostPerRead) {
    const ssize_t count = read(master_.Get(), part.data(), part.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    bytes.insert(bytes.end(), part.begin(), part.begin() + count);
  }
  return bytes;
}

std::size_t PseudoTerminal::Write(const link::Bytes& bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t count = write(master_.Get(), bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    written += static_cast<std::size_t>(count);
  }
  return written;
}

bool PseudoTerminal::IsTaken() const {
  // To look whether there is something to read carries over what is under way from the master.
  pollfd device{slave_.Get(), POLLIN, 0};
  poll(&device, 1, 0);
  int unread = 0;
  return ioctl(slave_.Get(), FIONREAD, &unread) != 0 || unread == 0;
}

std::optional<int> PseudoTerminal::ConsoleSpeed() const {
  return protocol::LineSpeedOf(slave_.Get());
}

void PseudoTerminal::ClearExclusiveUse() { ioctl(slave_.Get(), TIOCNXCL); }

std::unique_ptr<protocol::LineEnd> MakePseudoTerminal() {
  return std::make_unique<PseudoTerminal>();
}

}  // namespace vantrel::printer
