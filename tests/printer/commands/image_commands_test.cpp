// SPDX-License-Identifier: MIT

#include "tests/support/print_bench.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

std::string Repeated(std::string_view text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

class Images : public testing::Test {
 protected:
  support::PrintBench bench_;
};

TEST_F(Images, OfALineStandInAColumnTheTopDotInTheLowestBit) {
  // The top dot of the first byte and the bottom dot of the second.
  EXPECT_EQ(bench_.Send(0x43, "100,1,0180"), "20");
  EXPECT_TRUE(bench_.Image().At(100, 8));
  EXPECT_TRUE(bench_.Image().At(100, 23));
  EXPECT_EQ(support::BlackDots(bench_.Image()), 2);
}

TEST_F(Images, OfABlockStandLineBesideLine) {
  // Three lines of two bytes: a stair of half bytes.
  EXPECT_EQ(bench_.Send(0x4D, "477,38,2,0F00F0000F0F"), "20");
  EXPECT_EQ(bench_.Part(477, 304, 3, 16), (support::Dots{"#.#", "#.#", "#.#", "#.#",  //
                                                         ".#.", ".#.", ".#.", ".#.",  //
                                                         "..#", "..#", "..#", "..#",  //
                                                         "...", "...", "...", "..."}));
}

TEST_F(Images, ReplaceWhatStoodThere) {
  bench_.Send(0x43, "0,0,FFFF");
  bench_.Send(0x43, "0,0,00");
  EXPECT_EQ(support::BlackDots(bench_.Image()), 8);
}

TEST_F(Images, OfALineAreRejectedWhereSomethingIsWrong) {
  for (const char* data :
       {"", "0", "0,0", "0,0,", ",0,FF", "0,,FF", "480,0,FF", "0,40,FF", "x,0,FF", "0,x,FF",
        "0,0,F", "0,0,FG", "0,0,FF,FF", "0,39,FFFF", "0,36,FFFFFFFFFF"}) {
    EXPECT_EQ(bench_.Send(0x43, data), "10") << data;
  }
  EXPECT_EQ(bench_.Send(0x43, "0,35,FFFFFFFFFF"), "20");
  EXPECT_EQ(bench_.Send(0x43, "479,0," + std::string(80, 'F')), "20");
  EXPECT_EQ(bench_.Send(0x43, "479,0," + std::string(82, 'F')), "10");
}

TEST_F(Images, OfABlockAreRejectedWhereSomethingIsWrong) {
  for (const char* data :
       {"", "0", "0,0,1", "0,0,1,", "0,0,0,FF", "0,0,41,FF", "0,0,x,FF", "480,0,1,FF", "0,40,1,FF",
        "0,0,1,FG", "0,0,2,FFFFFF", "0,39,2,FFFF", "479,0,1,FFFF", ",0,1,FF"}) {
    EXPECT_EQ(bench_.Send(0x4D, data), "10") << data;
  }
}

TEST_F(Images, OfWholeLinesAreTaken) {
  // One line of 40 bytes, as a console sends it for X 479 and Y 0.
  EXPECT_EQ(bench_.Send(0x4D, "479,0,40," + std::string(80, 'F')), "20");
  EXPECT_EQ(support::BlackDots(bench_.Image()), 320);
  // From byte 1 on 40 bytes run past the 320 dots.
  EXPECT_EQ(bench_.Send(0x4D, "479,1,40," + std::string(80, 'F')), "10");
}

TEST_F(Images, StayWhenPrintDataIsClearedAndGoWithTheBufferClear) {
  bench_.Send(0x43, "100,0,FF");
  bench_.Send(0x41, "3,0,319,Text");
  EXPECT_GT(support::BlackDots(bench_.Image()), 8);
  EXPECT_EQ(bench_.Send(0x40, ""), "20");
  EXPECT_EQ(support::BlackDots(bench_.Image()), 8);
  EXPECT_EQ(bench_.Send(0x49, ""), "20");
  EXPECT_EQ(support::BlackDots(bench_.Image()), 0);
  EXPECT_EQ(bench_.Send(0x40, ""), "20");
  EXPECT_EQ(support::BlackDots(bench_.Image()), 0);
}

TEST_F(Images, AreClearedByCommandsWithoutParameters) {
  EXPECT_EQ(bench_.Send(0x40, "0"), "10");
  EXPECT_EQ(bench_.Send(0x49, "0"), "10");
}

TEST_F(Images, InsideThePrinterAreExpandedAtTheReferencePoint) {
  // The frame, 48 x 48 dots, four dots thick.
  EXPECT_EQ(bench_.Send(0x42, "1,100,147,0"), "20");
  EXPECT_EQ(bench_.Part(99, 99, 6, 6),
            (support::Dots{"......", ".#####", ".#####", ".#####", ".#####", ".####."}));
  EXPECT_EQ(support::BlackDots(bench_.Image()), 48 * 48 - 40 * 40);
}

TEST_F(Images, InsideThePrinterAreTurnedWithTheirDirection) {
  // The arrow, which points to the right; vertically, up the lying face.
  EXPECT_EQ(bench_.Send(0x42, "0,0,47,3"), "20");
  EXPECT_EQ(bench_.Part(22, 272, 4, 2), (support::Dots{".##.", "####"}));
  EXPECT_EQ(bench_.Part(22, 318, 4, 2), (support::Dots{"####", "####"}));
}

TEST_F(Images, InsideThePrinterAreRejectedWhereSomethingIsWrong) {
  for (const char* data : {"", "2,0,47", "2,0,47,", "2,0,47,6", "2,0,47,1999", "2,0,47,2000",
                           "2,0,47,x", "4,0,47,0", "2,320,47,0", "2,0,480,0", "2,,47,0"}) {
    EXPECT_EQ(bench_.Send(0x42, data), "10") << data;
  }
}

TEST_F(Images, InsideThePrinterAnswer51hWhereTheyDoNotFit) {
  EXPECT_EQ(bench_.Send(0x42, "2,272,47,0"), "20");
  EXPECT_EQ(bench_.Send(0x42, "2,273,47,0"), "51");
  EXPECT_EQ(bench_.Send(0x42, "2,0,46,0"), "51");
}

TEST_F(Images, OfCharactersAreTakenInTheirExactLengths) {
  EXPECT_EQ(bench_.Send(0x44, "0,0," + std::string(144, 'F')), "20");
  EXPECT_EQ(bench_.Send(0x44, "1,F," + std::string(64, '0')), "20");
  EXPECT_EQ(bench_.Send(0x45, "0,9," + std::string(72, 'a')), "20");
  EXPECT_EQ(bench_.Send(0x45, "1,3,0100" + std::string(28, '0')), "20");
}

TEST_F(Images, OfCharactersAreRejectedWhereSomethingIsWrong) {
  for (const std::uint8_t code : {std::uint8_t{0x44}, std::uint8_t{0x45}}) {
    const std::string large(code == 0x44 ? 144 : 72, 'F');
    const std::string small(code == 0x44 ? 64 : 32, 'F');
    for (const std::string& data :
         {std::string(144, 'F'), "0,0," + small, "1,0," + large, "2,0," + large, "0,G," + large,
          "0,10," + large, "0,," + large, "0," + large, "0,0," + large + "0",
          "0,0,G" + large.substr(1), std::string()}) {
      EXPECT_EQ(bench_.Send(code, data), "10") << data;
    }
  }
}

TEST_F(Images, OfCharactersHaveSixteenRegistersForEachCommand) {
  // A black 16 x 16 character in each register, a black 8 x 16 one in the registers of 45h.
  for (const char digit : std::string("0123456789ABCDEF")) {
    EXPECT_EQ(bench_.Send(0x44, std::string("1,") + digit + "," + std::string(64, 'F')), "20");
    EXPECT_EQ(bench_.Send(0x45, std::string("1,") + digit + "," + std::string(32, 'F')), "20");
  }
  EXPECT_EQ(bench_.Send(0x41, "1,0,15,\x1BI0\x1BIF\x1Bi0\x1BiF"), "20");
  EXPECT_EQ(support::BlackDots(bench_.Image()), 48 * 16);
}

TEST_F(Images, OfALargeCharacterAreReadColumnByColumn) {
  // 24 x 24: the first column's top dot and the last column's bottom dot.
  EXPECT_EQ(bench_.Send(0x44, "0,A,010000" + Repeated("000000", 22) + "000080"), "20");
  EXPECT_EQ(bench_.Send(0x41, "1,0,23,\x1BGA"), "20");
  EXPECT_TRUE(bench_.Image().At(0, 0));
  EXPECT_TRUE(bench_.Image().At(23, 23));
  EXPECT_EQ(support::BlackDots(bench_.Image()), 2);
}

}  // namespace
}  // namespace vantrel::printer
