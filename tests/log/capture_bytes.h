// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace vantrel::log {

// Bytes out of hex text with blanks, one character a byte.
inline std::string FromHex(std::string hex) {
  std::erase(hex, ' ');
  std::erase(hex, '\n');
  const link::Bytes bytes = link::BytesOf(hex);
  return {bytes.begin(), bytes.end()};
}

// Composes pcapng files for tests, in either byte order, right and wrong ones.
class CaptureBytes {
 public:
  explicit CaptureBytes(bool big_endian = false) : big_endian_(big_endian) {}

  std::string Number(std::uint64_t value, int bytes) const {
    std::string number;
    for (int i = 0; i < bytes; ++i)
      number += static_cast<char>(value >> (8 * (big_endian_ ? bytes - 1 - i : i)) & 0xFF);
    return number;
  }
  std::string Padded(std::string bytes) const {
    while (bytes.size() % 4 != 0) bytes += '\0';
    return bytes;
  }
  std::string Option(std::uint16_t code, const std::string& value) const {
    return Number(code, 2) + Number(value.size(), 2) + Padded(value);
  }
  std::string Block(std::uint32_t type, const std::string& body) const {
    const std::string length = Number(body.size() + 12, 4);
    return Number(type, 4) + length + body + length;
  }
  std::string Section(std::uint16_t major = 1) const {
    return Block(0x0A0D0D0A,
                 Number(0x1A2B3C4D, 4) + Number(major, 2) + Number(0, 2) + std::string(8, '\xFF'));
  }
  std::string Interface(std::uint16_t link_type, const std::string& options = {},
                        std::uint32_t longest = 0) const {
    return Block(1, Number(link_type, 2) + Number(0, 2) + Number(longest, 4) + options);
  }
  // An interface of ours.
  std::string OurInterface(const std::string& options = {}) const {
    return Interface(250, Option(3, "vantrel card printer line") + options);
  }
  std::string Packet(std::uint32_t interface, std::uint64_t ticks, const std::string& data,
                     const std::string& options = {}) const {
    return Block(6, Number(interface, 4) + Number(ticks >> 32, 4) + Number(ticks & 0xFFFFFFFF, 4) +
                        Number(data.size(), 4) + Number(data.size(), 4) + Padded(data) + options);
  }
  // A packet of link type 250, at 1.000002 s by its own header, which is big-endian always.
  std::string Serial(std::uint32_t interface, std::uint64_t ticks, int event,
                     const std::string& hex, const std::string& options = {}) const {
    std::string header = FromHex("00000001 00000002 00 00 0000");
    header[8] = static_cast<char>(event);
    return Packet(interface, ticks, header + FromHex(hex), options);
  }

 private:
  bool big_endian_;
};

}  // namespace vantrel::log
