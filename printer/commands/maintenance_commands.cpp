// SPDX-License-Identifier: MIT

#include "printer/commands/command.h"

namespace vantrel::printer {
namespace {

Reply RomVersion(PrinterState&, const protocol::NoData&) {
  return {status::kNormal, "VANTREL " VANTREL_VERSION};
}

// Eight digits, in this order:
//   1 place of the card: 0 outside, 1 front, 2 inside, 3 rear, 4 waiting to be pulled out
//   2 kind of the card:  0 no card, 1 ordinary, 2 cleaning
//   3 wait:              0 none, 1 for a card, 2 for the removal of one
//   4 target card:       0 none, 1 present
//   5 to 7 buzzer, LED colour and LED operation in the digits of 5Ah
//   8 cleaning button:   0 disabled, 1 enabled, as it is in force
Reply StatusString(PrinterState& state, const protocol::NoData&) {
  const auto digit = [](int value) { return static_cast<char>('0' + value); };
  const bool cleaning = state.card.kind == CardKind::kCleaning;
  const int kind = state.place == CardPlace::kOutside ? 0 : (cleaning ? 2 : 1);
  return {
      status::kNormal,
      {digit(static_cast<int>(state.place)), digit(kind), digit(static_cast<int>(state.wait)),
       digit(state.HasTargetCard() ? 1 : 0), state.indicators.buzzer, state.indicators.led_colour,
       state.indicators.led_operation, digit(state.cleaning_button ? 1 : 0)}};
}

Reply SetIndicators(PrinterState& state, const protocol::IndicatorSetting& setting) {
  state.indicators.Set(setting, state.now);
  return {};
}

Reply SetCleaningButton(PrinterState& state, const protocol::CleaningButton& button) {
  state.stored_cleaning_button = button.enabled;
  return {};
}

// The waits have ended before. What 5Bh and 91h have stored waits on for the power switch.
Reply Reset(PrinterState& state, const protocol::NoData&) {
  state.StartAfresh();
  return {};
}

Reply StoreSetting(PrinterState& state, const protocol::VariousSetting& setting) {
  state.stored_setting = setting.text;
  return {};
}

Reply TransportCount(PrinterState& state, const protocol::NoData&) {
  return {status::kNormal, std::to_string(state.transports)};
}

Reply PrintCount(PrinterState& state, const protocol::NoData&) {
  return {status::kNormal, std::to_string(state.prints)};
}

constexpr CommandRow kRows[] = {
    {.code = 0x58, .work = kFor<RomVersion>},
    {.code = 0x59, .work = kFor<StatusString>},
    {.code = 0x5A, .work = kFor<SetIndicators>},
    {.code = 0x5B, .work = kFor<SetCleaningButton>},
    {.code = kResetCode, .duration = kResetTime, .work = kFor<Reset>},
    {.code = 0x91, .work = kFor<StoreSetting>},
    {.code = 0x95, .work = kFor<TransportCount>},
    {.code = 0x96, .work = kFor<PrintCount>},
};

}  // namespace

std::span<const CommandRow> MaintenanceCommands() { return kRows; }

}  // namespace vantrel::printer
