// SPDX-License-Identifier: MIT

// How long do captures of a million rows take to be shown, compared and looked at, what memory does
// a row take, and how long does the window hold up an event? The limits: shown and filled in 2 s,
// compared in 5 s, 300 bytes a row beyond its own, 50 ms an event.

#include "log/capture_commands.h"
#include "log/capture_rows.h"
#include "log/capture_writer.h"
#include "log/frm_view.h"
#include "protocol/frame.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>
#include <benchmark/benchmark.h>

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace vantrel::bench {
namespace {

using protocol::Direction;

// A command, its acknowledgement and its reply.
constexpr int kRowsAnExchange = 3;
constexpr int kExchanges = 333334;
constexpr int kRows = kRowsAnExchange * kExchanges;

std::string FrameOf(const std::string& content) {
  const link::Bytes frame = protocol::FrameAround(link::Bytes(content.begin(), content.end()));
  return {frame.begin(), frame.end()};
}

// The rows of the exchange of a number. Those of two variants have nothing in common.
std::vector<log::LogEntry> Exchange(int number, int variant) {
  const log::WallTime time(std::chrono::milliseconds(1795266005000LL + 20LL * number));
  const std::string data = std::to_string(number % 5000) + (variant == 0 ? "A" : "B");
  const std::string code = variant == 0 ? "\x3B" : "\x3C";
  return {{time, Direction::kFromConsole, FrameOf(code + data)},
          {time + std::chrono::milliseconds(2), Direction::kFromPrinter, "\x06"},
          {time + std::chrono::milliseconds(9), Direction::kFromPrinter, FrameOf(code + " ")}};
}

// Captures that are made once for all and removed at the end.
class Captures {
 public:
  static Captures& All() {
    static Captures captures;
    return captures;
  }
  ~Captures() {
    std::error_code ignored;
    std::filesystem::remove_all(Folder(), ignored);
  }

  const std::string first = Make("first.pcapng", [](int) { return 0; });
  // The same, but for one exchange in a thousand.
  const std::string alike =
      Make("alike.pcapng", [](int number) { return number % 1000 == 500 ? 1 : 0; });
  const std::string other = Make("other.pcapng", [](int) { return 1; });

 private:
  Captures() = default;
  static std::string Make(const std::string& name, const std::function<int(int)>& variant) {
    const std::filesystem::path folder = Folder();
    std::filesystem::create_directories(folder);
    std::ofstream file(folder / name, std::ios::binary);
    std::string part = log::CaptureStart({"/dev/pts/7", 9600});
    for (int number = 0; number < kExchanges; ++number) {
      for (const log::LogEntry& row : Exchange(number, variant(number)))
        log::AppendPacket(part, row);
      if (part.size() < 65536) continue;
      file << part;
      part.clear();
    }
    file << part;
    return folder / name;
  }
  static std::filesystem::path Folder() {
    return std::filesystem::temp_directory_path() /
           ("vantrel-captures-bench-" + std::to_string(getpid()));
  }
};

void ShowAMillion(benchmark::State& state) {
  const std::string& path = Captures::All().first;
  const bool json = state.range(0) != 0;
  for (auto _ : state) {
    std::ofstream out("/dev/null");
    std::ostringstream errors;
    if (log::ShowCapture(path, json, out, errors) != 0) state.SkipWithError("It was not shown.");
  }
}
BENCHMARK(ShowAMillion)->ArgName("json")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void CompareAMillion(benchmark::State& state, const std::string& with, int status) {
  for (auto _ : state) {
    std::ofstream out("/dev/null");
    std::ostringstream errors;
    if (log::CompareCaptures(Captures::All().first, with, false, out, errors) != status)
      state.SkipWithError("It was not compared.");
  }
}
void CompareTheSame(benchmark::State& state) { CompareAMillion(state, Captures::All().first, 0); }
void CompareAlike(benchmark::State& state) { CompareAMillion(state, Captures::All().alike, 1); }
void CompareWhollyDifferent(benchmark::State& state) {
  CompareAMillion(state, Captures::All().other, 1);
}
BENCHMARK(CompareTheSame)->Unit(benchmark::kMillisecond);
BENCHMARK(CompareAlike)->Unit(benchmark::kMillisecond);
BENCHMARK(CompareWhollyDifferent)->Unit(benchmark::kMillisecond);

std::size_t InUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// The time of this thread, so that others on the machine do not count.
std::chrono::nanoseconds ThreadTime() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

// Runs events until `done` says so and returns how long an event may have had to wait: the longest
// time between two turns of the loop.
std::chrono::nanoseconds LongestHold(const std::function<bool()>& done) {
  QTimer wakes;
  wakes.start(std::chrono::milliseconds(50));
  std::chrono::nanoseconds longest{0};
  std::chrono::nanoseconds before = ThreadTime();
  while (!done()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const std::chrono::nanoseconds now = ThreadTime();
    longest = std::max(longest, now - before);
    before = now;
  }
  return longest;
}

double Milliseconds(std::chrono::nanoseconds time) {
  return static_cast<double>(time.count()) / 1e6;
}

// A window of one capture, or of two; filled, aligned, filtered, and closed.
void ViewCaptures(benchmark::State& state, const std::vector<std::string>& paths) {
  QStringList names;
  std::size_t bytes = 0;
  for (const std::string& path : paths) names += QString::fromStdString(path);
  for (int number = 0; number < kExchanges; ++number) {
    for (const log::LogEntry& row : Exchange(number, 0)) bytes += row.bytes.size();
  }
  for (auto _ : state) {
    const std::size_t before = InUse();
    auto form = std::make_unique<log::FrmView>(names);
    form->resize(1400, 800);
    form->show();
    const auto* model = form->findChild<QTableView*>("TxtView")->model();
    const auto* label = form->findChild<QLabel*>("LblView");
    const bool two = paths.size() > 1;
    const std::chrono::nanoseconds filled = LongestHold([&] {
      return model->rowCount() >= kRows && (!two || label->text().contains("differ")) &&
             !label->text().contains("\u00B7 0 lines differ");
    });
    state.counters["hold_filled_ms"] = Milliseconds(filled);
    state.PauseTiming();
    state.counters["bytes_a_row"] =
        static_cast<double>(InUse() - before - bytes * paths.size()) /
        static_cast<double>(static_cast<std::size_t>(kRows) * paths.size());
    form->findChild<QLineEdit*>("TxtViewFilter")->setText("4711A");
    QElapsedTimer filtering;
    filtering.start();
    const std::chrono::nanoseconds filtered =
        LongestHold([&] { return filtering.elapsed() > 4000; });
    state.counters["hold_filtered_ms"] = Milliseconds(filtered);
    form.reset();
    malloc_trim(0);
    state.ResumeTiming();
  }
}
void ViewOne(benchmark::State& state) { ViewCaptures(state, {Captures::All().first}); }
void ViewTwoAlike(benchmark::State& state) {
  ViewCaptures(state, {Captures::All().first, Captures::All().alike});
}
void ViewTwoWhollyDifferent(benchmark::State& state) {
  ViewCaptures(state, {Captures::All().first, Captures::All().other});
}
BENCHMARK(ViewOne)->Iterations(2)->Unit(benchmark::kMillisecond);
BENCHMARK(ViewTwoAlike)->Iterations(2)->Unit(benchmark::kMillisecond);
BENCHMARK(ViewTwoWhollyDifferent)->Iterations(2)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vantrel::bench

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
