// SPDX-License-Identifier: MIT

// What does a whole exchange of the console cost on a pseudo-terminal, and what do waiting and
// idling cost? The peer answers at once from a thread of its own, so an exchange takes the 10 ms of
// one polling pass and what the console adds.

#include "bench/peer.h"
#include "console/frm_vantrel.h"
#include "console/guarded_application.h"
#include "console/system_time.h"
#include "dialogs/window_dialogs.h"
#include "link/serial_port.h"
#include "tests/support/processor_time.h"

#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;
using SteadyClock = std::chrono::steady_clock;

using vantrel::bench::Peer;

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
