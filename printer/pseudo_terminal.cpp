#include "printer/pseudo_terminal.h"

#include "printer/line_speed.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace vantrel {
namespace {

constexpr std::size_t kMostPerRead = 65536;

void Require(bool success, const char* what) {
  if (!success) throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

PseudoTerminal::PseudoTerminal() {
  try {
    Open();
  } catch (...) {
    Close();
    throw;
  }
}

PseudoTerminal::~PseudoTerminal() { Close(); }

void PseudoTerminal::Open() {
  master_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
  Require(master_ >= 0, "The system gives no pseudo-terminal");
  // The master's settings are the slave's, and the slave is locked still.
  termios settings{};
  Require(tcgetattr(master_, &settings) == 0, "The pseudo-terminal's settings cannot be read");
  cfmakeraw(&settings);
  settings.c_cflag |= CLOCAL | CREAD;
  cfsetspeed(&settings, B9600);
  Require(tcsetattr(master_, TCSANOW, &settings) == 0, "The pseudo-terminal cannot be made raw");
  std::array<char, 128> name{};
  Require(grantpt(master_) == 0 && unlockpt(master_) == 0 &&
              ptsname_r(master_, name.data(), name.size()) == 0,
          "The pseudo-terminal has no device");
  device_path_ = name.data();
  // With a handle of its own to the device, the line does not hang up when a console closes it.
  slave_ = open(device_path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
  Require(slave_ >= 0, "The pseudo-terminal's device cannot be opened");
}

void PseudoTerminal::Close() {
  if (slave_ >= 0) close(slave_);
  if (master_ >= 0) close(master_);
}

Bytes PseudoTerminal::Read() {
  Bytes bytes;
  std::array<std::uint8_t, 4096> part{};
  while (bytes.size() < kMostPerRead) {
    const ssize_t count = read(master_, part.data(), part.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    bytes.insert(bytes.end(), part.begin(), part.begin() + count);
  }
  return bytes;
}

std::size_t PseudoTerminal::Write(const Bytes& bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t count = write(master_, bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    written += static_cast<std::size_t>(count);
  }
  return written;
}

std::optional<int> PseudoTerminal::ConsoleSpeed() const { return LineSpeedOf(slave_); }

void PseudoTerminal::ClearExclusiveUse() { ioctl(slave_, TIOCNXCL); }

}  // namespace vantrel
