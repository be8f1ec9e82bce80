// SPDX-License-Identifier: MIT

#include "editors/font_editor.h"

#include "tests/editors/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace vantrel::editors {
namespace {

struct Font {
  const char* name;
  bool double_byte;
  bool is_16_dot;
  int columns;
  int rows;
  const char* clear_column;
  const char* set_column;
  const char* end_column;  // the top and the bottom dot
  const char* row9_column;
  const char* diagonal;
  const char* size_code;
  int last_dot_index;
  const char* caption;  // after the click on the size
};

std::ostream& operator<<(std::ostream& out, const Font& font) { return out << font.name; }

class FontSize : public testing::TestWithParam<Font> {
 protected:
  FontSize() {
    common_.IsDoubleByteFont = GetParam().double_byte;
    editor_.Form_Activate();
    GetParam().is_16_dot ? editor_.Opt16dot_Click() : editor_.Opt24dot_Click();
  }
  // What is sent after the size code and register 3.
  std::string Hex() {
    editor_.CmdNext_Click("3");
    const std::string head = std::string(GetParam().size_code) + ",3,";
    EXPECT_EQ(common_.DataString.substr(0, 4), head);
    return common_.DataString.substr(4);
  }

  link::CommonVariables common_;
  FontEditor editor_{common_};
};

TEST_P(FontSize, ShowsItsColumnsAndRows) {
  const Font& font = GetParam();
  EXPECT_EQ(editor_.LastDotIndex(), font.last_dot_index);
  EXPECT_EQ(editor_.FrameCaption(), font.caption);
  for (int i = 0; i < 576; ++i)
    EXPECT_EQ(editor_.Dots().IsVisible(i), i / 24 < font.columns && i % 24 < font.rows)
        << "dot " << i;
  for (int i = 0; i < 24; ++i) {
    EXPECT_EQ(editor_.ColumnSelectorVisible(i), i < font.columns) << "column " << i;
    EXPECT_EQ(editor_.RowSelectorVisible(i), i < font.rows) << "row " << i;
  }
}

TEST_P(FontSize, Empty) { EXPECT_EQ(Hex(), Times(GetParam().columns, GetParam().clear_column)); }

TEST_P(FontSize, Corners) {
  const Font& font = GetParam();
  const int last = (font.columns - 1) * 24;
  for (const int dot : {0, font.rows - 1, last, last + font.rows - 1}) editor_.Lbldot_Click(dot);
  EXPECT_EQ(Hex(), font.end_column + Times(font.columns - 2, font.clear_column) + font.end_column);
}

TEST_P(FontSize, OneColumn) {
  const Font& font = GetParam();
  editor_.LblVertical_Click(2);
  EXPECT_EQ(Hex(), Times(2, font.clear_column) + font.set_column +
                       Times(font.columns - 3, font.clear_column));
  editor_.LblVertical_DblClick(2);
  EXPECT_EQ(Hex(), Times(font.columns, font.clear_column));
}

TEST_P(FontSize, OneRow) {
  const Font& font = GetParam();
  editor_.lblHorizontal_Click(9);
  EXPECT_EQ(Hex(), Times(font.columns, font.row9_column));
  editor_.lblHorizontal_DblClick(9);
  EXPECT_EQ(Hex(), Times(font.columns, font.clear_column));
}

TEST_P(FontSize, Diagonal) {
  for (int i = 0; i < std::min(GetParam().columns, GetParam().rows); ++i)
    editor_.Lbldot_Click(i * 24 + i);
  EXPECT_EQ(Hex(), GetParam().diagonal);
}

TEST_P(FontSize, AllSetAndAllClear) {
  const Font& font = GetParam();
  editor_.CmdAll_Click(0);
  EXPECT_EQ(Hex(), Times(font.columns, font.set_column));
  // Values as well as paint, unlike the image editor's "Clear All".
  editor_.CmdAll_Click(1);
  for (int i = 0; i < 576; ++i) EXPECT_FALSE(editor_.Dots().IsBlack(i)) << "dot " << i;
  EXPECT_EQ(Hex(), Times(font.columns, font.clear_column));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    All, FontSize,
    testing::Values(
        Font{"Double24", true, false, 24, 24, "000000", "FFFFFF", "010080", "000200",
             "010000" "020000" "040000" "080000" "100000" "200000" "400000" "800000"
             "000100" "000200" "000400" "000800" "001000" "002000" "004000" "008000"
             "000001" "000002" "000004" "000008" "000010" "000020" "000040" "000080",
             "0", 575, "24 X 24"},
        // The caption after the click is that of another size: meant.
        Font{"Single24", false, false, 12, 24, "000000", "FFFFFF", "010080", "000200",
             "010000" "020000" "040000" "080000" "100000" "200000" "400000" "800000"
             "000100" "000200" "000400" "000800",
             "0", 287, "16 X 16"},
        Font{"Double16", true, true, 16, 16, "0000", "FFFF", "0180", "0002",
             "0100" "0200" "0400" "0800" "1000" "2000" "4000" "8000"
             "0001" "0002" "0004" "0008" "0010" "0020" "0040" "0080",
             "1", 383, "16 X 16"},
        Font{"Single16", false, true, 8, 16, "0000", "FFFF", "0180", "0002",
             "0100" "0200" "0400" "0800" "1000" "2000" "4000" "8000",
             "1", 191, "8 X 16"}),
    [](const auto& test) { return test.param.name; });

// clang-format on

class FontEditorTest : public testing::Test {
 protected:
  void Open(bool double_byte) {
    common_.IsDoubleByteFont = double_byte;
    editor_.Form_Activate();
  }
  std::string Next(const std::string& image_no) {
    editor_.CmdNext_Click(image_no);
    return common_.DataString;
  }

