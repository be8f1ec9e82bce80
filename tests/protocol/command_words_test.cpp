// SPDX-License-Identifier: MIT

// Every command in words. The expected texts are written by hand.

#include "protocol/frame_words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantrel::protocol {
namespace {

struct Case {
  std::uint8_t code;
  std::string data;
  std::string words;
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.words; }

class CommandWords : public testing::TestWithParam<Case> {};

TEST_P(CommandWords, TellsTheCommandAndItsData) {
  EXPECT_EQ(CommandInWords(GetParam().code, GetParam().data), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Tracks, CommandWords,
    testing::Values(Case{0x21, "", "21h first track read"}, Case{0x22, "", "22h second track read"},
                    Case{0x23, "", "23h third track read"},
                    Case{0x25, "", "25h first track read of the card inside"},
                    Case{0x26, "", "26h second track read of the card inside"},
                    Case{0x27, "", "27h third track read of the card inside"},
                    Case{0x29, "", "29h first track buffer read"},
                    Case{0x2A, "", "2Ah second track buffer read"},
                    Case{0x2B, "", "2Bh third track buffer read"},
                    Case{0x31, "1", "31h magnetic stripe write: track 1"},
                    Case{0x31, "3", "31h magnetic stripe write: tracks 1 and 2"},
                    Case{0x31, "5", "31h magnetic stripe write: tracks 1 and 3"},
                    Case{0x32, "4", "32h magnetic stripe write on the card inside: track 3"},
                    Case{0x32, "7",
                         "32h magnetic stripe write on the card inside: tracks 1, 2 and 3"},
                    Case{0x35, "AB", "35h first track data set, reverse 7-bit: \"AB\""},
                    Case{0x36, "AB", "36h second track data set, reverse 7-bit: \"AB\""},
                    Case{0x37, "AB", "37h third track data set, reverse 7-bit: \"AB\""},
                    Case{0x38, "\x01\x41", "38h first track data set, 7-bit: 01h, \"A\""},
                    Case{0x39, "AB", "39h second track data set, 7-bit: \"AB\""},
                    Case{0x3A, "AB", "3Ah third track data set, 7-bit: \"AB\""},
                    Case{0x3B, "A B", "3Bh first track data set: \"A B\""},
                    Case{0x3C, "12", "3Ch second track data set: \"12\""},
                    Case{0x3D, "", "3Dh third track data set: no data"}));

INSTANTIATE_TEST_SUITE_P(
    Print, CommandWords,
    testing::Values(
        Case{0x40, "", "40h print expansion buffer clear"},
        Case{0x41, "2,0,47,Test Print", "41h print data: direction 2, X 0, Y 47, \"Test Print\""},
        Case{0x41,
             "2,0,47,Test Print\r\n\x1B"
             "E22Test Print",
             "41h print data: direction 2, X 0, Y 47, \"Test Print\", CR LF, ESC E 22, "
             "\"Test Print\""},
        Case{0x41, "0,,,a,b", "41h print data: direction 0, X (none), Y (none), \"a,b\""},
        Case{0x41, "1,5,6,", "41h print data: direction 1, X 5, Y 6, no text"},
        Case{0x42, "2,0,47,15", "42h internal image expand: direction 2, X 0, Y 47, image 15"},
        Case{0x43, "100,0,0100000080",
             "43h external image expand, line: X 100, Y 0, 5 bytes of dots"},
        Case{0x44, "0,3,FF00FF",
             "44h double byte external character register: 24 dot, number 3, 3 bytes of dots"},
        Case{0x45, "1,F,0100",
             "45h single byte external character register: 16 dot, number F, 2 bytes of dots"},
        Case{0x46, "0", "46h erase and print: then hold the card at the front"},
        Case{0x47, "1", "47h print: then discharge the card"},
        Case{0x48, "2", "48h erase: then discharge the card to the back"},
        Case{0x49, "", "49h buffer clear"},
        Case{0x4A, "1,10,20,A,0,39",
             "4Ah internal image 2 expand: direction 1, X 10, Y 20, image A, dots 0 to 39"},
        Case{0x4B, "0,424D1E1D",
             "4Bh BMP file register to internal image 2: image 0, 4 bytes of a BMP file"},
        Case{0x4B, "+,FFFC",
             "4Bh BMP file register to internal image 2: next block, 2 bytes of a BMP file"},
        Case{0x4D, "0,36,4,00FF00FF",
             "4Dh external image expand, block: X 0, Y 36, 4 bytes a line, 4 bytes of dots"}));

// The Code 128 data are symbol values in hex: 21h is 33, 22h is 34.
INSTANTIATE_TEST_SUITE_P(
    Barcode, CommandWords,
    testing::Values(
        Case{0x4E, "0,47,0,B,2122", "4Eh barcode: Y 0 to 47, Code 128, set B, values 33 34"},
        Case{0x4E, "0,47,1,A,",
             "4Eh barcode: Y 0 to 47, Code 128 with subscript, set A, "
             "values none"},
        Case{0x4E, "0,47,2,12$", "4Eh barcode: Y 0 to 47, Code 39, \"12$\""},
        Case{0x4E, "0,47,5,1234", "4Eh barcode: Y 0 to 47, ITF with subscript, \"1234\""},
        Case{0x4E, "5,x,7,AB,123",
             "4Eh barcode: Y 5 to x, CODABAR with subscript, start A, end B, \"123\""}));

INSTANTIATE_TEST_SUITE_P(
    TransportAndMaintenance, CommandWords,
    testing::Values(Case{0x50, "0", "50h card discharge: stop at the front, target card"},
                    Case{0x50, "1", "50h card discharge: completely, no target card"},
                    Case{0x51, "", "51h card rear side idle"}, Case{0x52, "", "52h cleaning"},
                    Case{0x53, "", "53h card front side idle"},
                    Case{0x54, "", "54h card insertion wait cancel"},
                    Case{0x55, "", "55h card removal wait cancel"},
                    Case{0x58, "", "58h ROM version request"}, Case{0x59, "", "59h status request"},
                    Case{0x5A, "322", "5Ah LED and buzzer: buzzer 1 cycle, LED flashing, red"},
                    Case{0x5A, " 14", "5Ah LED and buzzer: buzzer as it is, LED 3 cycles, green"},
                    Case{0x5A, "230", "5Ah LED and buzzer: buzzer buzzing, LED off, orange"},
                    Case{0x5B, "1", "5Bh cleaning button: enable"},
                    Case{0x5B, "0", "5Bh cleaning button: disable"}, Case{0x5F, "", "5Fh reset"},
                    Case{0x91, "21", "91h various setting: \"21\""},
                    Case{0x95, "", "95h card transport count request"},
                    Case{0x96, "", "96h print count request"}));

// What a command cannot have is shown as it stands.
INSTANTIATE_TEST_SUITE_P(
    Unreadable, CommandWords,
    testing::Values(
        Case{0x21, "x", "21h first track read: cannot be read: \"x\""},
        Case{0x31, "9", "31h magnetic stripe write: cannot be read: \"9\""},
        Case{0x41, "", "41h print data: no data"},
        Case{0x41, "4,0,0,A", "41h print data: cannot be read: \"4,0,0,A\""},
        Case{0x41, "2,x,0,A", "41h print data: cannot be read: \"2,x,0,A\""},
        Case{0x42, "2,0,47", "42h internal image expand: cannot be read: \"2,0,47\""},
        Case{0x43, "0,0,123", "43h external image expand, line: cannot be read: \"0,0,123\""},
        Case{0x44, "FFFF", "44h double byte external character register: cannot be read: \"FFFF\""},
        Case{0x45, "2,0,00",
             "45h single byte external character register: cannot be read: \"2,0,00\""},
        Case{0x46, "3", "46h erase and print: cannot be read: \"3\""},
        Case{0x4A, "1", "4Ah internal image 2 expand: cannot be read: \"1\""},
        Case{0x4B, "G,00", "4Bh BMP file register to internal image 2: cannot be read: \"G,00\""},
        Case{0x4D, "0,36,00", "4Dh external image expand, block: cannot be read: \"0,36,00\""},
        Case{0x4E, "0,47,8,1", "4Eh barcode: cannot be read: \"0,47,8,1\""},
        Case{0x4E, "0,47,0,D,21", "4Eh barcode: cannot be read: \"0,47,0,D,21\""},
        Case{0x4E, "0,47,6,A,1", "4Eh barcode: cannot be read: \"0,47,6,A,1\""},
        Case{0x5A, "522", "5Ah LED and buzzer: cannot be read: \"522\""},
        Case{0x5A, "342", "5Ah LED and buzzer: cannot be read: \"342\""},
        Case{0x5B, "2", "5Bh cleaning button: cannot be read: \"2\""},
        Case{0x7F, "", "7Fh unknown command"},
        Case{0x7F, "a\\\"b", "7Fh unknown command: \"a\\\\\\\"b\""}));

}  // namespace
}  // namespace vantrel::protocol
