// SPDX-License-Identifier: MIT

#include "printer/model/quoted.h"

#include "link/frame.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace vantrel::printer {
namespace {

// The length in bytes of what looks like a character of UTF-8 past ASCII; 0 for anything else.
std::size_t LengthOfLongCharacter(std::string_view text) {
  const auto byte = [text](std::size_t at) { return static_cast<std::uint8_t>(text[at]); };
  if (byte(0) < 0xC2 || byte(0) > 0xF4) return 0;
  const std::size_t length = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
  if (length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return 0;
  }
  return length;
}

}  // namespace

std::string Quoted(std::string_view text, char mark) {
  constexpr int kMostCharacters = 60;
  std::string quoted(1, mark);
  for (int count = 0; !text.empty(); ++count) {
    if (count == kMostCharacters) {
      quoted += "...";
      break;
    }
    const std::size_t length = LengthOfLongCharacter(text);
    if (length > 0)
      quoted += text.substr(0, length);
    else if (text[0] >= 0x20 && text[0] <= 0x7E)
      quoted += text[0];
    else
      quoted += "\\x" + link::HexOf(static_cast<std::uint8_t>(text[0]));
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return quoted + mark;
}

}  // namespace vantrel::printer
