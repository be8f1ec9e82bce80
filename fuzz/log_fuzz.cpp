// SPDX-License-Identifier: MIT

// Any bytes either way on a watched line, in any split: nothing crashes, no byte is lost, and every
// entry can be put into words, in one line.

#include "fuzz/target.h"
#include "log/line_log.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

// Each piece is a byte with its direction (bit 7), the time before it (bits 4 to 6) and its length
// (bits 0 to 3), and so many bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace std::chrono_literals;
  using namespace vantrel;
  log::LineLog log;
  log::WallTime now{0ms};
  std::span<const std::uint8_t> rest(data, size);
  std::size_t bytes = 0;
  while (!rest.empty()) {
    const unsigned head = rest.front();
    rest = rest.subspan(1);
    const auto piece = rest.first(std::min<std::size_t>(head & 0x0F, rest.size()));
    rest = rest.subspan(piece.size());
    now += 30ms * (head >> 4 & 0x07);
    log.Append(
        (head & 0x80) == 0 ? protocol::Direction::kFromConsole : protocol::Direction::kFromPrinter,
        piece, now);
    bytes += piece.size();
  }
  std::size_t kept = 0;
  for (std::size_t number = log.First(); number < log.End(); ++number) {
    kept += log.At(number).bytes.size();
    if (log.At(number).bytes.empty() || log::MeaningOf(log.At(number)).empty() ||
        log::TextLineOf(log.At(number)).find('\n') != std::string::npos)
      std::abort();
  }
  if (kept != bytes) std::abort();
  return 0;
}
