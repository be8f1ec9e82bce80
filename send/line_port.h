// SPDX-License-Identifier: MIT
#pragma once

#include "link/port.h"
#include "link/unique_descriptor.h"
#include "send/connection.h"
#include "send/poll_clock.h"

#include <deque>
#include <memory>
#include <string>

namespace vantrel::send {

// The line to a printer: a serial device, or a TCP connection where the address is
// "tcp:HOST:PORT". It is closed when made. The texts of its errors are one sentence each.
class LinePort : public link::Port, public EventSource {
 public:
  // `address` names the one line there is; `speed` is in bits a second. The clock must outlive the
  // port, which it watches.
  LinePort(std::string address, int speed, PollClock& clock);
  ~LinePort() override;
  LinePort(const LinePort&) = delete;
  LinePort& operator=(const LinePort&) = delete;

  // Gives up an opening that takes its time; Open throws then.
  void Interrupt() { interrupted_ = true; }

  void SetListener(link::PortListener* listener) override { listener_ = listener; }
  // There is one line, whatever its number.
  void SetCommPort(int) override {}
  void SetSettings(const std::string& settings) override;
  bool IsOpen() const override { return connection_ != nullptr; }
  void Open() override;
  void Close() override { connection_.reset(); }
  link::Bytes Input() override;
  // What has been read and not taken. The system is left what it holds of either way: the
  // transaction discards at every receipt, and neither a reply that goes on nor a frame that is
  // still going out may lose a byte by it.
  void DiscardInput() override { input_.clear(); }
  void DiscardOutput() override {}
  // What the system does not take at once goes out while the clock is waited on.
  void Output(const link::Bytes& bytes) override;

  int Descriptor() const override { return connection_ ? connection_->Descriptor() : -1; }
  short Events() const override;
  void OnReady(short events) override;

 private:
  // Writes what waits; false when the line is gone.
  bool Flush();
  // Reads what is there; false when the line is gone.
  bool Fill();
  link::PortError CloseGone();

  const std::string address_;
  int speed_;
  PollClock& clock_;
  link::PortListener* listener_ = nullptr;
  std::unique_ptr<Connection> connection_;
  bool interrupted_ = false;
  link::Bytes input_;
  std::deque<std::uint8_t> output_;
};

// Whether an address that begins like one of a connection is one: "tcp:HOST:PORT".
bool IsTcpAddress(const std::string& address);

}  // namespace vantrel::send