  link::CommonVariables common_;
  FontEditor editor_{common_};
};

TEST_F(FontEditorTest, ActivationForADoubleByteFont) {
  Open(true);
  EXPECT_EQ(common_.DataString, Times(144, "F"));
  EXPECT_EQ(editor_.Caption(), "44h Double byte external character registered font command");
  EXPECT_EQ(editor_.FrameCaption(), "24 X 24");
  EXPECT_EQ(editor_.Panel1(), "Max 16 registered fonts");
  EXPECT_EQ(editor_.LastDotIndex(), 575);
  EXPECT_TRUE(editor_.Dots().IsVisible(575));
}

TEST_F(FontEditorTest, ActivationForASingleByteFont) {
  Open(false);
  EXPECT_EQ(common_.DataString, Times(144, "F"));
  EXPECT_EQ(editor_.Caption(), "45h Single byte external character registered font command");
  EXPECT_EQ(editor_.FrameCaption(), "12 X 24");
  EXPECT_EQ(editor_.LastDotIndex(), 287);
  EXPECT_TRUE(editor_.Dots().IsVisible(287));
  EXPECT_FALSE(editor_.Dots().IsVisible(288));
  EXPECT_TRUE(editor_.ColumnSelectorVisible(11));
  EXPECT_FALSE(editor_.ColumnSelectorVisible(12));
  EXPECT_TRUE(editor_.RowSelectorVisible(23));
}

TEST_F(FontEditorTest, Single16TopLeftDotInRegister3) {
  Open(false);
  editor_.Opt16dot_Click();
  editor_.Lbldot_Click(0);
  EXPECT_EQ(Next("3"), "1,3,0100" + Times(28, "0"));
}

TEST_F(FontEditorTest, Single16Then24Is12ColumnsOf3BytesUnderTheCaption16X16) {
  Open(false);
  editor_.Opt16dot_Click();
  editor_.Opt24dot_Click();
  EXPECT_EQ(editor_.FrameCaption(), "16 X 16");
  editor_.CmdAll_Click(0);
  EXPECT_EQ(Next("0"), "0,0," + Times(36, "FF"));
}

TEST_F(FontEditorTest, TheRegisterIsSentAsItStands) {
  Open(false);
  editor_.Opt16dot_Click();
  EXPECT_EQ(Next("a"), "1,a," + Times(32, "0"));
  EXPECT_EQ(Next(""), "1,," + Times(32, "0"));
  EXPECT_EQ(Next("12 x"), "1,12 x," + Times(32, "0"));
}

TEST_F(FontEditorTest, A16DotFontCarriesRows0To15Alone) {
  Open(true);
  editor_.Opt16dot_Click();
  editor_.CmdAll_Click(0);
  EXPECT_EQ(editor_.Dots().Value(15), 1);
  EXPECT_EQ(editor_.Dots().Value(16), 0);
  EXPECT_EQ(Next("F"), "1,F," + Times(32, "FF"));
}

TEST_F(FontEditorTest, ComesBackWithTheRowSelectorsOfThe16DotFont) {
  editor_.Form_Activate();
  editor_.Opt16dot_Click();
  editor_.Form_Activate();
  EXPECT_TRUE(editor_.RowSelectorVisible(15));
  EXPECT_FALSE(editor_.RowSelectorVisible(16));
  EXPECT_FALSE(editor_.RowSelectorVisible(23));
}

TEST_F(FontEditorTest, AColumnSelectorSkipsHiddenDotsARowSelectorDoesNot) {
  Open(true);
  editor_.Opt16dot_Click();
  editor_.LblVertical_Click(0);
  EXPECT_EQ(editor_.Dots().Value(15), 1);
  EXPECT_EQ(editor_.Dots().Value(16), 0);
  EXPECT_FALSE(editor_.Dots().IsBlack(16));
  editor_.lblHorizontal_Click(20);
  EXPECT_FALSE(editor_.Dots().IsVisible(20));
  EXPECT_EQ(editor_.Dots().Value(20), 1);
  EXPECT_TRUE(editor_.Dots().IsBlack(15 * 24 + 20));
  EXPECT_FALSE(editor_.Dots().IsBlack(16 * 24 + 20));
}

TEST_F(FontEditorTest, Opt24dotLeavesTheHintOfTheSixteenDotFont) {
  Open(true);
  editor_.Opt16dot_Click();
  EXPECT_EQ(editor_.Panel1(), "16 dot font is invalid on Japan, China, HK & Taiwan version");
  editor_.Opt24dot_Click();
  EXPECT_EQ(editor_.Panel1(), "16 dot font is invalid on Japan, China, HK & Taiwan version");
}

// ---- where value and paint part company ----

TEST_F(FontEditorTest, AChangeOfSizeZeroesValuesAndLeavesThePaint) {
  Open(false);
  editor_.Lbldot_Click(0);
  editor_.Opt16dot_Click();
  EXPECT_TRUE(editor_.Dots().IsBlack(0));
  EXPECT_EQ(editor_.Dots().Value(0), 0);
  EXPECT_EQ(Next("0"), "1,0," + Times(32, "0"));
}

TEST_F(FontEditorTest, AClickOnTheSizeInUseZeroesValuesToo) {
  Open(false);
  editor_.Lbldot_Click(0);
  editor_.Opt24dot_Click();
  EXPECT_TRUE(editor_.Dots().IsBlack(0));
  EXPECT_EQ(editor_.Dots().Value(0), 0);
}

TEST_F(FontEditorTest, AClickOnADotThatStayedBlackClearsIt) {
  Open(true);
  editor_.Lbldot_Click(0);
  editor_.Opt16dot_Click();
  editor_.Lbldot_Click(0);
  EXPECT_FALSE(editor_.Dots().IsBlack(0));
  EXPECT_EQ(editor_.Dots().Value(0), 0);
}

TEST_F(FontEditorTest, FillAllSkipsADotThatStayedBlack) {
  Open(false);
  editor_.Opt16dot_Click();
  editor_.Lbldot_Click(0);
  editor_.Opt16dot_Click();
  editor_.CmdAll_Click(0);
  EXPECT_EQ(editor_.Dots().Value(0), 0);
  EXPECT_EQ(Next("0"), "1,0,FEFF" + Times(14, "FF"));
}

}  // namespace
}  // namespace vantrel::editors
