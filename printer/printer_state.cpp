#include "printer/printer_state.h"

namespace vantrel {
namespace {

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

bool PrinterState::HasTargetCard() const {
  return place == CardPlace::kFront || place == CardPlace::kInside || place == CardPlace::kRear;
}

std::string PrinterState::TrackAsRead(std::size_t track) const {
  return card.kind == CardKind::kCleaning ? std::string() : card.tracks.at(track);
}

void PrinterState::Transport(CardPlace to) {
  place = to;
  ++transports;
}

void PrinterState::PassUnderHead() {
  Transport(CardPlace::kInside);
  for (std::size_t track = 0; track < kTracks; ++track) buffers[track] = TrackAsRead(track);
}

std::string_view PlaceInWords(CardPlace place) {
  switch (place) {
    case CardPlace::kFront:
      return "inserted at the front";
    case CardPlace::kInside:
      return "inside";
    case CardPlace::kRear:
      return "at the rear";
    case CardPlace::kExit:
      return "waiting to be pulled out";
    default:
      return "outside";
  }
}

std::string LedInWords(const Indicators& indicators) {
  std::string words(OperationInWords(indicators.led_operation, "flashing"));
  if (indicators.led_operation != '0') {
    words += ", ";
    words += ColourInWords(indicators.led_colour);
  }
  return words;
}

std::string_view BuzzerInWords(const Indicators& indicators) {
  return OperationInWords(indicators.buzzer, "buzzing");
}

}  // namespace vantrel
