// SPDX-License-Identifier: MIT

#include "protocol/status.h"

namespace vantrel::protocol {
namespace {

constexpr StatusEntry kStatuses[] = {
    {status::kNormal, "normal status"},
    {status::kNoTargetCard, "no targeted Card"},
    {status::kNoStripe, "no magnetic stripe or other error"},
    {status::kParityError, "parity Error"},
    {status::kNoStartOrEndCode, "no Start code or End code"},
    {status::kLrcError, "LRC Error"},
    {status::kErroneousCharacter, "erroneous character"},
    {status::kWritingError, "magnetic Stripe writing error"},
    {status::kCardJam, "card jam"},
    {status::kCoverOpen, "cover open"},
    {status::kInvalidCommand, "invalid command"},
    {status::kCamMotorError, "CAM motor error"},
    {status::kEraseHeadTemperature, "erase head temperature error"},
    {status::kEepromError, "EEPROM error"},
    {status::kNoMonochromeBmp, "non-Compatible BMP file data"},
    {status::kOverflow, "expansion buffer overflow error"},
};

}  // namespace

std::span<const StatusEntry> AllStatuses() { return kStatuses; }

std::string_view StatusMeaning(std::uint8_t status) {
  for (const StatusEntry& entry : kStatuses) {
    if (entry.status == status) return entry.meaning;
  }
  return "unknown response";
}

}  // namespace vantrel::protocol
