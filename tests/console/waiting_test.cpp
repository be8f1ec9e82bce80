// SPDX-License-Identifier: MIT

// The console while a command waits.

#include "console/command_button.h"
#include "console/command_table.h"
#include "tests/support/console_fixture.h"
#include "tests/support/wait_for.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTest>

namespace vantrel::console {
namespace {

// Counts how often a widget is painted.
class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
  int Count() const { return count_; }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count_;
    return false;
  }

 private:
  int count_ = 0;
};

class WaitingTest : public support::ConsoleTest {
 protected:
  // Runs `meanwhile` from the event loop while the next frame waits for its reply.
  void WhileWaiting(std::function<void()> meanwhile) {
    expects_frame_ = true;
    peer_.OnFrame([this, meanwhile = std::move(meanwhile)](const std::string&) {
      peer_.OnFrame({});
      expects_frame_ = false;
      QMetaObject::invokeMethod(form_.get(), meanwhile, Qt::QueuedConnection);
    });
  }
  void TearDown() override { EXPECT_FALSE(expects_frame_) << "No frame came."; }

 private:
  bool expects_frame_ = false;
};

TEST_F(WaitingTest, OrdinaryButtonsAreDisabledAndTheOthersAreNot) {
  Load();
  WhileWaiting([this] {
    int disabled = 0;
    for (auto* button : form_->findChildren<QPushButton*>()) disabled += !button->isEnabled();
    EXPECT_EQ(disabled, static_cast<int>(Commands().size()) - 3);  // all but 54h, 55h and 5Fh
    for (const char* name : {"Cmd54", "Cmd55", "Cmd5F", "CmdExit"})
      EXPECT_TRUE(Button(name)->isEnabled()) << name;
    peer_.Send(support::PtyPeer::Reply("21"));
  });
  Press("Cmd21");
  for (auto* button : form_->findChildren<QPushButton*>()) EXPECT_TRUE(button->isEnabled());
}

TEST_F(WaitingTest, TheDisabledButtonsLookSoWhenTheWaitLasts) {
  Load();
  auto* button = dynamic_cast<CommandButton*>(Button("Cmd21"));
  ASSERT_NE(button, nullptr);
  EXPECT_TRUE(button->LooksEnabled());
  WhileWaiting([&] {
    EXPECT_FALSE(button->isEnabled());
    EXPECT_TRUE(support::WaitFor([button] { return !button->LooksEnabled(); }));
    peer_.Send(support::PtyPeer::Reply("21"));
  });
  Press("Cmd21");
  EXPECT_TRUE(button->isEnabled());
  EXPECT_TRUE(button->LooksEnabled());
}

TEST_F(WaitingTest, AQuickExchangeRepaintsNoOtherButton) {
  Load();
  AnswerAll();
  QCoreApplication::processEvents();
  int painted = -1;
  // A busy machine may need longer than 100 ms for one; not for each.
  for (int i = 0; i < 20 && painted < 0; ++i) {
    const PaintCount paints(*Button("Cmd31"));
    QElapsedTimer length;
    length.start();
    Press("Cmd58");
    const bool quick = length.elapsed() < 100;
    QCoreApplication::processEvents();
    if (quick) painted = paints.Count();
  }
  EXPECT_EQ(painted, 0);
}

TEST_F(WaitingTest, AProgressBarShowsHowMuchOfTheTimeLimitHasGone) {
  Load();
  auto* bar = form_->findChild<QProgressBar*>("ProgressTimeLimit");
  WhileWaiting([&] {
    EXPECT_TRUE(support::WaitFor([&] { return bar->value() > 0; }));
    EXPECT_EQ(bar->maximum(), 20000);
    EXPECT_LT(bar->value(), 5000);
    peer_.Send(support::PtyPeer::Reply("21"));
  });
  Press("Cmd21");
  EXPECT_TRUE(support::WaitFor([&] { return bar->value() == 0; }));
}

