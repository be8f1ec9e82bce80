#pragma once

#include "link/unique_descriptor.h"
#include "log/device_lock.h"
#include "log/printer_end.h"

#include <termios.h>

#include <optional>
#include <string>

namespace vantrel::log {

// A serial device, raw, of 8 bits without parity, locked for this program alone.
class SerialPrinterEnd final : public PrinterEnd {
 public:
  // Throws std::runtime_error, in words, where `device` is no device that can be used, or another
  // program has locked it.
  explicit SerialPrinterEnd(std::string device);
  // Leaves the device's settings as they were found.
  ~SerialPrinterEnd() override;

  const std::string& Name() const override { return name_; }
  int Descriptor() const override { return device_.Get(); }
  ssize_t Read(link::Bytes& room) override;
  ssize_t Write(const link::Bytes& bytes) override;
  void SetSpeed(int speed) override;

 private:
  std::string name_;
  link::UniqueDescriptor device_;
  std::optional<DeviceLock> lock_;
  termios found_{};  // the settings to leave
  std::optional<int> found_speed_;
  int speed_ = 9600;
};

}  // namespace vantrel::log
