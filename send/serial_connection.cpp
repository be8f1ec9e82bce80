#include "link/port.h"
#include "link/unique_descriptor.h"
#include "log/device_lock.h"
#include "log/printer_end.h"
#include "protocol/line_speed.h"
#include "send/connection.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <system_error>

namespace vantrel::send {
namespace {

using link::PortError;

PortError CannotUse(const std::string& device, int error) {
  return PortError(log::DeviceErrorInWords(device, error));
}

class SerialConnection : public Connection {
 public:
  SerialConnection(const std::string& device, int speed) : device_(device) {
    descriptor_.Reset(open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
    if (!descriptor_.IsOpen() || tcgetattr(Descriptor(), &found_) != 0)
      throw CannotUse(device, errno);
    try {
      lock_.emplace(device, Descriptor());
    } catch (const std::system_error& error) {
      throw CannotUse(device, error.code().value());
    }
    found_speed_ = protocol::LineSpeedOf(Descriptor());
    termios settings = found_;
    cfmakeraw(&settings);
    settings.c_cflag &= ~(tcflag_t{CSTOPB} | tcflag_t{CRTSCTS});
    settings.c_cflag |= CLOCAL | CREAD;
    if (tcsetattr(Descriptor(), TCSANOW, &settings) != 0) throw CannotUse(device, errno);
    if (!SetSpeed(speed)) {
      PutSettingsBack();
      throw PortError("The device " + device + " does not take the speed " + std::to_string(speed) +
                      ".");
    }
    tcflush(Descriptor(), TCIOFLUSH);
    ioctl(Descriptor(), TIOCEXCL);
  }
  ~SerialConnection() override {
    ioctl(Descriptor(), TIOCNXCL);
    PutSettingsBack();
  }
  SerialConnection(const SerialConnection&) = delete;
  SerialConnection& operator=(const SerialConnection&) = delete;

  int Descriptor() const final { return descriptor_.Get(); }
  std::string GoneInWords() const override { return "The device " + device_ + " is gone."; }
  bool SetSpeed(int speed) final { return protocol::SetLineSpeed(Descriptor(), speed); }

 private:
  void PutSettingsBack() {
    tcsetattr(Descriptor(), TCSANOW, &found_);
    // The structure of the C library does not hold every speed.
    if (found_speed_ && protocol::LineSpeedOf(Descriptor()) != found_speed_)
      protocol::SetLineSpeed(Descriptor(), *found_speed_);
  }

  const std::string device_;
  // Destroyed after the descriptor is closed.
  std::optional<log::DeviceLock> lock_;
  link::UniqueDescriptor descriptor_;
  termios found_{};
  std::optional<int> found_speed_;
};

}  // namespace

std::unique_ptr<Connection> OpenSerial(const std::string& device, int speed) {
  return std::make_unique<SerialConnection>(device, speed);
}

}  // namespace vantrel::send
