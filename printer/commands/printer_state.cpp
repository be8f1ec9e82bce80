#include "printer/commands/printer_state.h"

namespace vantrel::printer {

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

}  // namespace vantrel::printer
