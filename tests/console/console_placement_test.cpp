// SPDX-License-Identifier: MIT

// Where the console, its forms and its boxes open, under a real window manager.

#include "dialogs/window_dialogs.h"
#include "tests/support/console_fixture.h"
#include "tests/support/wait_for.h"

#include <QScreen>
#include <QTest>
#include <QWindow>

namespace vantrel::console {
namespace {

class ConsolePlacementTest : public support::ConsoleTest {
 protected:
  void LoadAt(const QPoint& position) {
    Load();
    ASSERT_TRUE(support::WaitFor([this] { return HasFrame(); }));
    form_->move(position);
    RoundTrip();
    ASSERT_EQ(form_->pos(), position);
    AnswerAll();
  }
  // What the window system tells now. A widget keeps the frame that it has asked for at its latest
  // event, and a busy window manager may give it later.
  static QRect FrameOf(const QWidget& window) { return window.windowHandle()->frameGeometry(); }
  static bool HasFrame(const QWidget& window) {
    return FrameOf(window) != window.windowHandle()->geometry();
  }
  bool HasFrame() const { return HasFrame(*form_); }
  // The window manager deals with requests in their order: when it has shown another window, it has
  // dealt with the console.
  static void RoundTrip() {
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    ASSERT_TRUE(support::WaitFor([&] { return HasFrame(other); }));
  }
  void Settle() {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form_.get()));
    RoundTrip();
  }
};

TEST_F(ConsolePlacementTest, StartsInsideTheScreenWithItsFrame) {
  Load();
  ASSERT_TRUE(support::WaitFor([this] { return HasFrame(); }));
  const QRect available = form_->screen()->availableGeometry();
  EXPECT_LE(FrameOf(*form_).width(), available.width());
  EXPECT_LE(FrameOf(*form_).height(), available.height());
}

TEST_F(ConsolePlacementTest, IsBackWhereItWasAfterEveryForm) {
  const QPoint position(4, 3);
  LoadAt(position);
  const QSize size = form_->size();
  for (const char* name :
       {"Cmd42", "Cmd41", "Cmd43", "Cmd4D", "Cmd45", "Cmd44", "Cmd4E", "Cmd5A"}) {
    OnForm([](QDialog& form) { form.close(); });
    Press(name);
    Settle();
    EXPECT_EQ(form_->pos(), position) << name;
    EXPECT_EQ(form_->size(), size) << name;
  }
}

TEST_F(ConsolePlacementTest, IsBackWhereTheWindowManagerPutIt) {
  Load();
  RoundTrip();
  AnswerAll();
  const QPoint position = form_->pos();
  for (int i = 0; i < 3; ++i) {
    OnForm([](QDialog& form) { form.close(); });
    Press("Cmd42");
    Settle();
    EXPECT_EQ(form_->pos(), position) << i;
  }
}

TEST_F(ConsolePlacementTest, AFormOpensOverTheConsole) {
  LoadAt({7, 3});
  const QRect console = FrameOf(*form_);
  for (const char* name :
       {"Cmd42", "Cmd41", "Cmd43", "Cmd4D", "Cmd45", "Cmd44", "Cmd4E", "Cmd5A"}) {
    OnForm([&](QDialog& form) {
      // The frame comes before the place.
      const auto is_over = [&] {
        const QRect frame = FrameOf(form);
        return HasFrame(form) && console.contains(frame.center()) &&
               form.screen()->availableGeometry().contains(frame);
      };
      EXPECT_TRUE(support::WaitFor(is_over))
          << name << " lies at " << FrameOf(form).left() << ", " << FrameOf(form).top();
      form.close();
    });
    Press(name);
    Settle();
  }
}

TEST_F(ConsolePlacementTest, EveryBoxOfASequenceBelongsToTheConsole) {
  LoadAt({7, 3});
  dialogs::WindowDialogs boxes;
  for (int i = 0; i < 3; ++i) {
    Once([] { return QApplication::activeModalWidget() != nullptr; },
         [this] {
           QWidget* box = QApplication::activeModalWidget();
           EXPECT_EQ(box->parentWidget(), form_.get());
           QMetaObject::invokeMethod(box, "reject");
         });
    boxes.InputBox("Please input data", "A title");
  }
}

}  // namespace
}  // namespace vantrel::console
