// SPDX-License-Identifier: MIT

#include "tests/support/print_bench.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

// "F" of Terminus in its cell of 8 x 16 dots, read off the font by eye.
const support::Dots kF{"........",  //
                       "........",  //
                       ".######.",  //
                       ".#......",  //
                       ".#......",  //
                       ".#......",  //
                       ".####...",  //
                       ".#......",  //
                       ".#......",  //
                       ".#......",  //
                       ".#......",  //
                       ".#......",  //
                       "........",  //
                       "........",  //
                       "........",  //
                       "........"};

// The same on the lying face as vertical text: its top at the left, its left side at the bottom.
const support::Dots kStandingF{"................",  //
                               "..#.............",  //
                               "..#.............",  //
                               "..#...#.........",  //
                               "..#...#.........",  //
                               "..#...#.........",  //
                               "..##########....",  //
                               "................"};

// External character 5, 8 x 16 dots: black but for its left column and its three top rows, so that
// its corners tell how it is turned and scaled. A column is two bytes, the top dot in the low bit.
const std::string kBlock = "1,5,0000" + std::string("F8FFF8FFF8FFF8FFF8FFF8FFF8FF");

class PrintData : public testing::Test {
 protected:
  std::string Print(const std::string& data) { return bench_.Send(0x41, data); }

  support::PrintBench bench_;
};

TEST_F(PrintData, StandsWithItsLeftBottomDotAtTheReferencePoint) {
  EXPECT_EQ(Print("1,100,215,\x1B"
                  "F0F"),
            "20");
  EXPECT_EQ(bench_.Part(100, 200, 8, 16), kF);
  // Nothing else was drawn: the F has 6 + 3 + 4 + 5 dots.
  EXPECT_EQ(support::BlackDots(bench_.Image()), 18);
}

TEST_F(PrintData, IsTurnedByAVerticalDirection) {
  // X is counted from the bottom of the lying face, Y from its left edge.
  EXPECT_EQ(Print("0,100,215,\x1B"
                  "F0F"),
            "20");
  EXPECT_EQ(bench_.Part(200, 320 - 108, 16, 8), kStandingF);
}

TEST_F(PrintData, OverwritesOrAddsByItsDirection) {
  Print(
      "1,0,15,\x1B"
      "F0F");
  Print(
      "3,0,15,\x1B"
      "F0-");
  support::Dots both = kF;
  both[7] = ".######.";
  EXPECT_EQ(bench_.Part(0, 0, 8, 16), both);
  Print(
      "1,0,15,\x1B"
      "F0F");
  EXPECT_EQ(bench_.Part(0, 0, 8, 16), kF);
}

TEST_F(PrintData, OverwritesOrAddsVerticallyToo) {
  Print(
      "0,100,215,\x1B"
      "F0F");
  Print(
      "2,100,215,\x1B"
      "F0-");
  // The dash of six dots crosses the stem of the F.
  EXPECT_EQ(support::BlackDots(bench_.Image()), 18 + 5);
  Print(
      "0,100,215,\x1B"
      "F0 ");
  EXPECT_EQ(support::BlackDots(bench_.Image()), 0);
}

TEST_F(PrintData, BeginsWith24DotCharacters) {
  Print("1,0,23,F");
  // The foot of an F of 12 x 24 dots lies in row 18, that of the next line's in row 42.
  EXPECT_TRUE(bench_.Image().At(1, 18));
  EXPECT_EQ(bench_.Send(0x40, ""), "20");
  Print("1,0,23,\r\nF");
  EXPECT_TRUE(bench_.Image().At(1, 42));
}

TEST_F(PrintData, IsRejectedWithAWrongHeader) {
  for (const char* data :
       {"", "2", "2,0", "2,0,47", "4,0,47,A", "-,0,47,A", ",0,47,A", "22,0,47,A", "2,,47,A",
        "2,0,,A", "2,x,47,A", "2,0,4x,A", "2,-1,47,A", "2,320,47,A", "0,0,480,A", "1,480,47,A",
        "3,0,320,A", "2, 0,47,A", "2,99999999999,47,A"}) {
    EXPECT_EQ(Print(data), "10") << data;
  }
  EXPECT_EQ(support::BlackDots(bench_.Image()), 0);
}

TEST_F(PrintData, TakesTheLastDotsOfEachDirection) {
  for (const char* data : {"0,319,479,", "2,319,479,", "1,479,319,", "3,479,319,", "2,000,0047,"}) {
    EXPECT_EQ(Print(data), "20") << data;
  }
}

TEST_F(PrintData, IsRejectedWithAnUnknownSequence) {
  EXPECT_EQ(Print("2,0,47,A\x1B"
                  "Q1"),
            "10");
  EXPECT_EQ(support::BlackDots(bench_.Image()), 0);
}

