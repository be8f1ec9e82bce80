#pragma once

#include "printer/bitmap.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel {

inline constexpr std::size_t kTracks = 3;
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

// LED and buzzer as 5Ah sets them, in its own digits.
struct Indicators {
  char buzzer = '0';         // '0' off, '1' on, '2' buzzing, '3' one cycle, '4' three cycles
  char led_colour = '1';     // '1' green, '2' red, '3' orange
  char led_operation = '0';  // '0' off, '1' on, '2' flashing, '3' one cycle, '4' three cycles
};

// Everything that commands read and change.
struct PrinterState {
  Card card;
  CardPlace place = CardPlace::kOutside;
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
  bool cleaning_button = true;  // 5Bh
  std::string setting;          // the last text of 91h
  Series series = Series::kQl7;
  bool case_parts = false;  // the case accessory parts, which close the back, are fitted
  unsigned transports = 0;  // every move or pass of a card
  unsigned prints = 0;

  // Whether a command that needs a card finds one.
  bool HasTargetCard() const;
  // The contents of a track of the card as its head reads it.
  std::string TrackAsRead(std::size_t track) const;
  // Moves the card and counts the transport.
  void Transport(CardPlace to);
  // Draws the card in under the head and fills the three track buffers.
  void PassUnderHead();
};

// The place, LED and buzzer in words for a window: "inserted at the front", "flashing, red", "off".
std::string_view PlaceInWords(CardPlace place);
std::string LedInWords(const Indicators& indicators);
std::string_view BuzzerInWords(const Indicators& indicators);

}  // namespace vantrel
