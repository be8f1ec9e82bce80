// SPDX-License-Identifier: MIT

// What the console tells of its port, and of itself to a screen reader.

#include "tests/support/console_fixture.h"
#include "tests/support/wait_for.h"
#include "tests/support/window_checks.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace vantrel::console {
namespace {

class ConsolePortTest : public support::ConsoleTest {};

TEST_F(ConsolePortTest, AnOpenPortIsTold) {
  Load();
  EXPECT_EQ(Text("LblPort"), "COM 1 · " + first_device_ + " · 9600 · open");
  Choose("Mnu_19200bps");
  EXPECT_EQ(Text("LblPort"), "COM 1 · " + first_device_ + " · 19200 · open");
}

TEST_F(ConsolePortTest, AChosenPortIsClosed) {
  Load();
  Choose("Mnu_COM2");
  EXPECT_EQ(Text("LblPort"), "COM 2 · " + second_device_ + " · 9600 · closed");
}

TEST_F(ConsolePortTest, APortThatCannotBeOpenedTellsWhy) {
  Load();
  Choose("Mnu_COM2");
  dialogs_.Answers(dialogs::Answer::kOk);
  Choose("Mnu_4800bps");
  EXPECT_EQ(Text("LblPort"), "COM 2 · " + second_device_ + " · 4800 · not found");
  Choose("Mnu_COM1");
  Choose("Mnu_4800bps");
  EXPECT_EQ(Text("LblPort"), "COM 1 · " + first_device_ + " · 4800 · open");
}

TEST_F(ConsolePortTest, APortThatIsMissingAtTheStartTellsWhy) {
  first_device_ = second_device_;
  dialogs_.Answers(dialogs::Answer::kOk);
  Load();
  EXPECT_EQ(Text("LblPort"), "COM 1 · " + first_device_ + " · 9600 · not found");
  EXPECT_TRUE(support::WaitFor([this] { return !dialogs_.All().empty(); }));
}

TEST_F(ConsolePortTest, ALostDeviceIsTold) {
  Load();
  dialogs_.Answers(dialogs::Answer::kOk);
  peer_.Vanish();
  EXPECT_TRUE(support::WaitFor([this] { return !dialogs_.All().empty(); }));
  EXPECT_EQ(Text("LblPort"), "COM 1 · " + first_device_ + " · 9600 · gone");
}

TEST_F(ConsolePortTest, StandsAtTheRightEndOfTheMenuBarAndLeavesTheMenusTheirRoom) {
  first_device_ = "/dev/" + std::string(200, 'x');
  dialogs_.Answers(dialogs::Answer::kOk);
  Load();
  EXPECT_TRUE(support::WaitFor([this] { return !dialogs_.All().empty(); }));
  auto* label = form_->findChild<QLabel*>("LblPort");
  QMenuBar* bar = form_->menuBar();
  EXPECT_EQ(label->parentWidget(), bar);
  EXPECT_GE(bar->actionGeometry(bar->actions().back()).width(), 20);
  EXPECT_FALSE(label->geometry().intersects(bar->actionGeometry(bar->actions().back())));
  EXPECT_GT(label->geometry().right(), bar->width() - 12);
  EXPECT_EQ(label->toolTip(), label->text());
}

TEST_F(ConsolePortTest, EveryControlHasANameForAScreenReader) {
  Load();
  EXPECT_EQ(support::UnnamedIn(*form_), QStringList());
  EXPECT_EQ(support::MnemonicsTwiceIn(*form_), QStringList());
}

TEST_F(ConsolePortTest, AReplysArrivalIsAnnounced) {
  Load();
  const QSignalSpy announced(form_.get(), &FrmVantrel::ReplyArrived);
  qsizetype before_the_reply = -1;
  peer_.OnFrame([&, this](const std::string& frame) {
    before_the_reply = announced.size();
    peer_.Send(support::PtyPeer::Reply(frame.substr(2, 2)));
  });
  Press("Cmd58");
  EXPECT_EQ(before_the_reply, 0);
  ASSERT_EQ(announced.size(), 1);
  EXPECT_EQ(announced.front().front().toString(), "02 58 20 03 7B ");
}

TEST_F(ConsolePortTest, TheReplyStandsOut) {
  Load();
  AnswerAll();
  auto* box = form_->findChild<QAbstractScrollArea*>("TxtResponse");
  const auto edge = [box] {
    const QImage picture = box->viewport()->grab().toImage();
    return picture.pixelColor(1, picture.height() / 2);
  };
  const QColor empty = edge();
  Press("Cmd58");
  EXPECT_NE(edge(), empty);
}

TEST_F(ConsolePortTest, TheReplysBarIsThreePixelsWideAndAsHighAsItsBox) {
  Load();
  AnswerAll();
  Press("Cmd58");
  auto* box = form_->findChild<QAbstractScrollArea*>("TxtResponse");
  const QImage picture = box->viewport()->grab().toImage();
  const QColor bar = picture.pixelColor(0, 0);
  EXPECT_NE(bar, box->palette().color(QPalette::Base));
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < 3; ++x) EXPECT_EQ(picture.pixelColor(x, y), bar) << x << " " << y;
  EXPECT_NE(picture.pixelColor(3, picture.height() - 1), bar);
}

TEST_F(ConsolePortTest, ADeviceThatIsTooLongIsShortenedInItsMiddle) {
  first_device_ = "/dev/" + std::string(200, 'x');
  dialogs_.Answers(dialogs::Answer::kOk);
  Load();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !dialogs_.All().empty(); }));
  auto* label = form_->findChild<QLabel*>("LblPort");
  ASSERT_LT(label->width(), label->fontMetrics().horizontalAdvance(label->text()));
  QPalette palette = label->palette();
  palette.setColor(QPalette::WindowText, Qt::red);
  label->setPalette(palette);
  const QImage picture = label->grab().toImage();
  const auto has_ink = [&picture](int from, int to) {
    for (int x = from; x < to; ++x)
      for (int y = 0; y < picture.height(); ++y)
        if (picture.pixelColor(x, y).red() > picture.pixelColor(x, y).blue() + 60) return true;
    return false;
  };
  // Its first letter and its last are seen, and nothing is cut at the margins of 8 pixels.
  EXPECT_TRUE(has_ink(8, 20));
  EXPECT_TRUE(has_ink(picture.width() - 20, picture.width() - 8));
  EXPECT_FALSE(has_ink(0, 7));
  // What is left of it begins with "COM" and not with one of the letters x in its middle.
  const QFontMetrics metrics = label->fontMetrics();
  const int line = (label->height() - metrics.height()) / 2 + metrics.ascent();
  const QImage above_x = picture.copy(0, 0, 40, line - metrics.xHeight() - 1);
  int capitals = 0;
  for (int y = 0; y < above_x.height(); ++y)
    for (int x = 8; x < above_x.width(); ++x)
      capitals += above_x.pixelColor(x, y).red() > above_x.pixelColor(x, y).blue() + 60;
  EXPECT_GT(capitals, 4);
}

}  // namespace
}  // namespace vantrel::console
