// SPDX-License-Identifier: MIT

#include "link/frame.h"

#include "link/common.h"

#include <algorithm>
#include <cmath>

namespace vantrel::link {
namespace {

int DigitValue(char character) {
  if (character >= '0' && character <= '9') return character - '0';
  if (character >= 'A' && character <= 'F') return character - 'A' + 10;
  if (character >= 'a' && character <= 'f') return character - 'a' + 10;
  return -1;
}

}  // namespace

std::string HexOf(std::uint8_t byte) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  return {kDigits[byte >> 4], kDigits[byte & 0x0F]};
}

unsigned HexPair(std::string_view hex, std::size_t position) {
  unsigned value = 0;
  const std::size_t end = std::min(hex.size(), position + 2);
  for (std::size_t i = position; i < end; ++i) {
    const int digit = DigitValue(hex[i]);
    if (digit < 0) break;
    value = value * 16 + static_cast<unsigned>(digit);
  }
  return value;
}

std::string HexTextOf(const Bytes& bytes) {
  std::string hex;
  hex.reserve(bytes.size() * 2);
  for (const std::uint8_t byte : bytes) hex += HexOf(byte);
  return hex;
}

Bytes BytesOf(std::string_view hex) {
  const double half = static_cast<double>(hex.size()) / 2;
  Bytes bytes(static_cast<std::size_t>(std::nearbyint(half)));
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<std::uint8_t>(HexPair(hex, 2 * i));
  return bytes;
}

std::string SpacedPairs(std::string_view hex) {
  std::string spaced;
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    spaced += hex.substr(i, 2);
    spaced += ' ';
  }
  return spaced;
}

std::string ComposeFrame(std::string_view command, std::string_view data_hex) {
  std::string frame(StxHex);
  frame += command;
  frame += data_hex;
  frame += EtxHex;
  frame += CalcBCC(frame);
  return frame;
}

}  // namespace vantrel::link
