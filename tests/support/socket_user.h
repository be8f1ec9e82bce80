// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"
#include "link/unique_descriptor.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vantrel::support {

// Another program that has connected to a socket, with deadlines.
class SocketUser {
 public:
  // Not open where nobody listens.
  static SocketUser OnTcp(std::uint16_t port);  // of this machine
  static SocketUser OnPath(const std::string& path);

  bool IsOpen() const { return socket_.IsOpen(); }
  void Write(const link::Bytes& bytes) const;
  // What has come, when it is as long as this, or less when the other side has gone or is too slow.
  link::Bytes Read(std::size_t count) const;
  // Whether the other side closes.
  bool IsClosed() const;
  // Ends what is sent from here.
  void EndSending() const;
  void Close() { socket_.Reset(); }

 private:
  link::UniqueDescriptor socket_;
};

}  // namespace vantrel::support
