#pragma once

#include <cstdint>

namespace vantrel::protocol {

// Who sent what stands on the line.
enum class Direction { kFromConsole, kFromPrinter };

// The control characters: a frame stands between STX and ETX, with its block check behind; the
// printer answers every command with one of the other three.
inline constexpr std::uint8_t kStx = 0x02;
inline constexpr std::uint8_t kEtx = 0x03;
inline constexpr std::uint8_t kAcknowledge = 0x06;
inline constexpr std::uint8_t kReject = 0x10;
inline constexpr std::uint8_t kResend = 0x15;

// Whether a byte is one of the three characters that the printer answers with.
constexpr bool IsAnswer(std::uint8_t byte) {
  return byte == kAcknowledge || byte == kReject || byte == kResend;
}

}  // namespace vantrel::protocol
