// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// The numbers of a pcapng file that captures are written and read with.
namespace vantrel::log::pcapng {

// Block types.
inline constexpr std::uint32_t kSection = 0x0A0D0D0A;
inline constexpr std::uint32_t kInterface = 1;
inline constexpr std::uint32_t kOldPacket = 2;
inline constexpr std::uint32_t kSimplePacket = 3;
inline constexpr std::uint32_t kPacket = 6;

inline constexpr std::uint32_t kByteOrderMagic = 0x1A2B3C4D;

// Options of every block, of a section, of an interface and of a packet.
inline constexpr std::uint16_t kEndOfOptions = 0;
inline constexpr std::uint16_t kComment = 1;
inline constexpr std::uint16_t kApplication = 4;
inline constexpr std::uint16_t kName = 2;
inline constexpr std::uint16_t kDescription = 3;
inline constexpr std::uint16_t kSpeed = 8;
inline constexpr std::uint16_t kResolution = 9;
inline constexpr std::uint16_t kTimeOffset = 14;
inline constexpr std::uint16_t kFlags = 2;

// The lowest two bits of a packet's flags.
inline constexpr std::uint32_t kInbound = 1;
inline constexpr std::uint32_t kOutbound = 2;

// Link types: bytes after a header that tells direction and time, and bytes alone.
inline constexpr std::uint16_t kRtacSerial = 250;
inline constexpr std::uint16_t kUserDefined = 147;

// The header before the bytes of a packet of link type kRtacSerial, all of it big-endian: seconds
// and microseconds of four bytes each, the event, the control lines, two bytes of nothing.
inline constexpr std::size_t kRtacHeader = 12;
inline constexpr std::size_t kRtacEvent = 8;
inline constexpr std::uint8_t kToPrinter = 1;
inline constexpr std::uint8_t kFromPrinter = 2;

// By this description of an interface a capture of ours is known: each of its packets is a row.
inline constexpr std::string_view kOurDescription = "vantrel card printer line";

}  // namespace vantrel::log::pcapng
