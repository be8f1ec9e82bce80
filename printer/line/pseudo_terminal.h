// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"
#include "protocol/line_end.h"

#include <memory>
#include <string>

namespace vantrel::printer {

// A pseudo-terminal, of which this side is the printer's and the other is a serial device that a
// console opens. It is raw before anyone can open it, and lives until it is destroyed, whoever
// opens and closes the device. What is written and does not fit, because nobody reads, is lost as
// on a line with nobody at its end.
class PseudoTerminal final : public protocol::LineEnd {
 public:
  // Throws std::system_error when the system gives none.
  PseudoTerminal();

  // The device to open, "/dev/pts/7".
  const std::string& DevicePath() const { return device_path_; }

  const std::string& Address() const override { return device_path_; }
  int Descriptor() const override { return master_.Get(); }
  link::Bytes Read() override;
  std::size_t Write(const link::Bytes& bytes) override;
  bool IsTaken() const override;
  std::optional<int> ConsoleSpeed() const override;
  void ClearExclusiveUse() override;

 private:
  link::UniqueDescriptor master_;
  link::UniqueDescriptor slave_;
  std::string device_path_;
};

// A new one each time. Throws as its constructor does.
std::unique_ptr<protocol::LineEnd> MakePseudoTerminal();

}  // namespace vantrel::printer