TEST_F(PrintData, EndsWith51hWhereACharacterDoesNotFit) {
  // 26 characters of 12 dots fit into 320 dots.
  EXPECT_EQ(Print("2,0,47," + std::string(26, 'A')), "20");
  EXPECT_EQ(Print("2,0,47," + std::string(27, 'A')), "51");
  EXPECT_EQ(Print("3,0,47," + std::string(40, 'A')), "20");
  EXPECT_EQ(Print("3,0,47," + std::string(41, 'A')), "51");
  // Above the first line and below the last.
  EXPECT_EQ(Print("2,0,22,A"), "51");
  EXPECT_EQ(Print("2,0,23,A"), "20");
  EXPECT_EQ(Print("2,0,479,A"), "20");
  EXPECT_EQ(Print("2,0,479,A\r\nA"), "51");
}

TEST_F(PrintData, KeepsTheCharactersBeforeOneThatDoesNotFit) {
  EXPECT_EQ(Print("1,464,15,\x1B"
                  "F0FFF"),
            "51");
  EXPECT_EQ(bench_.Part(464, 0, 8, 16), kF);
  EXPECT_EQ(bench_.Part(472, 0, 8, 16), kF);
}

TEST_F(PrintData, MayMoveOutsideWhileNothingIsDrawnThere) {
  EXPECT_EQ(Print("2,0,479,\r\n\r\n"), "20");
  EXPECT_EQ(Print("2,0,47,\x1Bs59"), "20");
  EXPECT_EQ(Print("2,0,47,\x1Bs59A"), "51");
}

TEST_F(PrintData, IsReadInTheCodePageOfThePrinter) {
  // 8E9A is one two-byte character in Japanese, two of one byte in the Western page.
  const std::string text =
      "1,0,15,\x1B"
      "F0\x8E\x9A";
  support::PrintBench japanese(link::CodePage::kJapanese);
  EXPECT_EQ(japanese.Send(0x41, text), "20");
  EXPECT_EQ(japanese.Part(0, 0, 16, 3),
            (support::Dots{"......#.........", ".......#........", ".##############."}));
  EXPECT_EQ(Print(text), "20");
  // U+017D and U+0161: the caron of a small letter begins two rows below that of a capital.
  EXPECT_EQ(bench_.Part(0, 0, 16, 3),
            (support::Dots{"..#..#..........", "...##...........", "..........#..#.."}));
}

// What the sequences do shows in where lines of blocks begin and end.
class Sequences : public PrintData {
 protected:
  Sequences() { EXPECT_EQ(bench_.Send(0x45, kBlock), "20"); }

  // Where black begins in the row, and where it ends, in turn.
  std::vector<int> EdgesInRow(int y) const {
    std::vector<int> edges;
    for (int x = 0; x < kFaceWidth; ++x) {
      if (bench_.Image().At(x, y) != (edges.size() % 2 == 1)) edges.push_back(x);
    }
    return edges;
  }
  std::vector<int> EdgesInColumn(int x) const {
    std::vector<int> edges;
    for (int y = 0; y < kFaceHeight; ++y) {
      if (bench_.Image().At(x, y) != (edges.size() % 2 == 1)) edges.push_back(y);
    }
    return edges;
  }
};

using Edges = std::vector<int>;

// Each block is black in columns 1 to 7 of 8 and in rows 3 to 15 of 16.
TEST_F(Sequences, ExpandARegisteredCharacter) {
  EXPECT_EQ(Print("1,0,99,\x1Bi5\x1Bi5"), "20");
  EXPECT_EQ(EdgesInRow(99), (Edges{1, 8, 9, 16}));
  EXPECT_EQ(EdgesInColumn(1), (Edges{87, 100}));
}

TEST_F(Sequences, ExpandNothingFromARegisterWithoutThatSize) {
  EXPECT_EQ(Print("1,0,99,\x1Bg5\x1BI5\x1BG5\x1Bi4\x1Bi5"), "20");
  // A 12, a 16, a 24 and an 8 dot blank, then the block.
  EXPECT_EQ(EdgesInRow(99), (Edges{61, 68}));
}

TEST_F(Sequences, EScalesBothWays) {
  Print(
      "1,0,99,\x1B"
      "E22\x1Bi5\x1B"
      "E12\x1Bi5\x1B"
      "E21\x1Bi5\x1B"
      "E11\x1Bi5");
  EXPECT_EQ(EdgesInRow(99), (Edges{2, 16, 18, 32, 33, 40, 41, 48}));
  EXPECT_EQ(EdgesInColumn(2), (Edges{74, 100}));
  EXPECT_EQ(EdgesInColumn(20), (Edges{87, 100}));
  EXPECT_EQ(EdgesInColumn(33), (Edges{74, 100}));
  EXPECT_EQ(EdgesInColumn(41), (Edges{87, 100}));
}

