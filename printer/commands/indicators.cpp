// SPDX-License-Identifier: MIT

#include "printer/commands/indicators.h"

#include <algorithm>

namespace vantrel::printer {
namespace {

constexpr auto kHalfCycle = kAlertCycle / 2;

// How long an operation lasts; nothing where it does not end by itself.
std::optional<std::chrono::milliseconds> LengthOf(char operation) {
  if (operation == '3') return kAlertCycle;
  if (operation == '4') return 3 * kAlertCycle;
  return std::nullopt;
}

bool HasRhythm(char operation) { return operation >= '2'; }

bool IsOver(char operation, protocol::Moment since, protocol::Moment now) {
  const auto length = LengthOf(operation);
  return length && now >= since + *length;
}

bool IsOn(char operation, protocol::Moment since, protocol::Moment now) {
  if (!HasRhythm(operation)) return operation == '1';
  return !IsOver(operation, since, now) && (now - since) % kAlertCycle < kHalfCycle;
}

std::string_view ColourInWords(char colour) {
  if (colour == '2') return "red";
  return colour == '3' ? "orange" : "green";
}

// The digits '0' to '4' mean the same for LED and buzzer; only going on and off has another name.
std::string_view OperationInWords(char operation, std::string_view repeated) {
  switch (operation) {
    case '1':
      return "on";
    case '2':
      return repeated;
    case '3':
      return "1 cycle";
    case '4':
      return "3 cycles";
    default:
      return "off";
  }
}

}  // namespace

void Indicators::Set(const protocol::IndicatorSetting& setting, protocol::Moment now) {
  if (setting.buzzer != ' ') {
    buzzer = setting.buzzer;
    buzzer_since = now;
  }
  led_colour = setting.led_colour;
  if (setting.led_operation != ' ') {
    led_operation = setting.led_operation;
    led_since = now;
  }
}

bool Indicators::LedIsLit(protocol::Moment now) const {
  return IsOn(led_operation, led_since, now);
}

bool Indicators::BuzzerSounds(protocol::Moment now) const {
  return IsOn(buzzer, buzzer_since, now);
}

void Indicators::Advance(protocol::Moment now) {
  if (IsOver(led_operation, led_since, now)) led_operation = '0';
  if (IsOver(buzzer, buzzer_since, now)) buzzer = '0';
}

std::optional<protocol::Moment> Indicators::NextChange(protocol::Moment now) const {
  std::optional<protocol::Moment> next;
  const auto take = [&next, now](char operation, protocol::Moment since) {
    if (!HasRhythm(operation)) return;
    const protocol::Moment change = since + ((now - since) / kHalfCycle + 1) * kHalfCycle;
    next = next ? std::min(*next, change) : change;
  };
  take(buzzer, buzzer_since);
  take(led_operation, led_since);
  return next;
}

std::string LedInWords(const Indicators& indicators) {
  std::string words(LedOperationInWords(indicators));
  if (indicators.led_operation != '0') {
    words += ", ";
    words += LedColourInWords(indicators);
  }
  return words;
}

std::string_view LedColourInWords(const Indicators& indicators) {
  return ColourInWords(indicators.led_colour);
}

std::string_view LedOperationInWords(const Indicators& indicators) {
  return OperationInWords(indicators.led_operation, "flashing");
}

std::string_view BuzzerInWords(const Indicators& indicators) {
  return OperationInWords(indicators.buzzer, "buzzing");
}

}  // namespace vantrel::printer
