// SPDX-License-Identifier: MIT

// The commands whose data is a digit or a few: where a card goes, lamps, and settings.

#include "protocol/command_readers.h"

#include <array>

namespace vantrel::protocol {
namespace {

Meaning OperationInWords(char digit, std::string_view repeated) {
  switch (digit) {
    case ' ':
      return "as it is";
    case '0':
      return "off";
    case '1':
      return "on";
    case '2':
      return std::string(repeated);
    case '3':
      return "1 cycle";
    case '4':
      return "3 cycles";
    default:
      return std::nullopt;
  }
}

bool IsOperation(char digit) { return digit == ' ' || (digit >= '0' && digit <= '4'); }

}  // namespace

std::optional<Discharge> ReadDischarge(std::string_view data) {
  if (data == "0") return Discharge::kFront;
  if (data == "1") return Discharge::kExit;
  if (data == "2") return Discharge::kRear;
  return std::nullopt;
}

Meaning DischargeInWords(const Discharge& discharge) {
  switch (discharge) {
    case Discharge::kFront:
      return "stop at the front, target card";
    case Discharge::kExit:
      return "completely, no target card";
    default:
      return "to the back";
  }
}

Meaning DischargeAfterPassInWords(const Discharge& discharge) {
  switch (discharge) {
    case Discharge::kFront:
      return "then hold the card at the front";
    case Discharge::kExit:
      return "then discharge the card";
    default:
      return "then discharge the card to the back";
  }
}

std::optional<IndicatorSetting> ReadIndicatorSetting(std::string_view data) {
  if (data.size() != 3 || !IsOperation(data[0]) || data[1] < '1' || data[1] > '3' ||
      !IsOperation(data[2]))
    return std::nullopt;
  return IndicatorSetting{data[0], data[1], data[2]};
}

Meaning InWords(const IndicatorSetting& setting) {
  constexpr std::array<std::string_view, 3> kColours{"green", "red", "orange"};
  const Meaning buzzer = OperationInWords(setting.buzzer, "buzzing");
  const Meaning led = OperationInWords(setting.led_operation, "flashing");
  if (!buzzer || !led) return std::nullopt;
  return "buzzer " + *buzzer + ", LED " + *led + ", " +
         std::string(kColours.at(static_cast<std::size_t>(setting.led_colour - '1')));
}

std::optional<CleaningButton> ReadCleaningButton(std::string_view data) {
  if (data != "0" && data != "1") return std::nullopt;
  return CleaningButton{data == "1"};
}

Meaning InWords(const CleaningButton& button) { return button.enabled ? "enable" : "disable"; }

std::optional<VariousSetting> ReadVariousSetting(std::string_view data) {
  return data.empty() ? std::nullopt : std::optional(VariousSetting{std::string(data)});
}

}  // namespace vantrel::protocol
