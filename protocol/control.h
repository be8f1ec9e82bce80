// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vantrel::protocol {

// Who sent what stands on the line.
enum class Direction {
  kFromConsole,  // whoever commands the printer
  kFromPrinter,  // the printer
};

// Begins a frame.
inline constexpr std::uint8_t kStx = 0x02;
// Ends a frame's content; the block check follows.
inline constexpr std::uint8_t kEtx = 0x03;
// The printer's answer to a frame that it carries out; the reply's frame follows when that is done.
inline constexpr std::uint8_t kAcknowledge = 0x06;
// The printer's answer to a frame that it does not carry out.
inline constexpr std::uint8_t kReject = 0x10;
// The printer's answer to a frame with a wrong block check, which is to be sent again.
inline constexpr std::uint8_t kResend = 0x15;

// Whether a byte is one of the three characters that the printer answers with.
constexpr bool IsAnswer(std::uint8_t byte) {
  return byte == kAcknowledge || byte == kReject || byte == kResend;
}

}  // namespace vantrel::protocol
