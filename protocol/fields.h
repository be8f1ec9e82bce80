// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace vantrel::protocol {

// The fields of a command's data, with a comma between each and the next: the first `count` - 1 of
// them, and all that follows as the last, which keeps the commas in it. Nothing where there are
// fewer. The fields point into `data`.
template <std::size_t count>
std::optional<std::array<std::string_view, count>> FieldsOf(std::string_view data) {
  std::array<std::string_view, count> fields;
  for (std::size_t i = 0; i + 1 < count; ++i) {
    const std::size_t comma = data.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    fields[i] = data.substr(0, comma);
    data.remove_prefix(comma + 1);
  }
  fields.back() = data;
  return fields;
}

// The value of one or more decimal digits, leading zeros allowed; nothing for any other text and
// for more than `highest`.
std::optional<int> NumberOf(std::string_view digits, int highest);

// The one character of a field; nothing where it has more or fewer.
std::optional<char> CharacterOf(std::string_view field);

// The value, 0 to 15, of a hex digit of either case; of a field, where it is one hex digit.
std::optional<int> HexDigitOf(char digit);
std::optional<std::size_t> HexDigitOf(std::string_view field);

// The bytes that one or more pairs of hex digits spell; nothing for any other text and for more
// than `most` bytes.
std::optional<link::Bytes> HexBytesOf(std::string_view text, std::size_t most);

}  // namespace vantrel::protocol
