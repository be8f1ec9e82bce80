// What does a whole exchange of the console cost on a pseudo-terminal, and what do waiting and
// idling cost? The peer answers at once from a thread of its own, so an exchange takes the 10 ms of
// one polling pass and what the console adds.

#include "console/frm_vantrel.h"
#include "console/guarded_application.h"
#include "console/system_time.h"
#include "dialogs/window_dialogs.h"
#include "link/serial_port.h"
#include "tests/support/processor_time.h"

#include <QPushButton>
#include <QTimer>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;
using SteadyClock = std::chrono::steady_clock;

// Answers 58h at once and nothing else.
class Peer {
 public:
  Peer() {
    termios settings = {};
    cfmakeraw(&settings);
    char name[256] = {};
    if (openpty(&master_, &slave_, name, &settings, nullptr) != 0) std::abort();
    device_ = name;
    thread_ = std::thread([this] { Serve(); });
  }
  ~Peer() {
    stop_ = true;
    thread_.join();
    close(slave_);
    close(master_);
  }
  const std::string& Device() const { return device_; }

 private:
  void Serve() {
    static constexpr std::array<unsigned char, 6> kReply = {0x06, 0x02, 0x58, 0x20, 0x03, 0x7B};
    while (!stop_) {
      pollfd descriptor = {master_, POLLIN, 0};
      if (poll(&descriptor, 1, 200) <= 0) continue;
      std::array<unsigned char, 64> bytes{};
      const ssize_t count = read(master_, bytes.data(), bytes.size());
      if (count > 1 && bytes[1] == 0x58 && write(master_, kReply.data(), kReply.size()) != 6)
        std::abort();
    }
  }

  int master_ = -1;
  int slave_ = -1;
  std::string device_;
  std::atomic<bool> stop_{false};
  std::thread thread_;
};

// The share of one core, in per cent, that the process uses over `seconds` of event loop.
double LoadOver(int seconds) {
  const double before = vantrel::support::ProcessorTime();
  const auto start = SteadyClock::now();
  QEventLoop loop;
  QTimer::singleShot(seconds * 1000, &loop, &QEventLoop::quit);
  loop.exec();
  const double wall = Milliseconds(SteadyClock::now() - start).count();
  return 100 * (vantrel::support::ProcessorTime() - before) / wall;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace vantrel;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  dialogs::WindowDialogs dialogs;
  const auto end = [](int status) { std::_Exit(status); };
  console::GuardedApplication application(argc, argv, dialogs, end);
  const Peer peer;
  link::SerialPort port([&peer](int) { return peer.Device(); });
  console::FrmVantrel form(port, dialogs, application, console::SystemTimeOf(QLocale::c()),
                           link::CodePage::kWestern, end);
  form.show();
  QCoreApplication::processEvents();

  auto* exchange = form.findChild<QPushButton*>("Cmd58");
  auto* card_wait = form.findChild<QPushButton*>("Cmd21");
  std::vector<double> times;
  const double processor_before = support::ProcessorTime();
  for (int i = 0; i < 220; ++i) {
    // A person presses a button of a window that has been painted.
    QCoreApplication::processEvents();
    const auto start = SteadyClock::now();
    exchange->click();
    times.push_back(Milliseconds(SteadyClock::now() - start).count());
  }
  const double processor = (support::ProcessorTime() - processor_before) / 220;
  times.erase(times.begin(), times.begin() + 20);
  std::sort(times.begin(), times.end());
  std::printf("an exchange, %zu of them, ms: min %.2f  median %.2f  max %.2f\n", times.size(),
              times.front(), times[times.size() / 2], times.back());

  std::printf("processor time of an exchange, peer included: %.2f ms\n", processor);
  std::printf("idle for 10 s: %.3f %% of a core\n", LoadOver(10));
  QTimer::singleShot(1000, &form, [&] {
    std::printf("a card wait pending, over 10 s: %.3f %% of a core\n", LoadOver(10));
    std::fflush(stdout);
    std::_Exit(0);
  });
  card_wait->click();
  return 0;
}
