// SPDX-License-Identifier: MIT

// Someone does anything with the console, while somebody else does anything with the printer at the
// other end of its line.

#include "console/command_table.h"
#include "console/frm_vantrel.h"
#include "console/guarded_application.h"
#include "console/system_time.h"
#include "link/serial_port.h"
#include "printer/model/fault.h"
#include "printer/service/printer_server.h"
#include "tests/endurance/any_fault.h"
#include "tests/endurance/jumping_clock.h"
#include "tests/endurance/open_descriptors.h"
#include "tests/endurance/random_user.h"
#include "tests/endurance/test_program.h"
#include "tests/support/installed_fonts.h"
#include "tests/support/missing_device.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <deque>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace vantrel::endurance {
namespace {

using namespace std::chrono_literals;

// The port of the system, which looks at each frame on its way out.
class WatchedPort : public link::SerialPort {
 public:
  using SerialPort::SerialPort;

  void Output(const link::Bytes& bytes) override {
    // A frame that is asked for again goes out byte by byte: the last one, or one around it whose
    // command still waits.
    if (bytes.size() == 1) {
      again_.push_back(bytes.front());
      const auto sent = std::find_if(sent_.begin(), sent_.end(), [this](const link::Bytes& frame) {
        return frame.size() >= again_.size() &&
               std::equal(again_.begin(), again_.end(), frame.begin());
      });
      if (sent == sent_.end())
        problem_ = link::HexTextOf(again_) + " is no repeated frame";
      else if (sent->size() == again_.size())
        again_.clear();
    } else {
      Look(bytes);
      sent_.push_front(bytes);
      if (sent_.size() > kMostWaiting) sent_.pop_back();
      again_.clear();
      ++frames_;
    }
    SerialPort::Output(bytes);
  }

  // What was wrong with a frame; empty when nothing was.
  const std::string& Problem() const { return problem_; }
  int Frames() const { return frames_; }
  const std::set<unsigned>& Codes() const { return codes_; }

 private:
  void Look(const link::Bytes& frame) {
    constexpr std::size_t kShortest = 4;  // STX, code, ETX, block check
    unsigned check = 0;
    std::size_t ends = 0;
    for (std::size_t i = 1; i + 1 < frame.size(); ++i) {
      check ^= frame[i];
      if (frame[i] == 0x03) ++ends;
    }
    if (frame.size() < kShortest || frame.front() != 0x02 || ends != 1 ||
        frame[frame.size() - 2] != 0x03 || frame.back() != check)
      problem_ = "the frame " + link::HexTextOf(frame) + " is not well formed";
    if (frame.size() > 1) codes_.insert(frame[1]);
  }

  // More commands than ever wait, one inside the other.
  static constexpr std::size_t kMostWaiting = 50;

  std::deque<link::Bytes> sent_;  // frames, the last one first
  link::Bytes again_;             // what has been repeated of one of them so far
  int frames_ = 0;
  std::set<unsigned> codes_;
  std::string problem_;
};

std::vector<QWidget*> ShownWindows() {
  std::vector<QWidget*> shown;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) shown.push_back(window);
  }
  return shown;
}

class RandomConsole : public testing::Test {
 protected:
  RandomConsole() : server_(model_) { clock_.setSingleShot(true); }

  // Begins with a console of its own, has it used for so many steps, and closes it.
  void Use();
  void Step();
  // Whether what must hold after every step does.
  void Look(const std::string& step);
  // Has what is open answered and waits until nothing waits.
  void Settle();
  void CloseConsole();
  std::string ActOnConsole();
  std::string ActOnPrinter();
  QPushButton* AnyButton();
  void Tell(const std::string& step) const {
    if (run_.tells) std::cerr << steps_ << ' ' << depth_ << ": " << step << '\n';
  }

