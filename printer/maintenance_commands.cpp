#include "printer/command.h"

namespace vantrel {
namespace {

Reply RomVersion(PrinterState&, const Command&) {
  return {status::kNormal, "VANTREL " VANTREL_VERSION};
}

// Eight digits, in this order:
//   1 place of the card: 0 outside, 1 front, 2 inside, 3 rear, 4 waiting to be pulled out
//   2 kind of the card:  0 no card, 1 ordinary, 2 cleaning
//   3 wait:              0 none, 1 for a card, 2 for the removal of one
//   4 target card:       0 none, 1 present
//   5 to 7 buzzer, LED colour and LED operation in the digits of 5Ah
//   8 cleaning button:   0 disabled, 1 enabled, as it is in force
Reply StatusString(PrinterState& state, const Command&) {
  const auto digit = [](int value) { return static_cast<char>('0' + value); };
  const bool cleaning = state.card.kind == CardKind::kCleaning;
  const int kind = state.place == CardPlace::kOutside ? 0 : (cleaning ? 2 : 1);
  return {
      status::kNormal,
      {digit(static_cast<int>(state.place)), digit(kind), digit(static_cast<int>(state.wait)),
       digit(state.HasTargetCard() ? 1 : 0), state.indicators.buzzer, state.indicators.led_colour,
       state.indicators.led_operation, digit(state.cleaning_button ? 1 : 0)}};
}

// Buzzer, LED colour, LED operation; a blank keeps what is set.
bool IsControlData(std::string_view data) {
  const auto is_operation = [](char character) {
    return character == ' ' || (character >= '0' && character <= '4');
  };
  return data.size() == 3 && is_operation(data[0]) && data[1] >= '1' && data[1] <= '3' &&
         is_operation(data[2]);
}

Reply SetIndicators(PrinterState& state, const Command& command) {
  state.indicators.Set(command.data, state.now);
  return {};
}

Reply SetCleaningButton(PrinterState& state, const Command& command) {
  state.stored_cleaning_button = command.data == "1";
  return {};
}

// The waits have ended before. What 5Bh and 91h have stored waits on for the power switch.
Reply Reset(PrinterState& state, const Command&) {
  state.StartAfresh();
  return {};
}

bool IsSetting(std::string_view data) { return !data.empty(); }

Reply StoreSetting(PrinterState& state, const Command& command) {
  state.stored_setting = command.data;
  return {};
}

Reply TransportCount(PrinterState& state, const Command&) {
  return {status::kNormal, std::to_string(state.transports)};
}

Reply PrintCount(PrinterState& state, const Command&) {
  return {status::kNormal, std::to_string(state.prints)};
}

constexpr CommandRow kRows[] = {
    {0x58, Need::kNothing, IsEmpty, kNoTime, RomVersion},
    {0x59, Need::kNothing, IsEmpty, kNoTime, StatusString},
    {0x5A, Need::kNothing, IsControlData, kNoTime, SetIndicators},
    {0x5B, Need::kNothing, IsZeroOrOne, kNoTime, SetCleaningButton},
    {kResetCode, Need::kNothing, IsEmpty, kResetTime, Reset},
    {0x91, Need::kNothing, IsSetting, kNoTime, StoreSetting},
    {0x95, Need::kNothing, IsEmpty, kNoTime, TransportCount},
    {0x96, Need::kNothing, IsEmpty, kNoTime, PrintCount},
};

}  // namespace

std::span<const CommandRow> MaintenanceCommands() { return kRows; }

}  // namespace vantrel
