// SPDX-License-Identifier: MIT

// What a screen reader hears of a grid of dots.

#include "editors/dot_grid.h"
#include "editors/image_editor.h"
#include "tests/editors/editor_forms.h"
#include "tests/support/recording_guard.h"
#include "tests/support/screen_reader.h"

namespace vantrel::editors {
namespace {

class DotGridScreenReaderTest : public testing::Test {
 protected:
  DotGridScreenReaderTest() {
    common_.IsBlockMode = true;
    editor_.Form_Activate();
    editor_.CmdSet_Click("0", "0");
    grid_.resize(grid_.sizeHint());
    ShowActive(grid_);
    grid_.setFocus(Qt::TabFocusReason);
  }
  // The children of the grid of which this was heard, in its order.
  std::vector<int> Children(QAccessible::Event event) {
    std::vector<int> children;
    for (const auto& heard : reader_.HeardOf(grid_, event))
      if (heard.child >= 0) children.push_back(heard.child);
    return children;
  }

  link::CommonVariables common_;
  ImageEditor editor_{common_};
  support::RecordingGuard guard_;
  DotGrid grid_{"Lbldot", editor_, 1, guard_};
  support::ScreenReader reader_;
};

TEST_F(DotGridScreenReaderTest, IsToldWhereTheCursorGoes) {
  QTest::keyClick(&grid_, Qt::Key_Right);
  QTest::keyClick(&grid_, Qt::Key_Down);
  // There is no row above the first.
  QTest::keyClick(&grid_, Qt::Key_Up);
  QTest::keyClick(&grid_, Qt::Key_Up);
  EXPECT_EQ(Children(QAccessible::Focus), std::vector<int>({40, 41, 40}));
}

TEST_F(DotGridScreenReaderTest, IsToldOfADotThatIsSetAndCleared) {
  QTest::mouseClick(&grid_, Qt::LeftButton, {}, grid_.DotRect(43).center());
  EXPECT_EQ(Children(QAccessible::StateChanged), std::vector<int>({43}));
  QTest::mouseClick(&grid_, Qt::LeftButton, {}, grid_.DotRect(43).center());
  EXPECT_EQ(Children(QAccessible::StateChanged), std::vector<int>({43, 43}));
  for (const auto& heard : reader_.HeardOf(grid_, QAccessible::StateChanged))
    EXPECT_EQ(heard.changed.checked, heard.child >= 0);
}

}  // namespace
}  // namespace vantrel::editors
