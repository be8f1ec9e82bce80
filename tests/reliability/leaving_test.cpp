// SPDX-License-Identifier: MIT

// Exit and the window's closing inside a card wait with a cancellation and a reset in it.

#include "tests/support/console_fixture.h"

#include <QTest>

namespace vantrel::reliability {
namespace {

struct CardWait {
  const char* button;
  const char* typed = nullptr;  // into its input box
};

constexpr CardWait kCardWaits[] = {{"Cmd21"},      {"Cmd22"},      {"Cmd23"},      {"Cmd29"},
                                   {"Cmd2A"},      {"Cmd2B"},      {"Cmd31", "2"}, {"Cmd32", "2"},
                                   {"Cmd46", "1"}, {"Cmd47", "1"}, {"Cmd48", "1"}, {"Cmd51"},
                                   {"cmd52"},      {"Cmd53"}};

class Leaving : public support::ConsoleTest {
 protected:
  // Presses 54h inside the wait, 5Fh inside that of 54h, and leaves inside that of 5Fh.
  void LeaveThreeDeep(const CardWait& wait, const std::function<void()>& leave) {
    SCOPED_TRACE(wait.button);
    form_.reset();
    Load();
    end_status_ = -1;
    int frames = 0;
    peer_.OnFrame([&](const std::string&) {
      const int frame = ++frames;
      QMetaObject::invokeMethod(
          form_.get(),
          [this, frame, &leave] {
            if (frame == 3) return leave();
            Press(frame == 1 ? "Cmd54" : "Cmd5F");
          },
          Qt::QueuedConnection);
    });
    const std::size_t boxes = dialogs_.All().size();
    if (wait.typed != nullptr) dialogs_.Types(wait.typed);
    Press(wait.button);
    peer_.OnFrame({});
    EXPECT_EQ(frames, 3);
    EXPECT_FALSE(form_->IsWaiting());
    EXPECT_FALSE(form_->isVisible());
    EXPECT_FALSE(port_.IsOpen());
    EXPECT_EQ(Text("TxtResponse"), "");
    // No box but that of the command itself.
    EXPECT_EQ(dialogs_.All().size(), boxes + (wait.typed != nullptr ? 1 : 0));
  }
};

TEST_F(Leaving, ClosingTheWindowThreeDeepEndsEveryWaitWithoutAWord) {
  for (const CardWait& wait : kCardWaits) {
    LeaveThreeDeep(wait, [this] { form_->close(); });
    EXPECT_EQ(end_status_, -1) << wait.button;
  }
}

TEST_F(Leaving, ExitThreeDeepEndsTheProgramWithStatus0) {
  for (const CardWait& wait : kCardWaits) {
    LeaveThreeDeep(wait, [this] {
      Press("CmdExit");
      EXPECT_EQ(end_status_, 0);
      EXPECT_FALSE(port_.IsOpen());
      // The real program is gone by now; here the waits are ended by closing the window.
      form_->close();
    });
    EXPECT_EQ(end_status_, 0) << wait.button;
  }
}

}  // namespace
}  // namespace vantrel::reliability
