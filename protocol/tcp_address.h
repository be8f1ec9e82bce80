// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantrel::protocol {

// A place on the network.
struct TcpAddress {
  std::string host;  // a name or a number, without brackets
  std::uint16_t port = 0;

  friend bool operator==(const TcpAddress&, const TcpAddress&) = default;
};

// Reads "HOST:PORT", "[::1]:PORT", or "PORT" alone, whose host is then `default_host`; where that
// is empty, a host must be told. Throws std::invalid_argument, in words, for anything else.
TcpAddress ParseTcpAddress(std::string_view text, std::string_view default_host);
// "127.0.0.1:4000", "[::1]:4000".
std::string TextOf(const TcpAddress& address);

}  // namespace vantrel::protocol
