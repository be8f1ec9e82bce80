// SPDX-License-Identifier: MIT

#include "editors/dot_preview.h"

#include "editors/font_editor.h"
#include "editors/image_editor.h"

#include <gtest/gtest.h>

#include <vector>

namespace vantrel::editors {
namespace {

// Where the preview is black, a column before the next.
std::vector<QPoint> BlackDots(DotPreview& preview, const QSize& size) {
  const QImage picture = preview.grab().toImage();
  std::vector<QPoint> black;
  for (int x = 0; x < size.width(); ++x)
    for (int y = 0; y < size.height(); ++y)
      if (picture.pixelColor(x + 1, y + 1) == QColor(Qt::black)) black.emplace_back(x, y);
  return black;
}

class DotPreviewTest : public testing::Test {
 protected:
  link::CommonVariables common_;
};

TEST_F(DotPreviewTest, ShowsADotAsAPixel) {
  common_.IsBlockMode = true;
  ImageEditor editor(common_);
  editor.Form_Activate();
  editor.CmdSet_Click("0", "0");
  DotPreview preview(editor);
  EXPECT_EQ(BlackDots(preview, {40, 40}), std::vector<QPoint>{});
  editor.Lbldot_Click(3 * 40 + 7);
  editor.Lbldot_Click(39 * 40 + 39);
  preview.Refresh();
  EXPECT_EQ(BlackDots(preview, {40, 40}), (std::vector<QPoint>{{3, 7}, {39, 39}}));
  EXPECT_EQ(preview.accessibleName(), "Picture as it prints, 40 by 40 dots, 2 black");
}

// Meant: clearing paints the dots clear, and what was drawn is still sent.
TEST_F(DotPreviewTest, ShowsWhatIsSentAfterClearing) {
  common_.IsBlockMode = true;
  ImageEditor editor(common_);
  editor.Form_Activate();
  editor.CmdSet_Click("0", "0");
  editor.Lbldot_Click(0);
  editor.CmdClear_Click();
  DotPreview preview(editor);
  EXPECT_FALSE(editor.Dots().IsBlack(0));
  EXPECT_EQ(BlackDots(preview, {40, 40}), (std::vector<QPoint>{{0, 0}}));
}

TEST_F(DotPreviewTest, LineModeIsOneColumn) {
  common_.IsBlockMode = false;
  ImageEditor editor(common_);
  editor.Form_Activate();
  editor.CmdSet_Click("0", "37");
  const DotPreview preview(editor);
  EXPECT_EQ(preview.accessibleName(), "Picture as it prints, 1 by 24 dots, 0 black");
}

TEST_F(DotPreviewTest, ACharacterHasTheSizeOfItsFont) {
  common_.IsDoubleByteFont = false;
  FontEditor editor(common_);
  editor.Form_Activate();
  DotPreview preview(editor);
  EXPECT_EQ(preview.accessibleName(), "Picture as it prints, 12 by 24 dots, 0 black");
  editor.Opt16dot_Click();
  preview.Refresh();
  EXPECT_EQ(preview.accessibleName(), "Picture as it prints, 8 by 16 dots, 0 black");
}

}  // namespace
}  // namespace vantrel::editors
