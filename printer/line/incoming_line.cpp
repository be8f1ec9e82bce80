// SPDX-License-Identifier: MIT

#include "printer/line/incoming_line.h"

#include "protocol/control.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace vantrel::printer {
namespace {

// So that who waits for room does not wait for the end of a long frame, and who watches the line
// does not take a slow one for silent.
constexpr std::size_t kLongestRun = 512;
constexpr std::int64_t kRunsASecond = 4;
constexpr std::int64_t kBitsPerByte = 10;
constexpr std::int64_t kSecond = 1000000000;    // nanoseconds
constexpr std::int64_t kMillisecond = 1000000;  // nanoseconds

}  // namespace

protocol::Moment IncomingLine::Run::ArrivalOf(std::size_t index) const {
  const std::int64_t time = start + static_cast<std::int64_t>(index + 1) * byte_time;
  return protocol::Moment{(time + kMillisecond - 1) / kMillisecond};
}

void IncomingLine::Put(std::span<const std::uint8_t> bytes, protocol::Moment now, bool misheard) {
  bytes = bytes.first(std::min(bytes.size(), kMostUnheard - std::min(waiting_, kMostUnheard)));
  const std::int64_t byte_time = speed_ > 0 ? kBitsPerByte * kSecond / speed_ : 0;
  busy_until_ = std::max(busy_until_, std::chrono::nanoseconds(now).count());
  waiting_ += bytes.size();
  while (!bytes.empty()) {
    const auto run = bytes.first(LengthOfRun(bytes));
    check_is_next_ = run.back() == protocol::kEtx;
    runs_.push_back({{run.begin(), run.end()}, busy_until_, byte_time, misheard});
    busy_until_ += static_cast<std::int64_t>(run.size()) * byte_time;
    bytes = bytes.subspan(run.size());
  }
}

std::size_t IncomingLine::LengthOfRun(std::span<const std::uint8_t> bytes) const {
  // Without a speed all arrives at once.
  if (speed_ == 0) return bytes.size();
  if (check_is_next_) return 1;
  const auto longest =
      static_cast<std::size_t>(std::max(speed_ / kBitsPerByte / kRunsASecond, std::int64_t{1}));
  const std::size_t most = std::min({bytes.size(), longest, kLongestRun});
  // No further than the run may go: of very many bytes each would be looked at for every run.
  const auto start = bytes.first(most);
  const auto etx = std::find(start.begin(), start.end(), protocol::kEtx);
  return std::min(static_cast<std::size_t>(etx - start.begin()) + 2, most);
}

std::vector<IncomingLine::Part> IncomingLine::Take(protocol::Moment now) {
  std::vector<Part> parts;
  while (!runs_.empty()) {
    Run& run = runs_.front();
    for (; run.taken < run.bytes.size() && run.ArrivalOf(run.taken) <= now; ++run.taken) {
      const protocol::Moment when = run.ArrivalOf(run.taken);
      if (parts.empty() || parts.back().when != when || parts.back().is_misheard != run.is_misheard)
        parts.push_back({{}, when, run.is_misheard});
      parts.back().bytes.push_back(run.bytes[run.taken]);
      --waiting_;
    }
    if (run.taken < run.bytes.size()) break;
    runs_.pop_front();
  }
  return parts;
}

std::optional<protocol::Moment> IncomingLine::Deadline() const {
  if (runs_.empty()) return std::nullopt;
  return runs_.front().ArrivalOf(runs_.front().bytes.size() - 1);
}

void IncomingLine::Clear() {
  runs_.clear();
  waiting_ = 0;
  busy_until_ = 0;
  check_is_next_ = false;
}

}  // namespace vantrel::printer
