// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"

#include <sys/types.h>

#include <memory>
#include <string>

namespace vantrel::log {

// The end of a line that a real printer is at the other end of.
class PrinterEnd {
 public:
  PrinterEnd() = default;
  virtual ~PrinterEnd() = default;
  PrinterEnd(const PrinterEnd&) = delete;
  PrinterEnd& operator=(const PrinterEnd&) = delete;

  // What it was opened by.
  virtual const std::string& Name() const = 0;
  // For waiting.
  virtual int Descriptor() const = 0;
  // As read() and write() do; neither blocks, and neither raises a signal.
  virtual ssize_t Read(link::Bytes& room) = 0;
  virtual ssize_t Write(const link::Bytes& bytes) = 0;
  // Talks at that speed from now on, in bits a second, where the line has one. What was written
  // before goes out at the old one. A speed that the device does not take leaves it as it is.
  virtual void SetSpeed(int speed) = 0;
};

// Opens a serial device, or with "tcp:HOST:PORT" a printer behind a serial server. Throws
// std::runtime_error, in words, where that is nothing that can be used.
std::unique_ptr<PrinterEnd> OpenPrinter(const std::string& device);

// Why a device cannot be used, in words.
std::string DeviceErrorInWords(const std::string& device, int error);

}  // namespace vantrel::log
