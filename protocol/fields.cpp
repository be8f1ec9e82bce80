// SPDX-License-Identifier: MIT

#include "protocol/fields.h"

#include <algorithm>

namespace vantrel::protocol {

std::optional<int> NumberOf(std::string_view digits, int highest) {
  if (digits.empty()) return std::nullopt;
  int value = 0;
  for (const char digit : digits) {
    if (digit < '0' || digit > '9') return std::nullopt;
    value = value * 10 + (digit - '0');
    if (value > highest) return std::nullopt;
  }
  return value;
}

std::optional<char> CharacterOf(std::string_view field) {
  if (field.size() != 1) return std::nullopt;
  return field.front();
}

std::optional<int> HexDigitOf(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  return std::nullopt;
}

std::optional<std::size_t> HexDigitOf(std::string_view field) {
  const auto digit = field.size() == 1 ? HexDigitOf(field.front()) : std::nullopt;
  return digit ? std::optional(static_cast<std::size_t>(*digit)) : std::nullopt;
}

std::optional<link::Bytes> HexBytesOf(std::string_view text, std::size_t most) {
  const bool pairs =
      !text.empty() && text.size() % 2 == 0 && text.size() / 2 <= most &&
      std::all_of(text.begin(), text.end(), [](char c) { return HexDigitOf(c).has_value(); });
  return pairs ? std::optional(link::BytesOf(text)) : std::nullopt;
}

}  // namespace vantrel::protocol
