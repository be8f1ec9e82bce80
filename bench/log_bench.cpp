// SPDX-License-Identifier: MIT

// What does one more entry cost the log of the line and its table, with none and with a million in
// it? And what do the words of a frame cost?

#include "bench/quiet.h"
#include "dialogs/file_chooser.h"
#include "link/frame.h"
#include "log/line_recorder.h"
#include "log/log_model.h"
#include "log/log_panel.h"
#include "protocol/frame.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

namespace vantrel::bench {
namespace {

const QByteArray kFrame = QByteArray::fromHex("02210322");

// No file is asked for.
class NoFiles : public dialogs::FileChooser {
 public:
  QString SaveName(QWidget*, const QString&, const QString&, const QString&) override { return {}; }
  QString OpenName(QWidget*, const QString&, const QString&) override { return {}; }
};

// An entry into a log that holds as many as the argument says.
void AddAnEntry(benchmark::State& state) {
  log::LineLog log;
  const link::Bytes frame{0x02, 0x21, 0x03, 0x22};
  log::WallTime now{};
  for (std::int64_t i = 0; i < state.range(0); ++i)
    log.Append(protocol::Direction::kFromConsole, frame, now);
  for (auto _ : state) log.Append(protocol::Direction::kFromConsole, frame, now);
}
BENCHMARK(AddAnEntry)->Arg(0)->Arg(1000000);

// An entry that a table shown to its end follows, repainted.
void FollowAnEntry(benchmark::State& state) {
  log::LineRecorder recorder;
  for (std::int64_t i = 0; i < state.range(0); ++i)
    recorder.Record(protocol::Direction::kFromConsole, kFrame);
  log::LogModel model(recorder);
  QTableView table;
  table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table.setModel(&model);
  table.resize(900, 300);
  table.show();
  for (auto _ : state) {
    recorder.Record(protocol::Direction::kFromConsole, kFrame);
    model.CatchUp();
    table.scrollToBottom();
    table.viewport()->repaint();
  }
}
BENCHMARK(FollowAnEntry)->Arg(0)->Arg(1000000)->Unit(benchmark::kMicrosecond);

// A filter over a million entries, one of a thousand of which matches.
void FilterAMillion(benchmark::State& state) {
  log::LineRecorder recorder;
  for (int i = 0; i < 1000000; ++i)
    recorder.Record(protocol::Direction::kFromConsole,
                    i % 1000 == 0 ? QByteArray::fromHex("02510352") : kFrame);
  for (auto _ : state) {
    log::LogModel model(recorder);
    model.SetText("rear side");
    model.CatchUp();
    if (model.rowCount() != 1000) state.SkipWithError("The filter found something else.");
  }
}
BENCHMARK(FilterAMillion)->Unit(benchmark::kMillisecond);

// The longest that an event waits while a filter is set over a million entries in the log's panel,
// and while it is taken away again.
void HoldWhileFiltering(benchmark::State& state) {
  NoDialogs dialogs;
  NoFiles files;
  NoGuard guard;
  log::LineRecorder recorder;
  for (int i = 0; i < 1000000; ++i) recorder.Record(protocol::Direction::kFromConsole, kFrame);
  log::LogPanel panel(recorder, {dialogs, files, guard});
  panel.resize(1000, 300);
  panel.show();
  auto* filter = panel.findChild<QLineEdit*>("TxtLogFilter");
  auto* table = panel.findChild<QTableView*>("TxtLog");
  const auto settle = [&](int rows) {
    double longest = 0;
    QElapsedTimer since;
    QTimer beat;
    since.start();
    QObject::connect(&beat, &QTimer::timeout, &beat, [&] {
      longest = std::max(longest, static_cast<double>(since.nsecsElapsed()) / 1e6);
      since.restart();
    });
    beat.start(0);
    filter->setText(filter->text().isEmpty() ? "21h" : "");
    while (table->model()->rowCount() != rows) QApplication::processEvents();
    for (int turn = 0; turn < 10; ++turn) QApplication::processEvents();
    return longest;
  };
  for (int turn = 0; turn < 10; ++turn) QApplication::processEvents();
  double set = 0;
  double taken = 0;
  for (auto _ : state) {
    set = std::max(set, settle(1000000));
    taken = std::max(taken, settle(1000000));
  }
  state.counters["set_ms"] = set;
  state.counters["taken_ms"] = taken;
}
BENCHMARK(HoldWhileFiltering)->Iterations(3)->Unit(benchmark::kMillisecond);

void PutAFrameIntoWords(benchmark::State& state) {
  const std::string content = "A2,0,47,Test Print";
  const link::Bytes frame = protocol::FrameAround(link::Bytes(content.begin(), content.end()));
  for (auto _ : state)
    benchmark::DoNotOptimize(protocol::MeaningInWords(protocol::Direction::kFromConsole, frame));
}
BENCHMARK(PutAFrameIntoWords);

}  // namespace
}  // namespace vantrel::bench

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
