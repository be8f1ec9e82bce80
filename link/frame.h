#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::link {

// Start and end of a frame, in hex text.
inline constexpr std::string_view StxHex = "02";
inline constexpr std::string_view EtxHex = "03";

using Bytes = std::vector<std::uint8_t>;

// The two upper-case hex digits of a byte (5 gives "05").
std::string HexOf(std::uint8_t byte);

// The value, 0 to 255, of the hex digits at the 0-based `position` of `hex` and after it. A pair
// cut off by the end of the text counts its one digit, reading stops at the first character that is
// no hex digit, nothing readable is 0.
unsigned HexPair(std::string_view hex, std::size_t position);

// Hex text of bytes, and back. BytesOf takes length / 2 pairs, rounded to the nearest number with
// halves to even (seven characters give four bytes, the last of them from one digit; five give
// two).
std::string HexTextOf(const Bytes& bytes);
Bytes BytesOf(std::string_view hex);

// The pairs of `hex`, each followed by a blank: "0221" gives "02 21 ".
std::string SpacedPairs(std::string_view hex);

// The whole frame of a command: STX, command code, data, ETX and the block check, all in hex text.
std::string ComposeFrame(std::string_view command, std::string_view data_hex = {});

}  // namespace vantrel::link