  RandomRun run_{2000};
  Dice dice_{run_.seed};
  RandomUser user_{dice_, {"CmdNext"}};
  printer::PrinterModel model_{support::InstalledFonts(), link::CodePage::kWestern};
  printer::PrinterServer server_;
  std::unique_ptr<WatchedPort> port_;
  std::unique_ptr<console::FrmVantrel> form_;
  QTimer clock_;
  int steps_ = 0;
  int depth_ = 0;  // steps that have not ended, one inside the other
  int deepest_ = 0;
  int longest_hold_ = 0;
  int consoles_ = 0;
  int frames_ = 0;
  std::set<unsigned> codes_;
  bool leaving_ = false;  // no more steps: what is open is closed
  bool closed_ = false;
  bool ended_ = false;
};

QPushButton* RandomConsole::AnyButton() {
  const auto commands = console::Commands();
  const console::ConsoleCommand& command = commands[dice_.Below(commands.size())];
  return form_->findChild<QPushButton*>(
      QString::fromUtf8(command.button.data(), static_cast<qsizetype>(command.button.size())));
}

std::string RandomConsole::ActOnPrinter() {
  switch (dice_.Below(14)) {
    case 0:
    case 1:
    case 2:
      server_.InsertCard();
      return "a card is put in";
    case 3:
    case 4:
      server_.PullOutCard();
      return "a card is pulled out";
    case 5:
      model_.SetCardKind(dice_.Chance(70) ? printer::CardKind::kOrdinary
                                          : printer::CardKind::kCleaning);
      return "another card is chosen";
    case 6:
    case 7: {
      const std::string fault = AnyFault(dice_);
      model_.AddFault(printer::ParseFault(fault));
      return "fault " + fault;
    }
    case 8:
      model_.ClearFaults();
      return "no faults";
    case 9: {
      const bool on = dice_.Chance(75);
      server_.SetPower(on);
      return on ? "power on" : "power off";
    }
    case 10:
      model_.SetInstantWork(dice_.Chance(60));
      return "work at another pace";
    case 11:
      model_.SetPacing(dice_.Chance(30));
      model_.SetSpeed(dice_.Chance(70) ? 9600 : 38400);
      return "another speed";
    case 12:
      server_.PressCleaningButton();
      return "the cleaning button";
    default:
      if (server_.DevicePath().empty() || !server_.Unplug()) {
        server_.PlugIn();
        if (form_ && !closed_ && dice_.Chance(50)) form_->ReopenPort();
        return "plugged in";
      }
      return "unplugged";
  }
}

std::string RandomConsole::ActOnConsole() {
  if (RandomUser::InFront() != form_.get() || dice_.Chance(30)) return user_.Act();
  if (dice_.Chance(1)) {
    if (dice_.Chance(50)) {
      form_->close();
      return "the console is closed";
    }
    auto* exit = form_->findChild<QPushButton*>("CmdExit");
    RandomUser::Click(*exit);
    return "Exit";
  }
  // Without a port there is little to see.
  if (!port_->IsOpen() && dice_.Chance(30)) {
    server_.PlugIn();
    form_->ReopenPort();
    return "the port is opened again";
  }
  // A disabled one, too: nothing must come of it.
  QPushButton* button = AnyButton();
  std::string told = "the button " + button->objectName().toStdString();
  RandomUser::Click(*button);
  return told;
}

void RandomConsole::Step() {
  static constexpr std::array kThoughts = {1, 20, 50, 50, 120, 300, 300, 1000, 6000};
  // The loop that counts the steps may be waiting for a box that is open.
  // The second press of a double click may open one after Exit, where the program has ended.
  if (steps_ >= run_.steps || HasFailure() || closed_) leaving_ = true;
  if (leaving_) return RandomUser::LeaveInStep(*form_, clock_, depth_);
  clock_.start(dice_.OneOf(kThoughts));
  ++steps_;
  ++depth_;
  deepest_ = std::max(deepest_, depth_);
  Look(dice_.Chance(72) ? ActOnConsole() : ActOnPrinter());
  --depth_;
}