TEST_F(Sequences, VAndWScaleOneWayEach) {
  Print("1,0,99,\x1BV2\x1Bi5\x1BW2\x1Bi5\x1BV1\x1Bi5");
  EXPECT_EQ(EdgesInRow(99), (Edges{1, 8, 10, 24, 26, 40}));
  EXPECT_EQ(EdgesInColumn(1), (Edges{74, 100}));
  EXPECT_EQ(EdgesInColumn(26), (Edges{87, 100}));
}

TEST_F(Sequences, SmallDSetsTheGapOfOneByteCharacters) {
  Print(
      "1,0,99,\x1B"
      "dF\x1B"
      "D3\x1Bi5\x1Bi5");
  EXPECT_EQ(EdgesInRow(99), (Edges{1, 8, 24, 31}));
}

// Meant: the gap is one of dots, not of the character.
TEST_F(Sequences, WDoublesTheCharacterAndNotItsGap) {
  Print(
      "1,0,99,\x1B"
      "dF\x1BW2\x1Bi5\x1Bi5");
  // 16 dots wide, then 15 of the gap.
  EXPECT_EQ(EdgesInRow(99), (Edges{2, 16, 33, 47}));
}

TEST_F(Sequences, LargeDSetsTheGapOfTwoByteCharacters) {
  // 16 x 16 dots, all black.
  EXPECT_EQ(bench_.Send(0x44, "1,0," + std::string(64, 'F')), "20");
  Print(
      "1,0,99,\x1B"
      "dF\x1B"
      "D3\x1BI0\x1BI0");
  EXPECT_EQ(EdgesInRow(99), (Edges{0, 16, 19, 35}));
}

TEST_F(Sequences, SmallSMovesByOneByteCharacters) {
  Print(
      "1,0,99,\x1B"
      "F0\x1Bs03\x1Bi5");
  EXPECT_EQ(EdgesInRow(99), (Edges{25, 32}));
}

TEST_F(Sequences, LargeSMovesByTwoByteCharacters) {
  Print(
      "1,0,99,\x1B"
      "F0\x1BS03\x1Bi5");
  EXPECT_EQ(EdgesInRow(99), (Edges{49, 56}));
}

TEST_F(Sequences, LMovesDownByLinesAndTheirGap) {
  Print(
      "1,0,99,\x1B"
      "F0\x1BM2\x1Bi5\x1BL03\x1Bi5");
  EXPECT_EQ(EdgesInColumn(1), (Edges{87, 100}));
  // Three times 16 and 2 dots.
  EXPECT_EQ(EdgesInColumn(9), (Edges{141, 154}));
}

TEST_F(Sequences, MSetsTheGapOfTheLines) {
  Print(
      "1,0,99,\x1B"
      "F0\x1BMF\x1Bi5\r\n\x1Bi5");
  EXPECT_EQ(EdgesInColumn(1), (Edges{87, 100, 118, 131}));
}

TEST_F(Sequences, XAndYSetThePosition) {
  Print("1,0,99,\x1BX200\x1Bi5\x1BY200\x1Bi5\r\n\x1Bi5");
  EXPECT_EQ(EdgesInRow(99), (Edges{201, 208}));
  EXPECT_EQ(EdgesInRow(200), (Edges{209, 216}));
  // The next line begins at the X that was set.
  EXPECT_EQ(EdgesInRow(224), (Edges{201, 208}));
}

TEST_F(Sequences, BThickensOneByteCharacters) {
  // The top bar of the F in the normal and the bold font, and that one a dot broader.
  Print(
      "1,0,15,\x1B"
      "F0F\x1B"
      "B1F\x1B"
      "B2F\x1B"
      "B0F");
  EXPECT_EQ(bench_.Part(0, 5, 32, 1), support::Dots{".#......##......###......#......"});
}

TEST_F(Sequences, FChoosesTheHeightOfCharacters) {
  Print(
      "1,0,23,\x1B"
      "F0F");
  EXPECT_EQ(bench_.Part(0, 8, 8, 16), kF);
  EXPECT_EQ(bench_.Send(0x40, ""), "20");
  Print(
      "1,0,99,\x1B"
      "F1-\x1Bi5");
  // A character of 24 dots is 12 wide.
  EXPECT_EQ(EdgesInRow(99), (Edges{13, 20}));
}

}  // namespace
}  // namespace vantrel::printer
