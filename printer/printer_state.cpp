#include "printer/printer_state.h"

#include <utility>

namespace vantrel {

void PrinterState::StartAfresh() {
  PrinterState fresh;
  fresh.card = std::move(card);
  fresh.place = place;
  fresh.power = power;
  fresh.now = now;
  fresh.cleaning_button = cleaning_button;
  fresh.setting = std::move(setting);
  fresh.stored_cleaning_button = stored_cleaning_button;
  fresh.stored_setting = std::move(stored_setting);
  fresh.code_page = code_page;
  fresh.series = series;
  fresh.case_parts = case_parts;
  fresh.transports = transports;
  fresh.prints = prints;
  *this = std::move(fresh);
}

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

}  // namespace vantrel
