// What does one more entry cost the log of the line and its table, with none and with a million in
// it? And what do the words of a frame cost?

#include "link/frame.h"
#include "printer/line_recorder.h"
#include "printer/log_model.h"

#include <QApplication>
#include <QHeaderView>
#include <QTableView>
#include <benchmark/benchmark.h>

#include <string>

namespace vantrel {
namespace {

const QByteArray kFrame = QByteArray::fromHex("02210322");

// An entry into a log that holds as many as the argument says.
void AddAnEntry(benchmark::State& state) {
  LineLog log;
  const Bytes frame{0x02, 0x21, 0x03, 0x22};
  WallTime now{};
  for (std::int64_t i = 0; i < state.range(0); ++i) log.Append(Direction::kFromConsole, frame, now);
  for (auto _ : state) log.Append(Direction::kFromConsole, frame, now);
}
BENCHMARK(AddAnEntry)->Arg(0)->Arg(1000000);

// An entry that a table shown to its end follows, repainted.
void FollowAnEntry(benchmark::State& state) {
  LineRecorder recorder;
  for (std::int64_t i = 0; i < state.range(0); ++i)
    recorder.Record(Direction::kFromConsole, kFrame);
  LogModel model(recorder);
  QTableView table;
  table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table.setModel(&model);
  table.resize(900, 300);
  table.show();
  for (auto _ : state) {
    recorder.Record(Direction::kFromConsole, kFrame);
    model.CatchUp();
    table.scrollToBottom();
    table.viewport()->repaint();
  }
}
BENCHMARK(FollowAnEntry)->Arg(0)->Arg(1000000)->Unit(benchmark::kMicrosecond);

// A filter over a million entries, one of a thousand of which matches.
void FilterAMillion(benchmark::State& state) {
  LineRecorder recorder;
  for (int i = 0; i < 1000000; ++i)
    recorder.Record(Direction::kFromConsole,
                    i % 1000 == 0 ? QByteArray::fromHex("02510352") : kFrame);
  for (auto _ : state) {
    LogModel model(recorder);
    model.SetText("rear side");
    model.CatchUp();
    if (model.rowCount() != 1000) state.SkipWithError("The filter found something else.");
  }
}
BENCHMARK(FilterAMillion)->Unit(benchmark::kMillisecond);

void PutAFrameIntoWords(benchmark::State& state) {
  // "2,0,47,Test Print", and the exclusive-or of all after STX.
  const std::string data = "A2,0,47,Test Print";
  Bytes frame(data.begin(), data.end());
  frame.insert(frame.begin(), 0x02);
  frame.push_back(0x03);
  std::uint8_t check = 0;
  for (std::size_t i = 1; i < frame.size(); ++i) check ^= frame[i];
  frame.push_back(check);
  for (auto _ : state) benchmark::DoNotOptimize(MeaningInWords(Direction::kFromConsole, frame));
}
BENCHMARK(PutAFrameIntoWords);

}  // namespace
}  // namespace vantrel

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
