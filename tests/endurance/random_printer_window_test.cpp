// SPDX-License-Identifier: MIT

// Someone does anything with the printer's window, while a console talks on its line.

#include "dialogs/file_chooser.h"
#include "printer/model/fault.h"
#include "printer/service/printer_server.h"
#include "printer/window/frm_printer.h"
#include "tests/endurance/any_fault.h"
#include "tests/endurance/jumping_clock.h"
#include "tests/endurance/random_user.h"
#include "tests/endurance/test_program.h"
#include "tests/support/device_user.h"
#include "tests/support/file_folder.h"
#include "tests/support/installed_fonts.h"
#include "tests/support/recording_guard.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <iostream>
#include <memory>
#include <string>

namespace vantrel::endurance {
namespace {

using namespace std::chrono_literals;

// Chooses any file of a folder, there or not, fit or not, or none.
class RandomFileChooser : public dialogs::FileChooser {
 public:
  RandomFileChooser(Dice& dice, const support::FileFolder& folder) : dice_(dice), folder_(folder) {
    folder_.Make("junk.json", "{\"cards\": [3, ");
    folder_.Make("empty.json", "");
  }
  QString SaveName(QWidget*, const QString&, const QString&, const QString&) override {
    return Any();
  }
  QString OpenName(QWidget*, const QString&, const QString&) override { return Any(); }

 private:
  QString Any() {
    static constexpr std::array kNames = {
        "",        "cards.json", "junk.json",   "empty.json",   "face.png", "face.pbm",
        "log.txt", "log.csv",    "line.pcapng", "no/such.json", ".",        "new"};
    const std::string name = dice_.OneOf(kNames);
    return name.empty() ? QString() : QString::fromStdString(folder_.Path(name));
  }

  Dice& dice_;
  const support::FileFolder& folder_;
};

class RandomPrinterWindow : public testing::Test {
 protected:
  RandomPrinterWindow() { clock_.setSingleShot(true); }

  // Makes a printer with its window, has it used until it is closed, and ends it.
  void Use();
  void Step();
  void Look(const std::string& step);
  // A frame or noise from the console.
  std::string Talk();

  RandomRun run_{2000};
  Dice dice_{run_.seed};
  RandomUser user_{dice_, {}};
  support::FileFolder folder_;
  RandomFileChooser files_{dice_, folder_};
  support::RecordingGuard guard_;
  std::unique_ptr<printer::PrinterModel> model_;
  std::unique_ptr<printer::PrinterServer> server_;
  std::unique_ptr<printer::FrmPrinter> form_;
  std::unique_ptr<support::DeviceUser> console_;
  std::string device_;
  QTimer clock_;
  int steps_ = 0;
  int depth_ = 0;
  int windows_ = 0;
  int frames_ = 0;
  int longest_hold_ = 0;
  bool leaving_ = false;
};

std::string RandomPrinterWindow::Talk() {
  static constexpr std::array kFrames = {
      "02 58 03 5B", "02 21 03 22", "02 59 03 5A", "02 5F 03 5C",          "02 54 03 57",
      "02 95 03 96", "02 55 03 56", "02 40 03 43", "02 46 30 03 75",       "02 48 30 03 7B",
      "02 58 03 00", "02 58",       "FF",          "02 35 41 42 43 03 76", "02 53 03 50"};
  if (server_->DevicePath() != device_ || !console_) {
    device_ = server_->DevicePath();
    console_ = std::make_unique<support::DeviceUser>(device_);
  }
  if (!console_->IsOpen()) return "no line";
  const std::string frame = dice_.OneOf(kFrames);
  console_->Write(frame);
  console_->ReadNow();
  ++frames_;
  return "the console says " + frame;
}

void RandomPrinterWindow::Step() {
  // The loop that counts the steps may be waiting for a box that is open.
  if (steps_ >= run_.steps || HasFailure()) leaving_ = true;
  if (leaving_) return RandomUser::LeaveInStep(*form_, clock_, depth_);
  if (!form_->isVisible()) return;
  static constexpr std::array kThoughts = {1, 20, 50, 120, 300, 1000, 5000};
  clock_.start(dice_.OneOf(kThoughts));
  ++steps_;
  ++depth_;
  std::string step;
  if (dice_.Chance(20)) {
    step = Talk();
  } else if (dice_.Chance(3)) {
    model_->AddFault(printer::ParseFault(AnyFault(dice_)));
    step = "a fault";
  } else if (RandomUser::InFront() == form_.get() && dice_.Chance(1)) {
    form_->close();
    step = "closes the window";
  } else if (server_->DevicePath().empty() && dice_.Chance(10)) {
    server_->PlugIn();
    step = "plugs in";
  } else {
    step = user_.Act();
  }
  Look(step);
  --depth_;
}

void RandomPrinterWindow::Look(const std::string& step) {
  if (run_.tells) std::cerr << steps_ << ' ' << depth_ << ": " << step << '\n';
  const int hold = static_cast<int>(JumpingClock::TakeLongestHold() / 1ms);
  EXPECT_LE(hold, run_.longest_hold) << step;
  longest_hold_ = std::max(longest_hold_, hold);
  EXPECT_EQ(guard_.TakeFaults(), std::vector<std::string>{}) << step;
  // What a hand can do now can be pressed, and nothing else.
  const auto expect = [&](const char* name, bool enabled) {
    auto* button = form_->findChild<QAbstractButton*>(name);
    ASSERT_NE(button, nullptr) << name;
    EXPECT_EQ(button->isEnabled(), enabled) << name << " after " << step;
  };
  const bool is_outside = model_->State().place == printer::CardPlace::kOutside;
  expect("CmdInsertCard", is_outside);
  expect("CmdNewCard", is_outside);
  expect("CmdUnplug", !server_->DevicePath().empty());
  expect("CmdPlugIn", server_->DevicePath().empty());
}

void RandomPrinterWindow::Use() {
  ++windows_;
  model_ =
      std::make_unique<printer::PrinterModel>(support::InstalledFonts(), link::CodePage::kWestern);
  server_ = std::make_unique<printer::PrinterServer>(*model_);
  form_ = std::make_unique<printer::FrmPrinter>(
      *model_, *server_, dialogs::Helpers{TestProgram::Dialogs(), files_, guard_});
  form_->show();
  leaving_ = false;
  clock_.start(1);
  while (steps_ < run_.steps && (form_->isVisible() || depth_ > 0) && !HasFailure())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  leaving_ = true;
  const auto begun = JumpingClock::Jumped();
  clock_.start(1);
  do {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    ASSERT_LT(JumpingClock::Jumped() - begun, 1h) << "something never ends";
  } while (depth_ > 0 ||
           (RandomUser::InFront() != nullptr && RandomUser::InFront() != form_.get()));
  clock_.stop();
  console_.reset();
  form_.reset();
  server_.reset();
  model_.reset();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(QApplication::topLevelWidgets(), QWidgetList{});
}

TEST_F(RandomPrinterWindow, HoldsWhateverIsDone) {
  SCOPED_TRACE(run_.Again());
  QObject::connect(&clock_, &QTimer::timeout, [this] { Step(); });
  while (steps_ < run_.steps && !HasFailure()) Use();
  std::cout << steps_ << " steps, " << windows_ << " windows, " << frames_ << " frames, "
            << JumpingClock::Jumped() / 1s << " s passed, the event loop was held for "
            << longest_hold_ << " ms at most\n";
}

}  // namespace
}  // namespace vantrel::endurance
