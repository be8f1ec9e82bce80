// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::link {

// The start of a frame, in hex text.
inline constexpr std::string_view StxHex = "02";
// The end of a frame's content, in hex text; the block check follows it.
inline constexpr std::string_view EtxHex = "03";

// Bytes as they go over the line, first one first.
using Bytes = std::vector<std::uint8_t>;

// The two upper-case hex digits of a byte (5 gives "05").
std::string HexOf(std::uint8_t byte);

// The value, 0 to 255, of the hex digits at the 0-based `position` of `hex` and after it. A pair
// cut off by the end of the text counts its one digit, reading stops at the first character that is
// no hex digit, nothing readable is 0. Never throws.
unsigned HexPair(std::string_view hex, std::size_t position);

// Bytes as hex text: two upper-case digits a byte in their order, nothing between them ("0221").
std::string HexTextOf(const Bytes& bytes);
// The bytes that hex text stands for, each read as HexPair reads it. It takes length / 2 pairs,
// rounded to the nearest number with halves to even: seven characters give four bytes, the last of
// them from one digit; five give two. Never throws for text that is no hex.
Bytes BytesOf(std::string_view hex);

// The pairs of `hex`, each followed by a blank: "0221" gives "02 21 ".
std::string SpacedPairs(std::string_view hex);

// The whole frame of a command: STX, command code, data, ETX and the block check, all in hex text
// ("21" gives "02210322"). `command` is the two hex digits of the code, `data_hex` the hex text of
// the data; both are taken as they stand. No byte of either may be 02h or 03h: the printer would
// take it for the start or the end of a frame.
std::string ComposeFrame(std::string_view command, std::string_view data_hex = {});

}  // namespace vantrel::link
