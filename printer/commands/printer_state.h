// SPDX-License-Identifier: MIT
#pragma once

#include "link/code_page.h"
#include "printer/commands/indicators.h"
#include "printer/drawing/bitmap.h"
#include "printer/drawing/fonts.h"
#include "printer/drawing/print_registers.h"
#include "protocol/command_data.h"
#include "protocol/moment.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel::printer {

using protocol::kTracks;
// The most bytes that a track holds, by track.
inline constexpr std::array<std::size_t, kTracks> kTrackLength{76, 69, 104};

enum class CardKind { kOrdinary, kCleaning };

struct Card {
  CardKind kind = CardKind::kOrdinary;
  // What each track holds, one character a byte; empty where nothing is recorded. A cleaning card
  // has no stripe: its tracks read as empty.
  std::array<std::string, kTracks> tracks;
  // What is printed on it.
  Bitmap face{kFaceWidth, kFaceHeight};
};

// The two series of the printer: a QL-7 writes all three tracks, a QL-8 the third alone.
enum class Series { kQl7, kQl8 };

// Where the card is.
enum class CardPlace {
  kOutside,
  kFront,   // inserted, held at the front idle position
  kInside,  // under the heads
  kRear,    // held at the rear idle position
  kExit,    // discharged: sticks out, waits to be pulled out, is no target of a command any more
};

// What the command under way waits for a person to do.
enum class CardWait { kNone, kInsertion, kRemoval };

// The printer's state falls apart by how long each part lasts.

// What is not the printer's own to lose: the card, the switch and the time.
struct Surroundings {
  Card card;
  CardPlace place = CardPlace::kOutside;
  bool power = true;
  // The moment of the work under way.
  protocol::Moment now{0};
};

// How the printer is made and fitted.
struct Fittings {
  Fonts& fonts;
  link::CodePage code_page;  // of the text of 41h
  Series series = Series::kQl7;
  bool case_parts = false;  // the case accessory parts, which close the back, are fitted
};

// What the printer keeps without power.
struct StoredState {
  // What 5Bh and 91h have stored comes into force when the power is next switched on.
  bool cleaning_button = true;
  std::string setting;
  bool stored_cleaning_button = true;
  std::string stored_setting;
  unsigned transports = 0;  // every move or pass of a card
  unsigned prints = 0;
};

// What begins afresh whenever the printer is switched on, or off, or reset.
struct VolatileState {
  CardWait wait = CardWait::kNone;
  // What the last pass of a card under the head left in each track buffer; an empty text where the
  // track was blank, nothing where no card has passed since power-on or reset.
  std::array<std::optional<std::string>, kTracks> buffers;
  // What 35h to 3Dh have loaded for each track, in the order in which the head would read it;
  // nothing once it is written or the printer is reset.
  std::array<std::optional<std::string>, kTracks> presets;
  Indicators indicators;
  // The print expansion buffer: what the next print puts on a card.
  Bitmap print_image{kFaceWidth, kFaceHeight};
  // What 43h and 4Dh have expanded; it is in print_image too, and stays there when 40h clears that.
  Bitmap image_data{kFaceWidth, kFaceHeight};
  PrintRegisters registers;
};

// Everything that commands read and change.
struct PrinterState : Surroundings, Fittings, StoredState, VolatileState {
  // The fonts draw the text of 41h and 4Eh; they must outlive the state.
  PrinterState(Fonts& installed_fonts, link::CodePage page)
      : Fittings{.fonts = installed_fonts, .code_page = page} {}

  // As the power switch and 5Fh do.
  void StartAfresh() { static_cast<VolatileState&>(*this) = {}; }
  // Whether a command that needs a card finds one.
  bool HasTargetCard() const;
  // The contents of a track of the card as its head reads it.
  std::string TrackAsRead(std::size_t track) const;
  // Moves the card and counts the transport.
  void Transport(CardPlace to);
  // Draws the card in under the head and fills the three track buffers.
  void PassUnderHead();
};

// Whether a track of a card can hold these bytes: 01h and 04h to 7Eh alone.
bool IsRecordable(std::string_view contents);

// The place in words for a window: "inserted at the front".
std::string_view PlaceInWords(CardPlace place);

}  // namespace vantrel::printer
