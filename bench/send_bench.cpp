// SPDX-License-Identifier: MIT

// How soon is the first byte on the line, what does an exchange cost beyond the tick of the wait,
// and what do the frames of a full-face picture cost? A peer on a pseudo-terminal answers 58h at
// once from a thread of its own.

#include "bench/peer.h"
#include "send/job.h"
#include "send/line_port.h"
#include "send/sender.h"
#include "send/table.h"

#include <benchmark/benchmark.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

namespace vantrel::bench {
namespace {

using SteadyClock = std::chrono::steady_clock;

void FromStartToFirstByte(benchmark::State& state) {
  const Peer peer;
  std::vector<std::string> words = {
      VANTREL_SEND_PROGRAM, "--port", peer.Device(), "--expect", "20", "--quiet", "58"};
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", 1, 0);
  for (auto _ : state) {
    pid_t process = 0;
    int status = 0;
    const auto start = SteadyClock::now();
    if (posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ) != 0 ||
        waitpid(process, &status, 0) != process || status != 0) {
      state.SkipWithError("vantrel-send failed");
      break;
    }
    state.SetIterationTime(std::chrono::duration<double>(peer.Heard() - start).count());
  }
  posix_spawn_file_actions_destroy(&actions);
}
// The median of many is told, which what else the machine does moves least.
BENCHMARK(FromStartToFirstByte)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(100)
    ->ReportAggregatesOnly();

// The wait looks every ten milliseconds, so an exchange that is answered at once takes these and
// what is measured here.
void ExchangeBeyondTheTick(benchmark::State& state) {
  constexpr double kTick = 0.010;  // seconds
  const Peer peer;
  send::PollClock clock;
  send::LinePort port(peer.Device(), 9600, clock);
  send::Sender sender(port, clock, link::CodePage::kWestern);
  port.Open();
  for (auto _ : state) {
    const auto start = SteadyClock::now();
    if (!sender.Send("0258035B", 1000).status) state.SkipWithError("there is no reply");
    state.SetIterationTime(std::chrono::duration<double>(SteadyClock::now() - start).count() -
                           kTick);
  }
}
BENCHMARK(ExchangeBeyondTheTick)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(1)
    ->Repetitions(200)
    ->ReportAggregatesOnly();

void ComposeAFullFacesPicture(benchmark::State& state) {
  send::Picture picture;
  picture.width = 480;
  picture.height = 320;
  for (int i = 0; i < 480 * 320; ++i)
    picture.grey.push_back(static_cast<std::uint8_t>(i * 7 % 256));
  picture.alpha.assign(picture.grey.size(), 255);
  const send::Means means{
      .read_picture = [&](const std::string&, const send::PictureLimits&) { return picture; }};
  const std::vector<std::string> words = {"4D", "--dither", "--picture", "p"};
  const commandline::Parsed parsed = commandline::Parse(send::SendTable(), words);
  for (auto _ : state) {
    const send::Job job = send::Compose(parsed, means);
    if (job.frames.size() != 96) state.SkipWithError("these are not all frames");
  }
}
BENCHMARK(ComposeAFullFacesPicture)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vantrel::bench

BENCHMARK_MAIN();
