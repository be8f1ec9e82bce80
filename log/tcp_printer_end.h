// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"
#include "log/printer_end.h"
#include "protocol/tcp_address.h"

#include <string>

namespace vantrel::log {

// A printer behind a serial server that carries raw bytes over TCP. Its speed is the server's
// business.
class TcpPrinterEnd final : public PrinterEnd {
 public:
  // Connects within ten seconds. Throws std::runtime_error, in words, when that fails.
  explicit TcpPrinterEnd(const protocol::TcpAddress& address);

  const std::string& Name() const override { return name_; }
  int Descriptor() const override { return socket_.Get(); }
  ssize_t Read(link::Bytes& room) override;
  ssize_t Write(const link::Bytes& bytes) override;
  void SetSpeed(int) override {}

 private:
  std::string name_;
  link::UniqueDescriptor socket_;
};

}  // namespace vantrel::log
