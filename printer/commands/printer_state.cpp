// SPDX-License-Identifier: MIT

#include "printer/commands/printer_state.h"

#include <algorithm>

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

bool IsRecordable(std::string_view contents) {
  return std::all_of(contents.begin(), contents.end(), [](char character) {
    return character == 0x01 || (character >= 0x04 && character <= 0x7E);
  });
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
