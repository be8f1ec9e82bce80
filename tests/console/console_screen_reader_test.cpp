// SPDX-License-Identifier: MIT

// What a screen reader hears of the console.

#include "tests/support/console_fixture.h"
#include "tests/support/screen_reader.h"

#include <QWidget>

namespace vantrel::console {
namespace {

class ConsoleScreenReaderTest : public support::ConsoleTest {
 protected:
  support::ScreenReader reader_;
};

TEST_F(ConsoleScreenReaderTest, IsToldThatACommandsButtonIsDisabledAndEnabled) {
  Load();
  AnswerAll();
  QPushButton& button = *Button("Cmd40");
  std::size_t while_waiting = 0;
  Once([&button] { return !button.isEnabled(); },
       [&, this] { while_waiting = reader_.HeardOf(button, QAccessible::StateChanged).size(); });
  Press("Cmd58");
  const auto heard = reader_.HeardOf(button, QAccessible::StateChanged);
  EXPECT_EQ(while_waiting, 1U);
  ASSERT_EQ(heard.size(), 2U);
  for (const auto& one : heard) EXPECT_TRUE(one.changed.disabled);
  // It stays enabled all the time.
  EXPECT_TRUE(reader_.HeardOf(*Button("Cmd54"), QAccessible::StateChanged).empty());
}

TEST_F(ConsoleScreenReaderTest, IsToldOfAReplyOnce) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  const auto announcement = QAccessible::Announcement;
#else
  const auto announcement = QAccessible::Alert;
#endif
  Load();
  QWidget& response = *form_->findChild<QWidget*>("TxtResponse");
  std::size_t before_the_reply = 1;
  peer_.OnFrame([&, this](const std::string& frame) {
    before_the_reply = reader_.HeardOf(response, announcement).size();
    peer_.Send(support::PtyPeer::Reply(frame.substr(2, 2)));
  });
  Press("Cmd58");
  EXPECT_EQ(before_the_reply, 0U);
  EXPECT_EQ(reader_.HeardOf(response, announcement).size(), 1U);
}

}  // namespace
}  // namespace vantrel::console