// Meant: the outer wait goes on with what the nested call left, its time limit and its reply
// included. That it ends five seconds later is tested with a clock that stands still.
TEST_F(WaitingTest, A54hPressedInside21hLeavesItsReplyAndItsTimeLimitToTheOuterWait) {
  Load();
  auto* bar = form_->findChild<QProgressBar*>("ProgressTimeLimit");
  WhileWaiting([&] {
    AnswerAll();
    Press("Cmd54");
    EXPECT_EQ(Text("TxtResponse"), "02 54 20 03 77 ");
    EXPECT_TRUE(form_->IsWaiting());
    EXPECT_TRUE(Button("Cmd21")->isEnabled());
    EXPECT_TRUE(support::WaitFor([bar] { return bar->maximum() == 5000; }));
    form_->close();
  });
  Press("Cmd21");
  EXPECT_EQ(Frames(), (std::vector<std::string>{"02210322", "02540357"}));
  EXPECT_EQ(Text("TxtResponse"), "02 54 20 03 77 ");
  EXPECT_FALSE(form_->IsWaiting());
}

TEST_F(WaitingTest, ANestedRejectEndsTheOuterWaitToo) {
  Load();
  WhileWaiting([&] {
    peer_.OnFrame([this](const std::string&) { peer_.Send("10"); });
    Press("Cmd5F");
  });
  Press("Cmd21");
  EXPECT_EQ(Text("TxtResponse"), "&H10: Reject Response");
}

TEST_F(WaitingTest, ExitWorksFromInsideANestedWait) {
  Load();
  WhileWaiting([&] {
    peer_.OnFrame([this](const std::string&) {
      QMetaObject::invokeMethod(
          form_.get(),
          [this] {
            Press("CmdExit");
            // The real program is gone by now; here the waits are ended by closing the window.
            form_->close();
          },
          Qt::QueuedConnection);
    });
    Press("Cmd54");
  });
  Press("Cmd21");
  EXPECT_EQ(end_status_, 0);
}

TEST_F(WaitingTest, ClosingTheWindowEndsEveryWaitBeforeItsTimeIsUp) {
  Load();
  QElapsedTimer since_close;
  WhileWaiting([&] {
    since_close.start();
    form_->close();
  });
  Press("Cmd21");
  EXPECT_LT(since_close.elapsed(), 15000);
  EXPECT_FALSE(form_->IsWaiting());
  EXPECT_FALSE(port_.IsOpen());
}

TEST_F(WaitingTest, ADeviceThatVanishesIsReportedAndTheConsoleStaysUsable) {
  Load();
  WhileWaiting([this] { peer_.Vanish(); });
  dialogs_.Answers(dialogs::Answer::kOk, [this] { EXPECT_TRUE(Button("Cmd21")->isEnabled()); });
  Press("Cmd21");
  EXPECT_EQ(dialogs_.Last().icon, dialogs::Icon::kCritical);
  EXPECT_NE(dialogs_.Last().prompt.find(first_device_), std::string::npos);
  EXPECT_FALSE(port_.IsOpen());
  EXPECT_EQ(Text("StatusBarFrmMain_1"), "");

  support::PtyPeer second;
  second_device_ = second.Device();
  second.OnFrame([&](const std::string&) { second.Send(support::PtyPeer::Reply("21", "414243")); });
  Choose("Mnu_COM2");
  Choose("Mnu_9600bps");
  Press("Cmd21");
  EXPECT_EQ(Text("TxtResponse"), "02 21 20 41 42 43 03 42 ");
}

TEST_F(WaitingTest, ADeviceThatVanishesInANestedWaitIsReportedOnce) {
  Load();
  WhileWaiting([this] {
    peer_.OnFrame([this](const std::string&) {
      QMetaObject::invokeMethod(
          form_.get(), [this] { peer_.Vanish(); }, Qt::QueuedConnection);
    });
    Press("Cmd54");
  });
  dialogs_.Answers(dialogs::Answer::kOk);
  Press("Cmd21");
  EXPECT_EQ(dialogs_.All().size(), 1U);
  EXPECT_FALSE(form_->IsWaiting());
}

