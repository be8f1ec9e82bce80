// SPDX-License-Identifier: MIT

// Many exchanges, and many hours: what a long session leaves behind.

#include "console/frm_vantrel.h"
#include "console/guarded_application.h"
#include "console/system_time.h"
#include "link/serial_port.h"
#include "printer/service/printer_server.h"
#include "tests/endurance/dice.h"
#include "tests/endurance/jumping_clock.h"
#include "tests/endurance/open_descriptors.h"
#include "tests/endurance/random_user.h"
#include "tests/endurance/test_program.h"
#include "tests/support/device_user.h"
#include "tests/support/file_folder.h"
#include "tests/support/installed_fonts.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

#include <malloc.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

namespace vantrel::endurance {
namespace {

using namespace std::chrono_literals;

constexpr long kMostGrowth = 1000000;  // bytes
// After so many exchanges everything that is kept has been made.
constexpr long kFirst = 1000;

// What the environment tells, for a run by hand.
long Told(const char* name, long otherwise) {
  const char* value = std::getenv(name);
  return value != nullptr ? std::strtol(value, nullptr, 10) : otherwise;
}

// Bytes that the program has asked for and not given back.
long BytesInUse() {
  const auto info = mallinfo2();
  return static_cast<long>(info.uordblks + info.hblkhd);
}

// Kilobytes of the program in the machine's memory.
long ResidentKilobytes() {
  std::ifstream status("/proc/self/statm");
  long all = 0, resident = 0;
  status >> all >> resident;
  return resident * 4;
}

// What is in use now, to be compared with what is in use later.
struct Use {
  long bytes = BytesInUse();
  long kilobytes = ResidentKilobytes();
  std::size_t descriptors = OpenDescriptors();

