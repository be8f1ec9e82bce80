// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace vantrel::protocol {

// The statuses that a printer's replies carry, behind the command's code.
namespace status {
// All went well.
inline constexpr std::uint8_t kNormal = 0x20;
// There is no card to work on.
inline constexpr std::uint8_t kNoTargetCard = 0x22;
// The card has no magnetic stripe, or it cannot be read.
inline constexpr std::uint8_t kNoStripe = 0x23;
// A character of the track has a wrong parity.
inline constexpr std::uint8_t kParityError = 0x31;
// The track has no start or end code.
inline constexpr std::uint8_t kNoStartOrEndCode = 0x32;
// The track's check character is wrong.
inline constexpr std::uint8_t kLrcError = 0x33;
// The track holds a character that it may not.
inline constexpr std::uint8_t kErroneousCharacter = 0x34;
// The stripe was not written.
inline constexpr std::uint8_t kWritingError = 0x37;
// A card is jammed.
inline constexpr std::uint8_t kCardJam = 0x38;
// The cover is open.
inline constexpr std::uint8_t kCoverOpen = 0x40;
// The command is invalid.
inline constexpr std::uint8_t kInvalidCommand = 0x41;
// The cam's motor failed.
inline constexpr std::uint8_t kCamMotorError = 0x42;
// The temperature of the erase head is wrong.
inline constexpr std::uint8_t kEraseHeadTemperature = 0x43;
// The printer's memory of settings failed.
inline constexpr std::uint8_t kEepromError = 0x45;
// The file is no monochrome BMP that fits.
inline constexpr std::uint8_t kNoMonochromeBmp = 0x4C;
// The expansion buffer has run over.
inline constexpr std::uint8_t kOverflow = 0x51;
}  // namespace status

// A status and its words.
struct StatusEntry {
  std::uint8_t status = 0;   // as it stands in a reply
  std::string_view meaning;  // "normal status"
};

// Every status, by rising code.
std::span<const StatusEntry> AllStatuses();

// The meaning of a status, "normal status"; "unknown response" for one that has none.
std::string_view StatusMeaning(std::uint8_t status);

}  // namespace vantrel::protocol
