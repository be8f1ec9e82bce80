#pragma once

#include "link/frame.h"
#include "protocol/barcode.h"
#include "protocol/print_text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vantrel::protocol {

inline constexpr std::size_t kTracks = 3;

// The data of a command that takes none.
struct NoData {};

// 21h to 2Bh, of which each reads one track, 0 to 2; the data is empty.
struct TrackRead {
  std::size_t track = 0;
};

// 31h and 32h: the tracks to write, at least one.
struct TrackChoice {
  std::array<bool, kTracks> tracks{};
};

// 35h to 3Dh: what the next write records on a track, 0 to 2, one character a byte, in the order in
// which a head meets it.
struct TrackPreset {
  std::size_t track = 0;
  std::string contents;
};

// What 41h, 42h and 4Ah begin with: the card arrangement direction, '0' to '3', and the reference
// point in dots, which lies on the face as the direction turns it.
struct Arrangement {
  char direction = '0';
  int x = 0;
  int y = 0;
};

// 41h.
struct PrintData {
  Arrangement arrangement;
  std::vector<TextItem> items;
};

// 42h: an internal image, 0 to 1999.
struct ImageChoice {
  Arrangement arrangement;
  int number = 0;
};

// 4Ah: the columns from `first` to `last`, 0 to 479, of a registered image, 0 to 15.
struct RegisteredImageChoice {
  Arrangement arrangement;
  std::size_t number = 0;
  int first = 0;
  int last = 0;
};

// 43h and 4Dh: whole lines of dots that lie on the image area, eight dots a byte. A line is a
// column of the face, its first byte at the top, the top dot of a byte in the lowest bit.
struct ImageDots {
  int x = 0;  // the first line, 0 to 479
  int y = 0;  // the first byte of each line, 0 to 39
  int bytes_per_line = 1;
  link::Bytes dots;
};

// 44h and 45h: the dots of an external character, in columns as those of ImageDots.
struct ExternalCharacter {
  std::size_t number = 0;  // of its register, 0 to 15
  int width = 0;
  int height = 0;
  link::Bytes dots;
};

// 4Bh: the first block of a BMP file for a register, 0 to 15, or the next of the same file.
struct BmpBlock {
  std::optional<std::size_t> number;  // nothing for a next block
  link::Bytes bytes;
};

// 46h to 48h and 50h: where the card goes.
enum class Discharge { kFront, kExit, kRear };

// 5Ah in its own digits: a blank keeps the buzzer or the LED as it is.
struct IndicatorSetting {
  char buzzer = ' ';         // '0' off, '1' on, '2' buzzing, '3' one cycle, '4' three cycles
  char led_colour = '1';     // '1' green, '2' red, '3' orange
  char led_operation = ' ';  // '0' off, '1' on, '2' flashing, '3' one cycle, '4' three cycles
};

// 5Bh.
struct CleaningButton {
  bool enabled = false;
};

// 91h.
struct VariousSetting {
  std::string text;
};

// The data of a command.
using CommandData =
    std::variant<NoData, TrackRead, TrackChoice, TrackPreset, PrintData, ImageChoice,
                 RegisteredImageChoice, ImageDots, ExternalCharacter, BmpBlock, Barcode, Discharge,
                 IndicatorSetting, CleaningButton, VariousSetting>;

// The data of a command, one character a byte, as the command means it. Nothing for a code that no
// command has and for data that no printer takes; whether a certain printer takes what is left (its
// series, its internal images, its registers) is for that one to say.
std::optional<CommandData> Parse(std::uint8_t code, std::string_view data);

}  // namespace vantrel::protocol