  void ExpectLittleMoreNow(const std::string& what) const {
    const Use now;
    std::cout << what << ": " << now.bytes - bytes << " bytes more in use, "
              << now.kilobytes - kilobytes << " kB more resident, "
              << static_cast<long>(now.descriptors) - static_cast<long>(descriptors)
              << " descriptors more\n";
    EXPECT_LT(now.bytes - bytes, kMostGrowth);
    EXPECT_LE(now.descriptors, descriptors);
  }
};

// Whether no timer of this thread runs: a wait lasts as long as the only timer there is then.
bool NothingTicks() {
  QTimer only;
  only.setSingleShot(true);
  const auto wait = [&only] {
    only.start(1h);
    const auto before = JumpingClock::Waits();
    while (only.isActive()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return JumpingClock::Waits() - before;
  };
  // What the library is to do once is done in the first hour.
  wait();
  return wait() <= 1;
}

// A console on a printer in the same program.
class Bench {
 public:
  Bench() {
    model_.SetInstantWork(true);
    form_.show();
    QCoreApplication::processEvents();
  }
  void Press(const char* name) {
    RandomUser::Click(*form_.findChild<QPushButton*>(name));
    QCoreApplication::processEvents();
  }
  QString Response() {
    return form_.findChild<QWidget*>("TxtResponse")->property("plainText").toString();
  }
  printer::PrinterModel& Model() { return model_; }
  printer::PrinterServer& Server() { return server_; }
  console::FrmVantrel& Form() { return form_; }

 private:
  printer::PrinterModel model_{support::InstalledFonts(), link::CodePage::kWestern};
  printer::PrinterServer server_{model_};
  link::SerialPort port_{[this](int) { return server_.DevicePath(); }};
  console::FrmVantrel form_{port_,
                            TestProgram::Dialogs(),
                            dynamic_cast<console::GuardedApplication&>(*qApp),
                            console::SystemTimeOf(QLocale::c()),
                            link::CodePage::kWestern,
                            [](int status) { TestProgram::EndStatus() = status; }};
};

class Soak : public testing::Test {
 protected:
  Soak() { qputenv("TMPDIR", temporary_files_.Path("").c_str()); }
  ~Soak() override {
    EXPECT_TRUE(NothingTicks());
    // A thread in which the library has scaled a picture ends after a while and closes its own.
    EXPECT_LE(OpenDescriptors(), descriptors_);
    EXPECT_EQ(temporary_files_.Count(), 0U);
    qunsetenv("TMPDIR");
  }

 private:
  // The first window of a program has the library open what it keeps.
  static std::size_t DescriptorsAfterAWindow() {
    { const Bench first; }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return OpenDescriptors();
  }

  support::FileFolder temporary_files_;
  const std::size_t descriptors_ = DescriptorsAfterAWindow();
};

TEST_F(Soak, ExchangesOfTheConsoleLeaveNothing) {
  const long exchanges = Told("VANTREL_SOAK_EXCHANGES", 1100);
  {
    Bench bench;
    bench.Model().SetTrack(0, "VANTREL SAMPLE CARD");
    bench.Server().InsertCard();
    static constexpr std::array kButtons = {"Cmd58", "Cmd25", "Cmd59", "Cmd95", "Cmd96"};
    static constexpr std::array kReplies = {"02 58 20", "02 25 20", "02 59 20", "02 95 20",
                                            "02 96 20"};
    std::optional<Use> first;
    for (long i = 0; i < exchanges; ++i) {
      if (i == kFirst) first.emplace();
      const auto kind = static_cast<std::size_t>(i) % kButtons.size();
      bench.Press(kButtons[kind]);
      ASSERT_TRUE(bench.Response().startsWith(kReplies[kind]))
          << i << ": " << bench.Response().toStdString();
    }
    if (first)
      first->ExpectLittleMoreNow(std::to_string(exchanges) + " exchanges, from the " +
                                 std::to_string(kFirst) + "th on");
  }
}

TEST_F(Soak, RawExchangesLeaveNothing) {
  const long exchanges = Told("VANTREL_SOAK_RAW", 5000);
  {
    printer::PrinterModel model(support::InstalledFonts(), link::CodePage::kWestern);
    printer::PrinterServer server(model);
    model.SetInstantWork(true);
    const support::DeviceUser console(server.DevicePath());
    std::optional<Use> first;
    for (long i = 0; i < exchanges; ++i) {
      if (i == kFirst) first.emplace();
      console.Write("02 40 03 43");
      std::string answer;
      for (int turns = 0; answer.size() < 17 && turns < 100; ++turns) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const std::string more = console.ReadNow();
        if (!more.empty()) answer += (answer.empty() ? "" : " ") + more;
      }
      ASSERT_EQ(answer, "06 02 40 20 03 63") << i;
    }
    if (first)
      first->ExpectLittleMoreNow(std::to_string(exchanges) + " raw exchanges, from the " +
                                 std::to_string(kFirst) + "th on");
  }
}

// Someone works with the printer: a card comes, is read, written, printed and goes, with the pauses
// that people make. All works at its own pace.
TEST_F(Soak, ADayAtWorkLeavesNothing) {
  const auto hours = std::chrono::hours(Told("VANTREL_SOAK_HOURS", 4));
  const RandomRun run(0);
  Dice dice(run.seed);
  long commands = 0;
  {
    Bench bench;
    bench.Model().SetInstantWork(false);
    bench.Model().SetPacing(true);
    for (std::size_t track = 0; track < 3; ++track) bench.Model().SetTrack(track, "0123456789");
    static constexpr std::array kButtons = {"Cmd21", "Cmd22", "Cmd23", "Cmd25", "Cmd26",
                                            "Cmd27", "Cmd29", "Cmd40", "Cmd51", "Cmd53",
                                            "Cmd55", "Cmd58", "Cmd59", "Cmd95", "Cmd96"};
    const auto pause = [](std::chrono::milliseconds time) {
      bool is_over = false;
      QTimer::singleShot(time, [&is_over] { is_over = true; });
      while (!is_over) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    const auto end = JumpingClock::Jumped() + hours;
    std::optional<Use> first;
    while (JumpingClock::Jumped() < end) {
      pause(std::chrono::seconds(1 + dice.Below(60)));
      // The card that a command waits for is at hand.
      QTimer::singleShot(std::chrono::milliseconds(dice.Below(4000)), &bench.Server(), [&bench] {
        if (!bench.Server().InsertCard()) bench.Server().PullOutCard();
        bench.Server().InsertCard();
      });
      bench.Press(dice.OneOf(kButtons));
      EXPECT_FALSE(bench.Form().IsWaiting());
      EXPECT_FALSE(bench.Response().isEmpty());
      // After some hours of it everything that is kept has been made.
      if (++commands == 200) first.emplace();
    }
    if (first) first->ExpectLittleMoreNow("a session of " + std::to_string(hours.count()) + " h");
  }
  EXPECT_GT(commands, hours.count() * 60);
  std::cout << commands << " commands in " << hours.count() << " h\n";
}

}  // namespace
}  // namespace vantrel::endurance
