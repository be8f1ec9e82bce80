// SPDX-License-Identifier: MIT

#include "printer/drawing/barcode.h"

#include "tests/support/print_bench.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

// The modules of a symbol, '#' for a bar, with the patterns of the symbology's standard written
// apart by blanks that are left out.
std::string Symbol(std::string_view patterns) {
  std::string modules;
  for (const char module : patterns) {
    if (module != ' ') modules += module;
  }
  return modules;
}

std::string ModulesOf(std::string_view data) {
  const auto barcode = protocol::ParseBarcode(data);
  if (!barcode) return "rejected";
  std::string modules;
  for (const bool bar : BarcodeModules(*barcode)) modules += bar ? '#' : '.';
  return modules;
}

std::string TextOf(std::string_view data) {
  return BarcodeText(protocol::ParseBarcode(data).value());
}

TEST(Barcode, Code39IsEnclosedInAsterisks) {
  // "*1*": nine elements a character, three of them wide (here two modules), a narrow gap between.
  EXPECT_EQ(ModulesOf("0,47,2,1"), Symbol("#..#.##.##.# . ##.#..#.#.## . #..#.##.##.#"));
  EXPECT_EQ(TextOf("0,47,3,1"), "*1*");
}

TEST(Barcode, InterleavedPutsTheSecondDigitIntoTheSpaces) {
  // Start, 1 in the bars (wide narrow narrow narrow wide) with 2 in the spaces (narrow wide narrow
  // narrow wide), stop; a wide element is three modules.
  EXPECT_EQ(ModulesOf("0,47,4,12"), Symbol("#.#. ###. #... #. #. ###... ###.#"));
}

TEST(Barcode, InterleavedFillsAnOddNumberOfDigitsWithAZero) {
  EXPECT_EQ(ModulesOf("0,47,4,2"), ModulesOf("0,47,4,02"));
  EXPECT_EQ(TextOf("0,47,5,2"), "02");
}

TEST(Barcode, CodabarHasItsStartAndEndCharacters) {
  EXPECT_EQ(ModulesOf("0,47,6,AB,1"), Symbol("#.##..#..# . #.#.##..# . #..#..#.##"));
  EXPECT_EQ(TextOf("0,47,7,AB,1"), "A1B");
}

TEST(Barcode, Code128IsMadeFromSymbolValues) {
  // Start B, "A" 33, "B" 34, check (104 + 33 + 2 * 34) mod 103 = 102, stop.
  EXPECT_EQ(ModulesOf("0,47,0,B,2122"),
            Symbol("##.#..#.... #.#...##... #...#.##... ####.#.###. ##...###.#.##"));
  EXPECT_EQ(TextOf("0,47,1,B,2122"), "AB");
}

TEST(Barcode, Code128ChangesItsSetInsideTheData) {
  // Start A, "A" 33, Shift 98, "a" 65, check (103 + 33 + 2 * 98 + 3 * 65) mod 103 = 12, stop.
  EXPECT_EQ(ModulesOf("0,47,0,A,216241"),
            Symbol("##.#....#.. #.#...##... ####.#...#. #..#.##.... #.##..###.. ##...###.#.##"));
  EXPECT_EQ(TextOf("0,47,1,A,216241"), "Aa");
  // Start C, 12, CodeB 100, "!" 1, CodeA 101, check (105 + 12 + 200 + 3 + 404) mod 103 = 3, stop.
  EXPECT_EQ(ModulesOf("0,47,0,C,0C640165"),
            Symbol("##.#..###.. #.##..###.. #.####.###. ##..##.##.. ###.#.####. #..#..##... "
                   "##...###.#.##"));
  EXPECT_EQ(TextOf("0,47,1,C,0C640165"), "12!");
}

TEST(Barcode, Code128TakesAShiftBackWithAShift) {
  // Set A: "A" 33, Shift 98 twice, 65, which is SOH in set A and "a" in set B, and "A".
  EXPECT_EQ(TextOf("0,47,1,A,2162624121"), "AA");
}

TEST(Barcode, Code128LeavesFunctionAndControlCharactersOutOfItsText) {
  // Set A: NUL 64, FNC3 96, "_" 63, FNC1 102; set B: DEL 95, "~" 94.
  EXPECT_EQ(TextOf("0,47,1,A,40603F66"), "_");
  EXPECT_EQ(TextOf("0,47,1,B,5F5E"), "~");
}

TEST(Barcode, TakesEverySymbolValue) {
  for (int value = 0; value <= 102; ++value) {
    const std::string modules =
        ModulesOf("0,47,0,A," + link::HexOf(static_cast<std::uint8_t>(value)));
    EXPECT_EQ(modules.size(), 11U * 3U + 13U) << value;
    // Every character begins with a bar, ends with a space and has an even number of bar modules.
    const std::string character = modules.substr(11, 11);
    EXPECT_EQ(character.front(), '#') << value;
    EXPECT_EQ(character.back(), '.') << value;
    EXPECT_EQ(std::count(character.begin(), character.end(), '#') % 2, 0) << value;
  }
}