TEST_F(WaitingTest, ALossThatANestedCommandFindsAtItsWriteEndsTheOuterWaitAtOnce) {
  Load();
  QElapsedTimer since_loss;
  WhileWaiting([&] {
    dialogs_.Answers(dialogs::Answer::kOk);
    peer_.Vanish();
    since_loss.start();
    // Pressed before the watch over the device has noticed.
    Press("Cmd54");
  });
  Press("Cmd21");
  // The nested command's own limit is five seconds, the outer one's twenty.
  EXPECT_LT(since_loss.elapsed(), 4000);
  EXPECT_EQ(dialogs_.All().size(), 1U);
  EXPECT_EQ(Text("TxtResponse"), "");
  EXPECT_FALSE(form_->IsWaiting());
}

TEST_F(WaitingTest, ADeviceThatVanishesBetweenCommandsIsReported) {
  Load();
  dialogs_.Answers(dialogs::Answer::kOk);
  peer_.Vanish();
  EXPECT_TRUE(support::WaitFor([this] { return !dialogs_.All().empty(); }));
  EXPECT_EQ(dialogs_.Last().title, "Serial Port Error");
  EXPECT_FALSE(port_.IsOpen());
}

TEST_F(WaitingTest, APortThatIsChosenAndNotOpenedFailsAtTheWrite) {
  Load();
  Choose("Mnu_COM2");
  dialogs_.Answers(dialogs::Answer::kOk);
  Press("Cmd21");
  EXPECT_NE(dialogs_.Last().prompt.find("is not open"), std::string::npos);
  EXPECT_NE(dialogs_.Last().prompt.find(second_device_), std::string::npos);
  EXPECT_EQ(Text("TxtCommand"), "21");
  EXPECT_EQ(Text("TxtSyntax"), "02 21 03 22 ");
  EXPECT_EQ(Text("StatusBarFrmMain_1"), "");
  EXPECT_TRUE(Button("Cmd21")->isEnabled());
}

TEST_F(WaitingTest, ASpeedThatCannotOpenThePortKeepsItsCheckMark) {
  Load();
  Choose("Mnu_COM2");
  dialogs_.Answers(dialogs::Answer::kOk);
  Choose("Mnu_4800bps");
  EXPECT_NE(dialogs_.Last().prompt.find("cannot be opened"), std::string::npos);
  EXPECT_TRUE(IsChecked("Mnu_4800bps"));
  EXPECT_FALSE(port_.IsOpen());
}

TEST_F(WaitingTest, WithNoDeviceAtStartTheBoxComesWhenTheWindowIsUp) {
  first_device_ = second_device_;
  bool window_was_up = false;
  dialogs_.Answers(dialogs::Answer::kOk, [&] { window_was_up = form_->isVisible(); });
  Load();
  EXPECT_TRUE(support::WaitFor([this] { return !dialogs_.All().empty(); }));
  EXPECT_TRUE(window_was_up);
  EXPECT_NE(dialogs_.Last().prompt.find(first_device_), std::string::npos);
  EXPECT_TRUE(Button("Cmd21")->isEnabled());
}

TEST_F(WaitingTest, NonsenseFromTheLineLeavesTheConsoleUsable) {
  Load();
  WhileWaiting([this] { peer_.Send("FF00AA5513"); });
  Press("Cmd58");
  EXPECT_EQ(Text("TxtResponse"), "Unknown Control Character code: FF00AA5513");
  AnswerAll();
  Press("Cmd58");
  EXPECT_EQ(Text("TxtResponse"), "02 58 20 03 7B ");
}

TEST_F(WaitingTest, TextCanBeSelectedWhileACommandWaits) {
  Load();
  WhileWaiting([this] {
    auto* box = form_->findChild<QPlainTextEdit*>("TxtSyntax");
    QTest::mouseDClick(box->viewport(), Qt::LeftButton, {}, QPoint(8, 10));
    QTest::keyClick(box, Qt::Key_C, Qt::ControlModifier);
    peer_.Send(support::PtyPeer::Reply("21"));
  });
  Press("Cmd21");
  auto* box = form_->findChild<QPlainTextEdit*>("TxtSyntax");
  EXPECT_EQ(box->textCursor().selectedText(), "02");
}

}  // namespace
}  // namespace vantrel::console
