// SPDX-License-Identifier: MIT

#include "editors/image_editor.h"
#include "tests/editors/text.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel::editors {
namespace {

class ImageData : public testing::Test {
 protected:
  // Opens the editor and goes on to drawing.
  ImageEditor& Open(bool block, const std::string& x, const std::string& y) {
    common_.IsBlockMode = block;
    editor_.Form_Activate();
    Set(x, y);
    return editor_;
  }
  void Set(const std::string& x, const std::string& y) {
    x_ = x;
    y_ = y;
    EXPECT_FALSE(editor_.CmdSet_Click(x, y).has_value());
  }
  std::string Next() {
    editor_.CmdNext_Click(x_, y_);
    return common_.DataString;
  }

  link::CommonVariables common_;
  ImageEditor editor_{common_};
  std::string x_;
  std::string y_;
};

// ---- line mode: five bytes, written by hand ----

TEST_F(ImageData, LineWithItsTopAndBottomDot) {
  Open(false, "100", "0");
  editor_.Lbldot_Click(0);
  editor_.Lbldot_Click(39);
  EXPECT_EQ(Next(), "100,0,0100000080");
}

TEST_F(ImageData, LineWithEachDotOfADiagonalInItsByte) {
  Open(false, "0", "0");
  for (const int dot : {0, 9, 18, 27, 36}) editor_.Lbldot_Click(dot);
  EXPECT_EQ(Next(), "0,0,0102040810");
}

TEST_F(ImageData, LineAllSetByItsColumnSelector) {
  Open(false, "0", "0");
  editor_.LblVertical_Click(0);
  EXPECT_EQ(Next(), "0,0,FFFFFFFFFF");
  editor_.LblVertical_DblClick(0);
  EXPECT_EQ(Next(), "0,0,0000000000");
}

TEST_F(ImageData, LineWithOneRow) {
  Open(false, "0", "36");
  editor_.lblHorizontal_Click(9);
  EXPECT_EQ(Next(), "0,36,00020000");
  editor_.lblHorizontal_DblClick(9);
  EXPECT_EQ(Next(), "0,36,00000000");
}

TEST_F(ImageData, Y35GivesFiveBytesALineAndY36Four) {
  Open(false, "0", "35");
  EXPECT_EQ(Next(), "0,35,0000000000");
  Open(false, "0", "36");
  EXPECT_EQ(editor_.FrameCaption(), "1 X 32");
  EXPECT_EQ(Next(), "0,36,00000000");
  Open(false, "0", "39");
  EXPECT_EQ(Next(), "0,39,00");
}

// ---- block mode: 40 lines of five bytes ----

TEST_F(ImageData, BlockWithItsCorners) {
  Open(true, "0", "0");
  for (const int dot : {0, 39, 1560, 1599}) editor_.Lbldot_Click(dot);
  EXPECT_EQ(Next(), "0,0,5,0100000080" + Times(38, "0000000000") + "0100000080");
}

TEST_F(ImageData, BlockWithOneColumn) {
  Open(true, "12", "7");
  editor_.LblVertical_Click(2);
  EXPECT_EQ(Next(), "12,7,5," + Times(2, "0000000000") + "FFFFFFFFFF" + Times(37, "0000000000"));
}

TEST_F(ImageData, BlockWithOneRow) {
  Open(true, "0", "0");
  editor_.lblHorizontal_Click(9);
  EXPECT_EQ(Next(), "0,0,5," + Times(40, "0002000000"));
}

// clang-format off
TEST_F(ImageData, BlockWithADiagonal) {
  Open(true, "0", "0");
  for (int line = 0; line < 40; ++line) editor_.Lbldot_Click(line * 40 + line);
  EXPECT_EQ(Next(),
            "0,0,5,"
            "0100000000" "0200000000" "0400000000" "0800000000"
            "1000000000" "2000000000" "4000000000" "8000000000"
            "0001000000" "0002000000" "0004000000" "0008000000"
            "0010000000" "0020000000" "0040000000" "0080000000"
            "0000010000" "0000020000" "0000040000" "0000080000"
            "0000100000" "0000200000" "0000400000" "0000800000"
            "0000000100" "0000000200" "0000000400" "0000000800"
            "0000001000" "0000002000" "0000004000" "0000008000"
            "0000000001" "0000000002" "0000000004" "0000000008"
            "0000000010" "0000000020" "0000000040" "0000000080");
}

// clang-format on

TEST_F(ImageData, BlockAllSet) {
  Open(true, "0", "0");
  for (int line = 0; line < 40; ++line) editor_.LblVertical_Click(line);
  EXPECT_EQ(Next(), "0,0,5," + Times(200, "FF"));
}

TEST_F(ImageData, BlockAtY36HasFourBytesALine) {
  Open(true, "0", "36");
  EXPECT_EQ(Next(), "0,36,4," + Times(320, "0"));
}

TEST_F(ImageData, BlockOfFewerLinesCarriesThemAlone) {
  Open(true, "478", "38");
  editor_.LblVertical_Click(1);
  EXPECT_EQ(Next(), "478,38,2,0000FFFF");
}

TEST_F(ImageData, ARowSelectorSetsTheLinesInUseAlone) {
  Open(true, "478", "39");
  editor_.lblHorizontal_Click(0);
  EXPECT_EQ(editor_.Dots().Value(40), 1);
  EXPECT_EQ(editor_.Dots().Value(80), 0);
  EXPECT_FALSE(editor_.Dots().IsBlack(80));
}

// ---- past X 440 with whole lines: 40 bytes a line, which is meant ----

TEST_F(ImageData, BlockX440Gives40LinesAndX441Gives39) {
  Open(true, "440", "0");
  EXPECT_EQ(editor_.FrameCaption(), "40 X 40");
  EXPECT_EQ(Next(), "440,0,5," + Times(200, "00"));
  Open(true, "441", "0");
  EXPECT_EQ(editor_.FrameCaption(), "39 X 40");
}

TEST_F(ImageData, BlockX479ReadsDots0To319) {
  Open(true, "479", "0");
  editor_.Lbldot_Click(0);
  EXPECT_EQ(Next(), "479,0,40,01" + Times(39, "00"));
}

TEST_F(ImageData, FortyByteLinesReadOnPastTheirOwnDots) {
  Open(true, "478", "0");
  editor_.Lbldot_Click(40);  // the top dot of line 1
  EXPECT_EQ(Next(), "478,0,40," + Times(5, "00") + "01" + Times(34, "00") +  // line 0
                        "01" + Times(39, "00"));                             // line 1
}

TEST_F(ImageData, X441To446EndInASubscriptErrorAndX447DoesNot) {
  for (const char* x : {"441", "442", "443", "444", "445", "446"}) {
    Open(true, x, "35");
    EXPECT_THROW(Next(), std::out_of_range) << "X " << x;
  }
  Open(true, "447", "35");
  EXPECT_EQ(Next(), "447,35,40," + Times(33 * 40, "00"));
  Open(true, "441", "36");
  EXPECT_EQ(Next(), "441,36,4," + Times(39 * 4, "00"));
}

TEST_F(ImageData, AColumnSelectorOfA40ByteLineSets320DotsHiddenOnesToo) {
  Open(true, "479", "0");
  editor_.LblVertical_Click(0);
  for (int dot = 0; dot < 1600; ++dot) {
    EXPECT_EQ(editor_.Dots().IsBlack(dot), dot < 320) << "dot " << dot;
    EXPECT_EQ(editor_.Dots().Value(dot), dot < 320 ? 1 : 0) << "dot " << dot;
  }
  EXPECT_FALSE(editor_.Dots().IsVisible(40));
  EXPECT_EQ(Next(), "479,0,40," + Times(40, "FF"));
}

TEST_F(ImageData, AColumnSelectorPastDot1599IsASubscriptError) {
  Open(true, "441", "0");
  EXPECT_NO_THROW(editor_.LblVertical_Click(32));  // up to dot 32 * 40 + 319 = 1599
  EXPECT_THROW(editor_.LblVertical_Click(33), std::out_of_range);
  EXPECT_THROW(editor_.LblVertical_DblClick(38), std::out_of_range);
}

// ---- where value and paint part company ----

TEST_F(ImageData, AfterClearAllTheDotsThatWereSetAreStillSent) {
  Open(true, "0", "36");
  editor_.LblVertical_Click(0);
  editor_.CmdClear_Click();
  EXPECT_FALSE(editor_.Dots().IsBlack(0));
  EXPECT_EQ(editor_.Dots().Value(0), 1);
  EXPECT_EQ(Next(), "0,36,4,FFFFFFFF" + Times(39, "00000000"));
}

TEST_F(ImageData, ClearAllInLineMode) {
  Open(false, "0", "0");
  editor_.Lbldot_Click(39);
  editor_.CmdClear_Click();
  EXPECT_FALSE(editor_.Dots().IsBlack(39));
  EXPECT_EQ(Next(), "0,0,0000000080");
}

TEST_F(ImageData, AfterClearAllOneClickIsBlackAnd1AndASecondClearAnd0) {
  Open(false, "0", "0");
  editor_.Lbldot_Click(0);
  editor_.CmdClear_Click();
  editor_.Lbldot_Click(0);
  EXPECT_TRUE(editor_.Dots().IsBlack(0));
  EXPECT_EQ(editor_.Dots().Value(0), 1);
  editor_.Lbldot_Click(0);
  EXPECT_FALSE(editor_.Dots().IsBlack(0));
  EXPECT_EQ(editor_.Dots().Value(0), 0);
}

TEST_F(ImageData, ClearAllLeavesHiddenDotsBlack) {
  Open(true, "479", "0");
  editor_.LblVertical_Click(0);
  editor_.CmdClear_Click();
  EXPECT_FALSE(editor_.Dots().IsBlack(39));
  EXPECT_TRUE(editor_.Dots().IsBlack(40));
}

// ---- the two steps ----

TEST_F(ImageData, GoingBackToTheCoordinatesKeepsTheDots) {
  Open(true, "0", "0");
  editor_.Lbldot_Click(0);
  editor_.TxtCoordinate_Click();
  EXPECT_EQ(editor_.CurrentStep(), ImageEditor::Step::kCoordinates);
  EXPECT_TRUE(editor_.Dots().IsBlack(0));
  Set("1", "39");
  EXPECT_EQ(Next(), "1,39,1,01" + Times(39, "00"));
}

TEST_F(ImageData, CoordinatesAreSentAsTheyStand) {
  Open(false, "", "0");
  EXPECT_EQ(Next(), ",0,0000000000");
  Open(false, "007", "0038");
  EXPECT_EQ(Next(), "007,0038,0000");
  // The texts at ">>", not the ones that were checked.
  editor_.CmdNext_Click("123456", "99");
  EXPECT_EQ(common_.DataString, "123456,99,0000");
}

}  // namespace
}  // namespace vantrel::editors
