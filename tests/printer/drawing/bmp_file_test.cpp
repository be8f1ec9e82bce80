// SPDX-License-Identifier: MIT

#include "printer/drawing/bmp_file.h"

#include "link/frame.h"
#include "tests/support/print_bench.h"

#include <gtest/gtest.h>

#include <random>

namespace vantrel::printer {
namespace {

// A monochrome BMP of 5 x 3 dots: file header, information header of 40 bytes, palette of black and
// white, and three rows of four bytes, the bottom row first. A 1 is white.
//   #...#
//   .#.#.
//   ..#..
const std::string kHeader =
    "424D4A000000000000003E000000"      // "BM", 74 bytes, dots from byte 62 on
    "280000000500000003000000"          // 40, width 5, height 3
    "0100010000000000"                  // one plane, one bit a dot, not compressed
    "0C000000000000000000000000000000"  // 12 bytes of dots
    "00000000"
    "00000000FFFFFF00";
const std::string kRows =
    "D8000000"   // 11011: the bottom row
    "A8000000"   // 10101
    "70000000";  // 01110
const std::string kSmallBmp = kHeader + kRows;

const support::Dots kSmallPicture{"#...#", ".#.#.", "..#.."};

bool Append(BmpFile& file, std::string_view hex) { return file.Append(link::BytesOf(hex)); }

bool IsBmp(const std::string& hex) {
  BmpFile file;
  return Append(file, hex);
}

// The small file with other bytes at a place.
std::string With(std::size_t place, std::string_view hex) {
  std::string file = kSmallBmp;
  return file.replace(2 * place, hex.size(), hex);
}

TEST(BmpFile, GivesItsPicture) {
  BmpFile file;
  EXPECT_FALSE(file.HasHeader());
  EXPECT_FALSE(file.Picture());
  EXPECT_TRUE(Append(file, kSmallBmp));
  EXPECT_EQ(file.Width(), 5);
  EXPECT_EQ(file.Height(), 3);
  EXPECT_EQ(support::PartOf(*file.Picture(), 0, 0, 5, 3), kSmallPicture);
}

TEST(BmpFile, MayComeByteByByte) {
  BmpFile file;
  for (std::size_t i = 0; i < kSmallBmp.size(); i += 2)
    EXPECT_TRUE(Append(file, kSmallBmp.substr(i, 2))) << i / 2;
  EXPECT_EQ(support::PartOf(*file.Picture(), 0, 0, 5, 3), kSmallPicture);
}

TEST(BmpFile, IsWhiteWhereRowsAreStillToCome) {
  BmpFile file;
  EXPECT_TRUE(Append(file, kHeader + kRows.substr(0, 8)));
  EXPECT_EQ(support::PartOf(*file.Picture(), 0, 0, 5, 3),
            (support::Dots{".....", ".....", "..#.."}));
}

TEST(BmpFile, BeginsWithTheTopRowWhereItsHeightIsNegative) {
  BmpFile file;
  EXPECT_TRUE(Append(file, With(22, "FDFFFFFF")));
  EXPECT_EQ(support::PartOf(*file.Picture(), 0, 0, 5, 3),
            (support::Dots{"..#..", ".#.#.", "#...#"}));
}

TEST(BmpFile, TakesItsColoursFromThePalette) {
  BmpFile file;
  EXPECT_TRUE(Append(file, With(54, "FFFFFF0000000000")));
  EXPECT_EQ(support::PartOf(*file.Picture(), 0, 0, 5, 3),
            (support::Dots{".###.", "#.#.#", "##.##"}));
}

// Blue, green, red and a zero for each of the two colours.
TEST(BmpFile, IsBlackWhereThePalettesColourIsTheDarkerHalfOfAll) {
  struct Case {
    const char* colour;
    bool black;
  };
  for (const Case& row : {Case{"FF000000", true},
                          {"00FF0000", true},
                          {"0000FF00", true},
                          {"7F7F7F00", true},
                          {"80808000", false},
                          {"FFFF0000", false},
                          {"00FFFF00", false},
                          {"FF00FF00", false},
                          {"00808000", true},
                          {"FF808000", false}}) {
    BmpFile file;
    // Dots of the first colour have this one, those of the second are white.
    EXPECT_TRUE(Append(file, With(54, row.colour + std::string("FFFFFF00"))));
    EXPECT_EQ(file.Picture()->At(0, 0), row.black) << row.colour;
    EXPECT_FALSE(file.Picture()->At(1, 0)) << row.colour;
  }
}

TEST(BmpFile, IsRefusedWhereItIsNoMonochromeBmp) {
  EXPECT_FALSE(IsBmp(With(0, "43")));
  EXPECT_FALSE(IsBmp(With(1, "4E")));
  EXPECT_FALSE(IsBmp(With(10, "3D000000")));  // dots inside the palette
  EXPECT_FALSE(IsBmp(With(10, "01100000")));  // dots further away than any header is long
  EXPECT_FALSE(IsBmp(With(14, "0C000000")));  // the older header of 12 bytes
  EXPECT_FALSE(IsBmp(With(14, "FFFFFFFF")));
  EXPECT_FALSE(IsBmp(With(18, "00000000")));  // no width
  EXPECT_FALSE(IsBmp(With(18, "E1010000")));  // 481 dots wide
  EXPECT_FALSE(IsBmp(With(22, "00000000")));  // no height
  EXPECT_FALSE(IsBmp(With(22, "00000080")));  // the lowest number of all
  EXPECT_FALSE(IsBmp(With(22, "E1010000")));
  EXPECT_FALSE(IsBmp(With(26, "0200")));      // two planes
  EXPECT_FALSE(IsBmp(With(28, "1800")));      // 24 bits a dot
  EXPECT_FALSE(IsBmp(With(30, "01000000")));  // compressed
}

TEST(BmpFile, IsRefusedAsSoonAsThatIsKnown) {
  EXPECT_TRUE(IsBmp("42"));
  EXPECT_FALSE(IsBmp("41"));
  EXPECT_TRUE(IsBmp("424D"));
  EXPECT_FALSE(IsBmp("4249"));
}

TEST(BmpFile, IsRefusedPastItsEndAndKeepsWhatItHas) {
  BmpFile file;
  EXPECT_TRUE(Append(file, kSmallBmp));
  EXPECT_FALSE(Append(file, "00"));
  EXPECT_EQ(support::PartOf(*file.Picture(), 0, 0, 5, 3), kSmallPicture);
}

TEST(BmpFile, MayHaveATailThatItsSizeCounts) {
  BmpFile file;
  EXPECT_TRUE(Append(file, With(2, "4C000000") + "0000"));
  EXPECT_FALSE(Append(file, "00"));
}

TEST(BmpFile, HasATailOf64BytesAtMost) {
  BmpFile file;
  EXPECT_TRUE(Append(file, With(2, "FFFFFF7F") + std::string(128, '0')));
  EXPECT_FALSE(Append(file, "00"));
}

TEST(BmpFile, SurvivesAnyBytes) {
  std::mt19937 random(75);
  for (int round = 0; round < 2000; ++round) {
    link::Bytes bytes = link::BytesOf(kSmallBmp);
    for (auto i = random() % 6; i > 0; --i)
      bytes[random() % bytes.size()] = static_cast<std::uint8_t>(random());
    bytes.resize(random() % (bytes.size() + 1));
    BmpFile file;
    file.Append(bytes);
    file.Append(bytes);
    const auto picture = file.Picture();
    if (!picture) continue;
    EXPECT_LE(picture->Width(), kLongestBmpSide);
    EXPECT_LE(picture->Height(), kLongestBmpSide);
  }
}

class BmpCommands : public testing::Test {
 protected:
  support::PrintBench bench_;
};

TEST_F(BmpCommands, RegisterAFileInBlocks) {
  EXPECT_EQ(bench_.Send(0x4B, "7," + kSmallBmp.substr(0, 20)), "20");
  EXPECT_EQ(bench_.Send(0x4B, "+," + kSmallBmp.substr(20, 90)), "20");
  EXPECT_EQ(bench_.Send(0x4B, "+," + kSmallBmp.substr(110)), "20");
  EXPECT_EQ(bench_.Send(0x4A, "1,100,102,7,0,4"), "20");
  EXPECT_EQ(bench_.Part(100, 100, 5, 3), kSmallPicture);
}

TEST_F(BmpCommands, ExpandTheDotsFromTheFirstToTheLast) {
  bench_.Send(0x4B, "F," + kSmallBmp);
  EXPECT_EQ(bench_.Send(0x4A, "1,100,102,F,1,2"), "20");
  EXPECT_EQ(bench_.Part(99, 100, 5, 3), (support::Dots{".....", ".#...", "..#.."}));
}

TEST_F(BmpCommands, ExpandASingleDotWhereTheFirstIsTheLast) {
  bench_.Send(0x4B, "F," + kSmallBmp);
  EXPECT_EQ(bench_.Send(0x4A, "1,100,102,F,1,1"), "20");
  EXPECT_EQ(bench_.Part(99, 100, 5, 3), (support::Dots{".....", ".#...", "....."}));
  EXPECT_EQ(bench_.Send(0x4A, "1,100,102,F,4,4"), "20");
  EXPECT_EQ(bench_.Part(99, 100, 5, 3), (support::Dots{".#...", ".....", "....."}));
}

TEST_F(BmpCommands, TurnAndAddByTheDirection) {
  bench_.Send(0x4B, "0," + kSmallBmp);
  EXPECT_EQ(bench_.Send(0x4A, "2,0,2,0,0,4"), "20");
  // A quarter counterclockwise: the left column of the picture is the bottom row.
  EXPECT_EQ(bench_.Part(0, 315, 3, 5), (support::Dots{"#..", ".#.", "..#", ".#.", "#.."}));
  // Its lower half added to what stands there: the corner dots of both stay.
  EXPECT_EQ(bench_.Send(0x4A, "3,0,317,0,0,2"), "20");
  EXPECT_EQ(bench_.Part(0, 315, 3, 5), (support::Dots{"#..", ".#.", "..#", ".#.", "#.."}));
}

TEST_F(BmpCommands, Answer51hWhereTheImageDoesNotFit) {
  bench_.Send(0x4B, "0," + kSmallBmp);
  EXPECT_EQ(bench_.Send(0x4A, "1,476,102,0,0,4"), "51");
  EXPECT_EQ(bench_.Send(0x4A, "1,0,1,0,0,4"), "51");
}

TEST_F(BmpCommands, RejectWrongParametersOfTheExpansion) {
  bench_.Send(0x4B, "0," + kSmallBmp);
  for (const char* data : {"", "1,0,2,0,0", "1,0,2,0,0,", "1,0,2,0,0,5", "1,0,2,0,3,2",
                           "1,0,2,0,x,4", "1,0,2,0,0,480", "1,0,2,G,0,4", "1,0,2,,0,4",
                           "1,0,2,1,0,4", "4,0,2,0,0,4", "1,480,2,0,0,4", "1,0,320,0,0,4"}) {
    EXPECT_EQ(bench_.Send(0x4A, data), "10") << data;
  }
}

TEST_F(BmpCommands, RejectWrongParametersOfTheRegistration) {
  for (const char* data :
       {"", "0", "0,", "+,", "G,424D", ",424D", "10,424D", "0,424", "0,42G4", "0;424D", "-,424D"}) {
    EXPECT_EQ(bench_.Send(0x4B, data), "10") << data;
  }
}

TEST_F(BmpCommands, Answer4ChToWhatIsNoBmpAndKeepTheImageBefore) {
  bench_.Send(0x4B, "0," + kSmallBmp);
  EXPECT_EQ(bench_.Send(0x4B, "0,4243"), "4C");
  EXPECT_EQ(bench_.Send(0x4A, "1,0,2,0,0,4"), "20");
  EXPECT_EQ(bench_.Part(0, 0, 5, 3), kSmallPicture);
}

TEST_F(BmpCommands, Answer4ChToAContinuationOfNothing) {
  EXPECT_EQ(bench_.Send(0x4B, "+,424D"), "4C");
  bench_.Send(0x4B, "0,41");
  EXPECT_EQ(bench_.Send(0x4B, "+,424D"), "4C");
}

}  // namespace
}  // namespace vantrel::printer
