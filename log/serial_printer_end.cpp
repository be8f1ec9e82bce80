// SPDX-License-Identifier: MIT

#include "log/serial_printer_end.h"

#include "protocol/line_speed.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace vantrel::log {

SerialPrinterEnd::SerialPrinterEnd(std::string device)
    : name_(std::move(device)),
      device_(open(name_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {
  const auto require = [this](bool success) {
    if (!success) throw std::runtime_error(DeviceErrorInWords(name_, errno));
  };
  require(device_.IsOpen());
  require(tcgetattr(Descriptor(), &found_) == 0);
  try {
    lock_.emplace(name_, Descriptor());
  } catch (const std::system_error& error) {
    throw std::runtime_error(DeviceErrorInWords(name_, error.code().value()));
  }
  found_speed_ = protocol::LineSpeedOf(Descriptor());
  termios settings = found_;
  cfmakeraw(&settings);
  settings.c_cflag &= ~(tcflag_t{CSTOPB} | tcflag_t{CRTSCTS});
  settings.c_cflag |= CLOCAL | CREAD;
  cfsetspeed(&settings, B9600);
  require(tcsetattr(Descriptor(), TCSANOW, &settings) == 0);
  tcflush(Descriptor(), TCIOFLUSH);
  ioctl(Descriptor(), TIOCEXCL);
}

SerialPrinterEnd::~SerialPrinterEnd() {
  ioctl(Descriptor(), TIOCNXCL);
  // First the speed: an odd one is no part of what the settings can tell.
  if (found_speed_) TakeSpeed(*found_speed_);
  tcsetattr(Descriptor(), TCSANOW, &found_);
}

ssize_t SerialPrinterEnd::Read(link::Bytes& room) {
  return read(Descriptor(), room.data(), room.size());
}

ssize_t SerialPrinterEnd::Write(const link::Bytes& bytes) {
  return write(Descriptor(), bytes.data(), bytes.size());
}

bool SerialPrinterEnd::TakeSpeed(int speed) {
  if (speed == speed_) return takes_speed_;
  speed_ = speed;
  takes_speed_ = protocol::SetLineSpeed(Descriptor(), speed);
  return takes_speed_;
}

}  // namespace vantrel::log
