// SPDX-License-Identifier: MIT
#pragma once

#include "log/exchange_starts.h"
#include "log/line_log.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace vantrel::log {

// A wait for an answer from which on it stands out.
inline constexpr std::chrono::microseconds kLongWait{1'000'000};

// What the time of a row tells.
struct RowTime {
  enum class Kind {
    kNone,        // before the first exchange
    kExchange,    // the row begins an exchange: how long that took
    kUnanswered,  // the row begins an exchange to which the printer said nothing
    kGap,         // after the row before it
  };
  Kind kind = Kind::kNone;
  std::chrono::microseconds time{0};
  bool is_long = false;  // the exchange, or the wait for this answer, took kLongWait or more
};

// "0.705 s", "2.310 s slow", "no answer" for a row that begins an exchange; "+0.002 s",
// "+2.310 s wait" for others; empty for none.
std::string TimeInWords(const RowTime& time);

// The rows of a capture and the exchanges that they belong to, which begin where ExchangeStarts
// tells; rows before the first belong to none.
class CaptureRows {
 public:
  // Adds rows behind those that are there.
  void Append(std::vector<LogEntry> rows);
  void Clear() { *this = CaptureRows(); }

  std::size_t Size() const { return rows_.size(); }
  // Both throw std::out_of_range where there is no such row.
  const LogEntry& At(std::size_t row) const { return rows_.at(row); }
  RowTime TimeOf(std::size_t row) const;
  // The rows that begin the exchanges, in order.
  const std::vector<std::size_t>& Starts() const { return starts_; }

 private:
  void Add(LogEntry row);

  std::deque<LogEntry> rows_;
  // For each row the microseconds that TimeOf tells.
  std::deque<std::int64_t> times_;
  ExchangeStarts exchange_starts_;
  std::vector<std::size_t> starts_;
  std::deque<bool> unanswered_;  // by exchange
};

}  // namespace vantrel::log
