// SPDX-License-Identifier: MIT
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

// The tracks of a card's magnetic stripe. Where a value names one, it counts from 0.
inline constexpr std::size_t kTracks = 3;

// The data of a command that takes none.
struct NoData {};

// 21h to 2Bh, of which each reads one track; the data is empty.
struct TrackRead {
  std::size_t track = 0;  // 0 to 2
};

// 31h and 32h: the tracks to write, at least one.
struct TrackChoice {
  std::array<bool, kTracks> tracks{};  // whether each is written
};

// 35h to 3Dh: what the next write records on a track.
struct TrackPreset {
  std::size_t track = 0;  // 0 to 2
  std::string contents;   // one character a byte, in the order in which a head meets it
};

// What 41h, 42h and 4Ah begin with: the card arrangement direction and the reference point, which
// lies on the face as the direction turns it: a direction that is vertical (see IsVertical) has 320
// dots across and 480 up, one that is horizontal 480 and 320.
struct Arrangement {
  char direction = '0';  // '0' to '3'
  int x = 0;             // in dots from the left
  int y = 0;             // in dots from the bottom
};

// 41h: text, and where it begins.
struct PrintData {
  Arrangement arrangement;      // where the text begins
  std::vector<TextItem> items;  // the text, taken apart
};

// 42h: an image that the printer was made with.
struct ImageChoice {
  Arrangement arrangement;  // where it lies
  int number = 0;           // 0 to 1999
};

// 4Ah: columns of an image that 4Bh has registered.
struct RegisteredImageChoice {
  Arrangement arrangement;  // where they lie
  std::size_t number = 0;   // of the image's register, 0 to 15
  int first = 0;            // the first column, 0 to 479
  int last = 0;             // the last column, not before the first one
};

// 43h and 4Dh: whole lines of dots that lie on the image area, eight dots a byte. A line is a
// column of the face, its first byte at the top, the top dot of a byte in the lowest bit.
struct ImageDots {
  int x = 0;               // the first line, 0 to 479
  int y = 0;               // the first byte of each line, 0 to 39
  int bytes_per_line = 1;  // 1 to 40
  link::Bytes dots;        // line by line; as many bytes as whole lines have
};

// 44h and 45h: the dots of an external character, in columns as those of ImageDots.
struct ExternalCharacter {
  std::size_t number = 0;  // of its register, 0 to 15
  int width = 0;           // in dots; as wide as high for 44h, half of it for 45h
  int height = 0;          // in dots, 24 or 16
  link::Bytes dots;        // width * height / 8 bytes
};

// 4Bh: the first block of a BMP file for a register, 0 to 15, or the next of the same file.
struct BmpBlock {
  std::optional<std::size_t> number;  // nothing for a next block
  link::Bytes bytes;                  // of the file, as they follow one another
};

// 46h to 48h and 50h: where the card goes.
enum class Discharge {
  kFront,  // '0': it stops at the front and can be processed again
  kExit,   // '1': out at the front
  kRear,   // '2': out at the back
};

// 5Ah in its own digits: a blank keeps the buzzer or the LED as it is.
struct IndicatorSetting {
  char buzzer = ' ';         // '0' off, '1' on, '2' buzzing, '3' one cycle, '4' three cycles
  char led_colour = '1';     // '1' green, '2' red, '3' orange
  char led_operation = ' ';  // '0' off, '1' on, '2' flashing, '3' one cycle, '4' three cycles
};

// 5Bh: the button that starts a cleaning.
struct CleaningButton {
  bool enabled = false;  // whether a press of it starts one
};

// 91h: the text that is to become the printer's settings.
struct VariousSetting {
  std::string text;  // one character a byte
};

// The data of a command, as the type that its code asks for.
using CommandData =
    std::variant<NoData, TrackRead, TrackChoice, TrackPreset, PrintData, ImageChoice,
                 RegisteredImageChoice, ImageDots, ExternalCharacter, BmpBlock, Barcode, Discharge,
                 IndicatorSetting, CleaningButton, VariousSetting>;

// The data of a command, one character a byte, as the command means it. Nothing for a code that no
// command has and for data that no printer takes; whether a certain printer takes what is left (its
// series, its internal images, its registers) is for that one to say.
std::optional<CommandData> Parse(std::uint8_t code, std::string_view data);

}  // namespace vantrel::protocol
