// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"
#include "protocol/line_end.h"
#include "protocol/tcp_address.h"

#include <functional>
#include <memory>
#include <string>

namespace vantrel::printer {

// A line over a socket that is listened on, with raw bytes and one console at a time, as on a
// cable. A further console is closed at once. One that goes is an unplugged cable: what is written
// meanwhile is lost, as is what it does not read in time. One that only ends what it sends is
// written to until the next comes.
class SocketLine final : public protocol::LineEnd {
 public:
  // Takes a socket over that is being listened on and does not block. `at_end`, which may be empty,
  // is called when the line ends. Throws std::system_error when the system gives no descriptor.
  SocketLine(link::UniqueDescriptor listener, std::string address, std::function<void()> at_end);
  ~SocketLine() override;

  const std::string& Address() const override { return address_; }
  int Descriptor() const override { return events_.Get(); }
  int WriteDescriptor() const override { return console_.Get(); }
  link::Bytes Read() override;
  std::size_t Write(const link::Bytes& bytes) override;
  bool IsTaken() const override;

 private:
  // Takes the consoles in that have come.
  void Welcome(link::Bytes& bytes);
  void ReadConsole(link::Bytes& bytes);
  void CloseConsole();

  std::string address_;
  std::function<void()> at_end_;
  // Readable when a console comes, sends or goes.
  link::UniqueDescriptor events_;
  link::UniqueDescriptor listener_;
  link::UniqueDescriptor console_;
  bool console_has_ended_ = false;
};

// Makes the ends of one TCP line. Port 0 is any that is free, and the same again for a line after
// the first. Each call throws std::system_error, in words, when the address cannot be listened on.
std::function<std::unique_ptr<protocol::LineEnd>()> TcpLines(protocol::TcpAddress address);

// Makes the ends of a line on a Unix socket at `path`, which goes with the line. A socket there
// that nobody listens on any more is a leftover and is replaced. Each call throws
// std::system_error, in words, when anything else is there or the socket cannot be made.
std::function<std::unique_ptr<protocol::LineEnd>()> SocketLines(std::string path);

}  // namespace vantrel::printer
