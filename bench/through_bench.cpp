// SPDX-License-Identifier: MIT

// What does standing between a console and a real printer add to a byte's way? Both sides are
// pseudo-terminals here, so the time is that of the pass-through alone: one byte at a time, from
// its write on one side until it can be read on the other.

#include "log/pass_through.h"
#include "printer/line/pseudo_terminal.h"
#include "tests/support/device_user.h"

#include <benchmark/benchmark.h>

#include <poll.h>
#include <unistd.h>

namespace vantrel::bench {
namespace {

constexpr int kLongestWait = 5000;  // milliseconds

bool IsReadable(int descriptor) {
  pollfd ready{descriptor, POLLIN, 0};
  return poll(&ready, 1, kLongestWait) == 1;
}

class Line {
 public:
  int Console() const { return console_.Descriptor(); }
  int Printer() const { return printer_.Descriptor(); }

 private:
  printer::PseudoTerminal printer_;
  log::PassThrough pass_{
      printer_.DevicePath(),
      printer::MakePseudoTerminal(),
      {[](protocol::Direction, const link::Bytes&, log::WallTime) {}, [](const std::string&) {}}};
  support::DeviceUser console_{pass_.DevicePath()};
};

void SendBytes(benchmark::State& state, int from, int to) {
  const char sent = 'U';
  char received = 0;
  for (auto _ : state) {
    if (write(from, &sent, 1) != 1 || !IsReadable(to) || read(to, &received, 1) != 1) {
      state.SkipWithError("The byte did not arrive.");
      return;
    }
  }
}

void ByteToThePrinter(benchmark::State& state) {
  const Line line;
  SendBytes(state, line.Console(), line.Printer());
}
BENCHMARK(ByteToThePrinter)->UseRealTime();

void ByteToTheConsole(benchmark::State& state) {
  const Line line;
  SendBytes(state, line.Printer(), line.Console());
}
BENCHMARK(ByteToTheConsole)->UseRealTime();

}  // namespace
}  // namespace vantrel::bench

BENCHMARK_MAIN();
