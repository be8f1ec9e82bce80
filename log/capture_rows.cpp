// SPDX-License-Identifier: MIT

#include "log/capture_rows.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace vantrel::log {
namespace {

constexpr auto kToPrinter = protocol::Direction::kFromConsole;

}  // namespace

std::string TimeInWords(const RowTime& time) {
  if (time.kind == RowTime::Kind::kNone) return {};
  if (time.kind == RowTime::Kind::kUnanswered) return "no answer";
  const bool gap = time.kind == RowTime::Kind::kGap;
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), gap ? "%+.3f s" : "%.3f s",
                static_cast<double>(time.time.count()) / 1e6);
  std::string words = text.data();
  if (time.is_long) words += gap ? " wait" : " slow";
  return words;
}

void CaptureRows::Append(std::vector<LogEntry> rows) {
  for (LogEntry& row : rows) Add(std::move(row));
}

void CaptureRows::Add(LogEntry row) {
  if (exchange_starts_.Add(row)) {
    starts_.push_back(rows_.size());
    unanswered_.push_back(true);
    times_.push_back(0);
  } else if (starts_.empty()) {
    times_.push_back(0);
  } else {
    times_.push_back((row.time - rows_.back().time).count());
    if (row.direction != kToPrinter) {
      const LogEntry& first = rows_[starts_.back()];
      times_[starts_.back()] = (row.time - first.time).count();
      unanswered_.back() = false;
    }
  }
  rows_.push_back(std::move(row));
}

RowTime CaptureRows::TimeOf(std::size_t row) const {
  const std::chrono::microseconds time(times_.at(row));
  const auto after = std::upper_bound(starts_.begin(), starts_.end(), row);
  if (after == starts_.begin()) return {};
  const auto exchange = static_cast<std::size_t>(after - starts_.begin()) - 1;
  const bool begins = starts_[exchange] == row;
  if (begins && unanswered_[exchange]) return {RowTime::Kind::kUnanswered, time, true};
  if (begins) return {RowTime::Kind::kExchange, time, time >= kLongWait};
  const bool is_answer = rows_[row].direction != kToPrinter;
  return {RowTime::Kind::kGap, time, is_answer && time >= kLongWait};
}

}  // namespace vantrel::log
