// SPDX-License-Identifier: MIT

#include "tour/printer_words.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>

namespace vantrel::tour {
namespace {

constexpr std::string_view kReads =
    "The reply brings what the track holds. The card passes under the head, which fills all three "
    "track buffers.";
constexpr std::string_view kBuffer = "The reply brings what the last pass of a card has left.";
constexpr std::string_view kWrites =
    "Writes what is loaded, or nothing at all where it is missing for one of the tracks.";
constexpr std::string_view kNoSuchTracks =
    "where the sum is not 1 to 7, and by a QL-8 where it is not 4";
constexpr std::string_view kReverse =
    "Keeps the data until it is written or the printer is reset. It is recorded in reverse: a "
    "later "
    "read begins with its last character.";
constexpr std::string_view kLoads = "Keeps the data until it is written or the printer is reset.";
constexpr std::string_view kSevenBits =
    "where the data is empty, longer than 69 bytes or not of 01h and 04h to 7Eh";
constexpr std::string_view kDots =
    "Puts the dots into the print expansion buffer, in place of what stood there; 40h leaves them, "
    "49h does not.";
constexpr std::string_view kOutside =
    "where X is above 479, Y above 39, or the dots do not lie on the card";
constexpr std::string_view kCharacter =
    "Keeps the character until 5Fh or the power switch; 41h prints it.";
constexpr std::string_view kNoCharacter =
    "where the size is not 0 or 1, the register not 0 to F, or the bytes not as many as the "
    "character has";
constexpr std::string_view kNoMethod =
    "with another method, and with 2 where the case accessory parts are fitted";
constexpr std::string_view kNotStored = "where there is no setting";

constexpr PrinterWords kWords[] = {
    {"21", kReads},
    {"22", kReads},
    {"23", kReads},
    {"25", kReads},
    {"26", kReads},
    {"27", kReads},
    {"29", kBuffer},
    {"2A", kBuffer},
    {"2B", kBuffer},
    {"31", kWrites, kNoSuchTracks},
    {"32", kWrites, kNoSuchTracks},
    {"35", kReverse, kSevenBits},
    {"36", kReverse, kSevenBits},
    {"37", kReverse, kSevenBits},
    {"38", kLoads, kSevenBits},
    {"39", kLoads, kSevenBits},
    {"3A", kLoads, kSevenBits},
    {"3B", kLoads, "where the data is empty, longer than 76 bytes or not of 20h to 5Eh"},
    {"3C", kLoads, "where the data is empty, longer than 37 bytes or not of 30h to 3Eh"},
    {"3D", kLoads, "where the data is empty, longer than 104 bytes or not of 30h to 3Eh"},
    {"40", "Empties the print expansion buffer of all but what 43h and 4Dh have put there."},
    {"41",
     "Draws text into the print expansion buffer, by the ESC sequences in it; 46h or 47h prints "
     "it. "
     "Direction 0 and 1 overwrite what stands there, 2 and 3 add to it.",
     "where X, Y, a sequence or its value is not one that it knows; nothing is drawn then"},
    {"42",
     "Draws one of its six images into the print expansion buffer: a frame, a disc, a ring, an "
     "arrow, "
     "a tick, a chequered square.",
     "where the image is not 0 to 5"},
    {"43", kDots, kOutside},
    {"44", kCharacter, kNoCharacter},
    {"45", kCharacter, kNoCharacter},
    {"46",
     "Erases the card and prints the print expansion buffer on it, which stays as it is for the "
     "next card. "
     "With 0 the card then stops at the front and stays a target card, with 1 it waits to be "
     "pulled out, with 2 it leaves at the back.",
     kNoMethod},
    {"47",
     "Prints the print expansion buffer on top of what the card shows; it stays as it is for the "
     "next card. "
     "With 0 the card then stops at the front and stays a target card, with 1 it waits to be "
     "pulled out, with 2 it leaves at the back.",
     kNoMethod},
    {"48",
     "Erases the card. "
     "With 0 the card then stops at the front and stays a target card, with 1 it waits to be "
     "pulled out, with 2 it leaves at the back.",
     kNoMethod},
    {"49", "Empties the print expansion buffer, and forgets what 43h and 4Dh have sent."},
    {"4A", "Draws those columns of a registered image into the print expansion buffer."},
    {"4B",
     "Keeps the file until 5Fh or the power switch; a block that begins with + goes on with the "
     "file "
     "before it.",
     "where the register is not 0 to F or +"},
    {"4D", kDots, kOutside},
    {"4E",
     "Draws the barcode in the middle of the card's long side, over what stands there. The odd "
     "types "
     "have their characters below.",
     "where the bars would end before they begin or below line 319, the type is not 0 to 7, or the "
     "data is empty, too long or not of the type's characters"},
    {"50",
     "With 0 the card stops at the front and stays a target card, with 1 it waits to be pulled "
     "out and is none.",
     "with another parameter"},
    {"51", "The card stays in the printer, at the rear."},
    {"52", "The cleaning card waits to be pulled out afterwards."},
    {"53", "The card stays in the printer, at the front."},
    {"54", "The command that waits for a card ends and is not answered."},
    {"55",
     "The command that waits for a card's removal ends and is not answered, and the card is held "
     "at "
     "the front again."},
    {"58", "The reply brings its name and version."},
    {"59",
     "The reply brings eight digits: place of the card (0 outside, 1 front, 2 inside, 3 rear, 4 "
     "waiting to be pulled out), its kind (0 none, 1 ordinary, 2 cleaning), a command's wait (0 "
     "none, "
     "1 for a card, 2 for its removal), target card (0 none, 1 present), buzzer, colour of the LED "
     "and LED as in 5Ah, cleaning button (0 disabled, 1 enabled)."},
    {"5A",
     "Buzzer (0 off, 1 on, 2 buzzing, 3 one cycle, 4 three cycles, blank as it is), colour (1 "
     "green, "
     "2 red, 3 orange) and LED (as the buzzer, 2 flashing).",
     "with other digits"},
    {"5B", "Holds from the next time on that the power is switched on.", "with another parameter"},
    {"5F",
     "Ends every command, empties track buffers, loaded data, the print expansion buffer and the "
     "registers, and switches LED and buzzer off. Card, counters and settings stay."},
    {"91", "Keeps the setting for the next time that the power is switched on.", kNotStored},
    {"95", "The reply brings how often a card was moved, in decimal digits."},
    {"96", "The reply brings how often a card was printed, in decimal digits."},
};

}  // namespace

const PrinterWords& PrinterWordsOf(std::string_view code) {
  const auto* const found =
      std::find_if(std::begin(kWords), std::end(kWords),
                   [code](const PrinterWords& words) { return words.code == code; });
  if (found == std::end(kWords))
    throw std::logic_error("Nothing is told of what the printer does for " + std::string(code) +
                           "h.");
  return *found;
}

}  // namespace vantrel::tour