class BarcodeCommand : public testing::Test {
 protected:
  support::PrintBench bench_;
};

TEST_F(BarcodeCommand, RejectsWrongParameters) {
  for (const char* data :
       {"", "0", "0,47", "0,47,2", "0,47,2,", "0,47,8,1", "0,47,x,1", "0,47,,1", ",47,2,1",
        "0,,2,1", "x,47,2,1", "0,x,2,1", "48,47,2,1", "0,320,2,1", "320,320,2,1",
        // Code 128: no set, another set, no values, half a value, no hex, FNC1 and one, twelve.
        "0,47,0,00", "0,47,0,,00", "0,47,0,D,00", "0,47,0,A,", "0,47,0,A,0", "0,47,0,A,0G",
        "0,47,0,A,67", "0,47,0,A,000102030405060708090A0B",
        // Code 39: a letter, the asterisk, eleven characters.
        "0,47,2,A", "0,47,2,*", "0,47,2,01234567890",
        // Interleaved: a sign, 21 digits.
        "0,47,4,1-", "0,47,4,012345678901234567890",
        // CODABAR: no ends, one, others, no data, a letter, fourteen characters.
        "0,47,6,1", "0,47,6,A,1", "0,47,6,AE,1", "0,47,6,AB,", "0,47,6,AB,A",
        "0,47,6,AB,01234567890123"}) {
    EXPECT_EQ(bench_.Send(0x4E, data), "10") << data;
  }
  EXPECT_EQ(support::BlackDots(bench_.Image()), 0);
}

TEST_F(BarcodeCommand, DrawsBarsFromTheFirstLineToTheLastInTheMiddle) {
  EXPECT_EQ(bench_.Send(0x4E, "100,147,2,1"), "20");
  // "*1*" has 38 modules of two dots: 76 dots in the middle of 480 begin at 202.
  std::string row;
  for (const char module : Symbol("#..#.##.##.# . ##.#..#.#.## . #..#.##.##.#"))
    row += std::string(2, module);
  for (const int y : {100, 147}) EXPECT_EQ(bench_.Part(202, y, 76, 1), support::Dots{row});
  // 18 bars of 48 lines, two dots a module: 22 black modules.
  EXPECT_EQ(support::BlackDots(bench_.Image()),
            static_cast<int>(std::count(row.begin(), row.end(), '#')) * 48);
}

TEST_F(BarcodeCommand, KeepsAQuietZoneClear) {
  // A black face under it.
  for (int x = 0; x < kFaceWidth; ++x)
    bench_.Send(0x43, std::to_string(x) + ",0," + std::string(80, 'F'));
  EXPECT_EQ(bench_.Send(0x4E, "100,147,2,1"), "20");
  EXPECT_EQ(bench_.Part(181, 100, 21, 1), support::Dots{"#...................."});
  EXPECT_EQ(bench_.Part(278, 147, 21, 1), support::Dots{"....................#"});
  EXPECT_EQ(bench_.Part(240, 99, 1, 1), support::Dots{"#"});
  EXPECT_EQ(bench_.Part(202, 148, 1, 1), support::Dots{"#"});
}

TEST_F(BarcodeCommand, WritesTheSubscriptBelowTheBars) {
  EXPECT_EQ(bench_.Send(0x4E, "0,47,5,77"), "20");
  const Bitmap with = bench_.Image();
  EXPECT_EQ(bench_.Send(0x4E, "100,147,4,77"), "20");
  // Without one, nothing stands under the bars.
  EXPECT_EQ(bench_.Part(200, 148, 80, 20), support::Dots(20, std::string(80, '.')));
  // "7" of Terminus in 8 x 16 dots, two dots below the bars: its upper bar is the third row.
  EXPECT_EQ(support::PartOf(with, 232, 48, 16, 6),
            (support::Dots{"................", "................", "................",
                           "................", ".######..######.", "......#.......#."}));
}

TEST_F(BarcodeCommand, Answers51hWhereTheSubscriptDoesNotFit) {
  EXPECT_EQ(bench_.Send(0x4E, "200,301,3,1"), "20");
  EXPECT_EQ(bench_.Send(0x4E, "200,302,3,1"), "51");
  EXPECT_EQ(bench_.Send(0x4E, "200,319,2,1"), "20");
}

TEST_F(BarcodeCommand, LeavesNoBarsWhereTheSubscriptDoesNotFit) {
  EXPECT_EQ(bench_.Send(0x4E, "200,302,3,1"), "51");
  EXPECT_EQ(support::BlackDots(bench_.Image()), 0);
}

TEST_F(BarcodeCommand, HasRoomForTheLongestOfEachType) {
  EXPECT_EQ(bench_.Send(0x4E, "0,47,1,A,0102030405060708090A0B"), "20");
  EXPECT_EQ(bench_.Send(0x4E, "0,47,3,%%%%%%%%%%"), "20");
  EXPECT_EQ(bench_.Send(0x4E, "0,47,5,99999999999999999999"), "20");
  EXPECT_EQ(bench_.Send(0x4E, "0,47,7,DD,:::::::::::::"), "20");
}

}  // namespace
}  // namespace vantrel::printer
