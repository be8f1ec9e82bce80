// SPDX-License-Identifier: MIT

#include "editors/image_editor.h"

#include <gtest/gtest.h>

#include <ostream>

namespace vantrel::editors {
namespace {

struct Case {
  const char* name;
  bool block;
  const char* x;
  const char* y;
  const char* caption;
  int last_line;
  int last_byte;
  int lines;          // visible
  int dots;           // visible in each of them
  int row_selectors;  // visible
};

std::ostream& operator<<(std::ostream& out, const Case& row) { return out << row.name; }

class ImageSizing : public testing::TestWithParam<Case> {
 protected:
  ImageSizing() {
    common_.IsBlockMode = GetParam().block;
    editor_.Form_Activate();
  }
  void Set(const char* x, const char* y) {
    editor_.TxtCoordinate_Click();
    ASSERT_FALSE(editor_.CmdSet_Click(x, y));
    EXPECT_EQ(editor_.CurrentStep(), ImageEditor::Step::kDrawing);
  }

  link::CommonVariables common_;
  ImageEditor editor_{common_};
};

void ExpectGrid(const ImageEditor& editor, const Case& expected) {
  EXPECT_EQ(editor.FrameCaption(), expected.caption);
  EXPECT_EQ(editor.LastLineIndex(), expected.last_line);
  EXPECT_EQ(editor.LastByteIndex(), expected.last_byte);
  for (int line = 0; line < 40; ++line) {
    EXPECT_EQ(editor.ColumnSelectorVisible(line), line < expected.lines) << "line " << line;
    for (int dot = 0; dot < 40; ++dot)
      EXPECT_EQ(editor.Dots().IsVisible(line * 40 + dot),
                line < expected.lines && dot < expected.dots)
          << "line " << line << ", dot " << dot;
  }
  for (int row = 0; row < 40; ++row)
    EXPECT_EQ(editor.RowSelectorVisible(row), row < expected.row_selectors) << "row " << row;
}

TEST_P(ImageSizing, OfAFreshForm) {
  Set(GetParam().x, GetParam().y);
  ExpectGrid(editor_, GetParam());
}

TEST_P(ImageSizing, AfterTheSmallestGrid) {
  Set("479", "39");
  Set(GetParam().x, GetParam().y);
  ExpectGrid(editor_, GetParam());
}

TEST_P(ImageSizing, ClearsWhatItHidesAndNothingElse) {
  Set("0", "0");
  const int lines = GetParam().block ? 40 : 1;
  for (int line = 0; line < lines; ++line) editor_.LblVertical_Click(line);
  Set(GetParam().x, GetParam().y);
  for (int i = 0; i < lines * 40; ++i) {
    const bool kept = i / 40 < GetParam().lines && i % 40 < GetParam().dots;
    EXPECT_EQ(editor_.Dots().IsBlack(i), kept) << "dot " << i;
    EXPECT_EQ(editor_.Dots().Value(i), kept ? 1 : 0) << "dot " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(All, ImageSizing,
                         testing::Values(
                             // A whole line in line mode has no row selectors, a shortened one has.
                             Case{"LineY0", false, "0", "0", "1 X 40", 0, 4, 1, 40, 0},
                             Case{"LineY35", false, "0", "35", "1 X 40", 0, 4, 1, 40, 0},
                             Case{"LineY36", false, "0", "36", "1 X 32", 0, 3, 1, 32, 32},
                             Case{"LineY37", false, "0", "37", "1 X 24", 0, 2, 1, 24, 24},
                             Case{"LineY38", false, "0", "38", "1 X 16", 0, 1, 1, 16, 16},
                             Case{"LineY39", false, "0", "39", "1 X 8", 0, 0, 1, 8, 8},
                             // X means nothing to the size in line mode.
                             Case{"LineX479Y35", false, "479", "35", "1 X 40", 0, 4, 1, 40, 0},
                             Case{"LineX479Y36", false, "479", "36", "1 X 32", 0, 3, 1, 32, 32},
                             Case{"BlockX0Y0", true, "0", "0", "40 X 40", 39, 4, 40, 40, 40},
                             Case{"BlockX440Y35", true, "440", "35", "40 X 40", 39, 4, 40, 40, 40},
                             Case{"BlockX440Y36", true, "440", "36", "40 X 32", 39, 3, 40, 32, 32},
                             Case{"BlockX440Y39", true, "440", "39", "40 X 8", 39, 0, 40, 8, 8},
                             // Past X 440 a whole line has a last byte of 39: meant.
                             Case{"BlockX441Y35", true, "441", "35", "39 X 40", 38, 39, 39, 40, 40},
                             Case{"BlockX441Y36", true, "441", "36", "39 X 32", 38, 3, 39, 32, 32},
                             Case{"BlockX441Y39", true, "441", "39", "39 X 8", 38, 0, 39, 8, 8},
                             Case{"BlockX446Y35", true, "446", "35", "34 X 40", 33, 39, 34, 40, 40},
                             Case{"BlockX446Y36", true, "446", "36", "34 X 32", 33, 3, 34, 32, 32},
                             Case{"BlockX446Y39", true, "446", "39", "34 X 8", 33, 0, 34, 8, 8},
                             Case{"BlockX447Y35", true, "447", "35", "33 X 40", 32, 39, 33, 40, 40},
                             Case{"BlockX447Y36", true, "447", "36", "33 X 32", 32, 3, 33, 32, 32},
                             Case{"BlockX447Y39", true, "447", "39", "33 X 8", 32, 0, 33, 8, 8},
                             Case{"BlockX479Y35", true, "479", "35", "1 X 40", 0, 39, 1, 40, 40},
                             Case{"BlockX479Y36", true, "479", "36", "1 X 32", 0, 3, 1, 32, 32},
                             Case{"BlockX479Y39", true, "479", "39", "1 X 8", 0, 0, 1, 8, 8}),
                         [](const auto& test) { return test.param.name; });

TEST(ImageEditor, ActivationInLineMode) {
  link::CommonVariables common;
  ImageEditor editor(common);
  editor.Form_Activate();
  EXPECT_EQ(common.DataString, "0");
  EXPECT_EQ(editor.Caption(), "43h External image data expand command (Line Mode)");
  EXPECT_EQ(editor.Panel1(), "Y: 0 - 39");
  EXPECT_EQ(editor.CurrentStep(), ImageEditor::Step::kCoordinates);
  EXPECT_EQ(editor.LastLineIndex(), 0);
  EXPECT_EQ(editor.LastByteIndex(), 4);
  EXPECT_TRUE(editor.Dots().IsVisible(39));
  EXPECT_FALSE(editor.Dots().IsVisible(40));
  EXPECT_FALSE(editor.Dots().IsVisible(1599));
}

TEST(ImageEditor, ActivationInBlockMode) {
  link::CommonVariables common;
  common.IsBlockMode = true;
  ImageEditor editor(common);
  editor.Form_Activate();
  EXPECT_EQ(common.DataString, "0");
  EXPECT_EQ(editor.Caption(), "4Dh External image data expand command (Block Mode)");
  EXPECT_EQ(editor.Panel1(), "X: 0 - 479;   Y: 0 - 39");
  EXPECT_EQ(editor.LastLineIndex(), 39);
  EXPECT_EQ(editor.LastByteIndex(), 4);
  EXPECT_TRUE(editor.Dots().IsVisible(40));
  EXPECT_TRUE(editor.Dots().IsVisible(1599));
}

struct Coordinates {
  const char* name;
  const char* x;
  const char* y;
  const char* title;  // of the message, nullptr for none
};

std::ostream& operator<<(std::ostream& out, const Coordinates& row) { return out << row.name; }

class ImageCoordinates : public testing::TestWithParam<Coordinates> {};

TEST_P(ImageCoordinates, AreChecked) {
  link::CommonVariables common;
  common.IsBlockMode = true;
  ImageEditor editor(common);
  editor.Form_Activate();
  const auto invalid = editor.CmdSet_Click(GetParam().x, GetParam().y);
  ASSERT_EQ(invalid.has_value(), GetParam().title != nullptr);
  EXPECT_EQ(editor.CurrentStep(),
            invalid ? ImageEditor::Step::kCoordinates : ImageEditor::Step::kDrawing);
  if (!invalid) return;
  EXPECT_EQ(invalid->title, GetParam().title);
  EXPECT_EQ(invalid->is_x, invalid->title == "Invalid X coordinate");
  EXPECT_EQ(invalid->prompt, invalid->is_x ? "X Coordinate should be within 0 - 479"
                                           : "Y Coordinate should be within 0 - 39");
}

INSTANTIATE_TEST_SUITE_P(
    All, ImageCoordinates,
    testing::Values(Coordinates{"Last", "479", "39", nullptr},
                    Coordinates{"XPastTheLast", "480", "0", "Invalid X coordinate"},
                    Coordinates{"YPastTheLast", "0", "40", "Invalid Y coordinate"},
                    Coordinates{"BothPastTheLastSpeaksOfX", "480", "40", "Invalid X coordinate"},
                    Coordinates{"LeadingZeros", "000479", "00039", nullptr},
                    Coordinates{"EmptyIsZero", "", "", nullptr},
                    Coordinates{"Huge", "99999999999999999999999", "0", "Invalid X coordinate"}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace vantrel::editors
