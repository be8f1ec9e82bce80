// What does one more entry cost the log of the line and its table, with none and with a million in
// it? And what do the words of a frame cost?

#include "link/frame.h"
#include "log/line_recorder.h"
#include "log/log_model.h"
#include "protocol/frame.h"

#include <QApplication>
#include <QHeaderView>
#include <QTableView>
#include <benchmark/benchmark.h>

#include <string>

namespace vantrel::bench {
namespace {

const QByteArray kFrame = QByteArray::fromHex("02210322");

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
