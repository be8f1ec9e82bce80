#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace vantrel::protocol {

// The statuses that a printer's replies carry.
namespace status {
inline constexpr std::uint8_t kNormal = 0x20;
inline constexpr std::uint8_t kNoTargetCard = 0x22;
inline constexpr std::uint8_t kNoStripe = 0x23;
inline constexpr std::uint8_t kParityError = 0x31;
inline constexpr std::uint8_t kNoStartOrEndCode = 0x32;
inline constexpr std::uint8_t kLrcError = 0x33;
inline constexpr std::uint8_t kErroneousCharacter = 0x34;
inline constexpr std::uint8_t kWritingError = 0x37;
inline constexpr std::uint8_t kCardJam = 0x38;
inline constexpr std::uint8_t kCoverOpen = 0x40;
inline constexpr std::uint8_t kInvalidCommand = 0x41;
inline constexpr std::uint8_t kCamMotorError = 0x42;
inline constexpr std::uint8_t kEraseHeadTemperature = 0x43;
inline constexpr std::uint8_t kEepromError = 0x45;
inline constexpr std::uint8_t kNoMonochromeBmp = 0x4C;
inline constexpr std::uint8_t kOverflow = 0x51;
}  // namespace status

struct StatusEntry {
  std::uint8_t status = 0;
  std::string_view meaning;  // "normal status"
};

// Every status, by rising code.
std::span<const StatusEntry> AllStatuses();

// The meaning of a status, "normal status"; "unknown response" for one that has none.
std::string_view StatusMeaning(std::uint8_t status);

}  // namespace vantrel::protocol
