// SPDX-License-Identifier: MIT

// What do the pure pieces of the link cost on the longest frame that the console sends?

#include "link/common.h"
#include "link/frame.h"
#include "link/reply.h"
#include "link/status_text.h"

#include <benchmark/benchmark.h>

#include <string>

namespace vantrel::bench {
namespace {

constexpr std::size_t kLongestText = 404;  // an image of 40 lines of 5 bytes

void ConvertText(benchmark::State& state) {
  const std::string text(kLongestText, 'F');
  for (auto _ : state) benchmark::DoNotOptimize(link::StrToHex(text, link::CodePage::kWestern));
}
BENCHMARK(ConvertText);

void ComposeTheFrame(benchmark::State& state) {
  const std::string data = link::StrToHex(std::string(kLongestText, 'F'), link::CodePage::kWestern);
  for (auto _ : state) benchmark::DoNotOptimize(link::ComposeFrame("4D", data));
}
BENCHMARK(ComposeTheFrame);

void JudgeTheReply(benchmark::State& state) {
  // 06 02 21 20, 104 characters of track data, 03 and a block check that is right.
  std::string reply = "06022120";
  for (int i = 0; i < 104; ++i) reply += "32";
  reply += "0302";
  const link::Judgement judgement = link::JudgeReply(reply, "02210322");
  if (judgement != link::Judgement::kComplete) state.SkipWithError("The reply is not complete.");
  for (auto _ : state) benchmark::DoNotOptimize(link::JudgeReply(reply, "02210322"));
}
BENCHMARK(JudgeTheReply);

void PutTheReplyIntoWords(benchmark::State& state) {
  std::string reply = "06022120";
  for (int i = 0; i < 104; ++i) reply += "32";
  reply += "0302";
  for (auto _ : state)
    benchmark::DoNotOptimize(link::ReplyMeaning("First Track: ", reply, link::CodePage::kWestern));
}
BENCHMARK(PutTheReplyIntoWords);

}  // namespace
}  // namespace vantrel::bench

BENCHMARK_MAIN();
