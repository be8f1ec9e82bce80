// SPDX-License-Identifier: MIT

#include "protocol/tcp_address.h"

#include <charconv>
#include <stdexcept>

namespace vantrel::protocol {
namespace {

[[noreturn]] void Refuse(std::string_view text, const std::string& reason) {
  throw std::invalid_argument("'" + std::string(text) + "' is no address: " + reason + ".");
}

std::uint16_t PortOf(std::string_view text, std::string_view digits) {
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), port);
  if (digits.empty() || error != std::errc() || end != digits.data() + digits.size())
    Refuse(text, "the port is a number from 0 to 65535");
  return port;
}

}  // namespace

TcpAddress ParseTcpAddress(std::string_view text, std::string_view default_host) {
  const std::size_t colon = text.rfind(':');
  if (colon == std::string_view::npos) {
    if (default_host.empty()) Refuse(text, "a host and a port are needed, as in localhost:4000");
    return {std::string(default_host), PortOf(text, text)};
  }
  std::string_view host = text.substr(0, colon);
  const bool bracketed = host.size() > 2 && host.front() == '[' && host.back() == ']';
  if (bracketed) host = host.substr(1, host.size() - 2);
  if (host.empty()) Refuse(text, "there is no host before the colon");
  if (!bracketed && host.find_first_of(":[]") != std::string_view::npos)
    Refuse(text, "a host with colons stands in brackets, as in [::1]:4000");
  return {std::string(host), PortOf(text, text.substr(colon + 1))};
}

std::string TextOf(const TcpAddress& address) {
  const bool colons = address.host.find(':') != std::string::npos;
  return (colons ? "[" + address.host + "]" : address.host) + ":" + std::to_string(address.port);
}

}  // namespace vantrel::protocol