void RandomConsole::Look(const std::string& step) {
  Tell(step);
  EXPECT_EQ(port_->Problem(), "") << step;
  EXPECT_EQ(TestProgram::EndStatus(), -1) << step;
  const int hold = static_cast<int>(JumpingClock::TakeLongestHold() / 1ms);
  EXPECT_LE(hold, run_.longest_hold) << step;
  longest_hold_ = std::max(longest_hold_, hold);
  if (!form_ || closed_) return;
  // What cancels a wait can always be pressed, what does not once nothing waits. (A command nested
  // in a wait enables all when it ends, though the other one still waits; that is meant.)
  for (const QPushButton* button : form_->findChildren<QPushButton*>()) {
    const bool is_ordinary = button->property("Tag").toString() == "1";
    EXPECT_TRUE(button->isEnabled() || (is_ordinary && form_->IsWaiting()))
        << button->objectName().toStdString() << " after " << step;
  }
}

void RandomConsole::Settle() {
  leaving_ = true;
  const auto begun = JumpingClock::Jumped();
  do {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    // The longest wait is 20 s, and one nested in it lasts as long.
    ASSERT_LT(JumpingClock::Jumped() - begun, 1h) << "something never ends";
  } while (depth_ > 0 ||
           (!closed_ && (form_->IsWaiting() || RandomUser::InFront() != form_.get())));
  leaving_ = false;
}

void RandomConsole::CloseConsole() {
  if (!closed_) {
    EXPECT_EQ(ShownWindows(), std::vector<QWidget*>{form_.get()});
    for (const char* panel : {"StatusBarFrmMain_1", "StatusBarFrmMain_2"})
      EXPECT_EQ(form_->findChild<QWidget*>(panel)->property("text").toString(), "") << panel;
    form_->close();
  }
  EXPECT_TRUE(closed_);
  EXPECT_FALSE(port_->IsOpen());
  EXPECT_FALSE(form_->IsWaiting());
  EXPECT_EQ(ShownWindows(), std::vector<QWidget*>{});
  frames_ += port_->Frames();
  codes_.insert(port_->Codes().begin(), port_->Codes().end());
  form_.reset();
  port_.reset();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(QApplication::topLevelWidgets(), QWidgetList{});
}

void RandomConsole::Use() {
  const std::size_t descriptors = OpenDescriptors() - (server_.DevicePath().empty() ? 0 : 2);
  closed_ = false;
  ++consoles_;
  port_ = std::make_unique<WatchedPort>([this](int number) {
    return number == 1 && !server_.DevicePath().empty() ? server_.DevicePath()
                                                        : support::MissingDevice();
  });
  form_ = std::make_unique<console::FrmVantrel>(
      *port_, TestProgram::Dialogs(), dynamic_cast<console::GuardedApplication&>(*qApp),
      console::SystemTimeOf(QLocale::c()), link::CodePage::kWestern, [this](int) {
        // The program would end here at once, and its waits with it.
        form_->close();
      });
  QObject::connect(form_.get(), &console::FrmVantrel::Closed, form_.get(),
                   [this] { closed_ = true; });
  form_->show();
  clock_.start(1);
  while (steps_ < run_.steps && !closed_ && !HasFailure())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  Settle();
  clock_.stop();
  if (HasFatalFailure()) return;
  CloseConsole();
  // The first window of a program has the library open what it keeps.
  if (consoles_ > 1) {
    EXPECT_EQ(OpenDescriptors() - (server_.DevicePath().empty() ? 0 : 2), descriptors);
  }
}

TEST_F(RandomConsole, HoldsWhateverIsDone) {
  SCOPED_TRACE(run_.Again());
  QObject::connect(&clock_, &QTimer::timeout, [this] { Step(); });
  while (steps_ < run_.steps && !HasFailure()) Use();
  std::cout << steps_ << " steps, " << consoles_ << " consoles, " << frames_ << " frames of "
            << codes_.size() << " commands, nested " << deepest_ << " deep, "
            << JumpingClock::Jumped() / 1s << " s passed, the event loop was held for "
            << longest_hold_ << " ms at most\n";
  // A user who does nothing proves nothing.
  if (run_.steps >= 2000) {
    EXPECT_GT(frames_, run_.steps / 20);
    EXPECT_GT(codes_.size(), 30U);
  }
}

}  // namespace
}  // namespace vantrel::endurance
