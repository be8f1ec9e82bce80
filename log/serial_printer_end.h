// SPDX-License-Identifier: MIT
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
  void SetSpeed(int speed) override { TakeSpeed(speed); }
  // The same; false where the device does not take it.
  bool TakeSpeed(int speed);

 private:
  std::string name_;
  std::optional<DeviceLock> lock_;  // given back once the device is closed
  link::UniqueDescriptor device_;
  termios found_{};  // the settings to leave
  std::optional<int> found_speed_;
  int speed_ = 9600;
  bool takes_speed_ = true;
};

}  // namespace vantrel::log
