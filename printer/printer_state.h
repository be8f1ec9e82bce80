#pragma once

#include "link/code_page.h"
#include "printer/bitmap.h"
#include "printer/bmp_file.h"
#include "printer/indicators.h"
#include "printer/moment.h"

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

inline constexpr std::size_t kRegisters = 16;

// What a console has registered for expansion into the print expansion buffer.
struct PrintRegisters {
  // External characters of 44h (24 x 24 or 16 x 16 dots) and 45h (12 x 24 or 8 x 16).
  std::array<std::optional<Bitmap>, kRegisters> double_byte_characters;
  std::array<std::optional<Bitmap>, kRegisters> single_byte_characters;
  // Internal image data 2: the BMP files of 4Bh as far as they came, and the one that a
  // continuation block goes to.
  std::array<BmpFile, kRegisters> images;
  std::optional<std::size_t> open_image;
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
  // What 43h and 4Dh have expanded; it is in print_image too, and stays there when 40h clears that.
  Bitmap image_data{kFaceWidth, kFaceHeight};
  PrintRegisters registers;
  CodePage code_page = SystemCodePage();  // of the text of 41h
  bool power = true;
  // The moment of the work under way.
  Moment now{0};
  // What 5Bh and 91h have stored comes into force when the power is next switched on.
  bool cleaning_button = true;
  std::string setting;
  bool stored_cleaning_button = true;
  std::string stored_setting;
  Series series = Series::kQl7;
  bool case_parts = false;  // the case accessory parts, which close the back, are fitted
  unsigned transports = 0;  // every move or pass of a card
  unsigned prints = 0;

  // Makes everything as it is when the power is switched on, but for the card and its place, how
  // the printer is made and fitted, the counters and the settings.
  void StartAfresh();
  // Whether a command that needs a card finds one.
  bool HasTargetCard() const;
  // The contents of a track of the card as its head reads it.
  std::string TrackAsRead(std::size_t track) const;
  // Moves the card and counts the transport.
  void Transport(CardPlace to);
  // Draws the card in under the head and fills the three track buffers.
  void PassUnderHead();
};

// The place in words for a window: "inserted at the front".
std::string_view PlaceInWords(CardPlace place);

}  // namespace vantrel
