// SPDX-License-Identifier: MIT

#include "log/row_merger.h"

#include <algorithm>
#include <utility>

namespace vantrel::log {
namespace {

// Rows that wait for one before them to be complete; with more it is taken as it stands.
constexpr std::size_t kMostPending = 4096;
// So that what waits stays below the bounds of a log.
constexpr std::size_t kMostAtOnce = 65536;

}  // namespace

void RowMerger::Add(LogEntry row, std::vector<LogEntry>& rows) {
  const WallTime now = row.time;
  pending_.push_back({std::move(row), nullptr, 0});
  TakeReady(now, rows);
}

void RowMerger::Add(std::size_t line, protocol::Direction direction,
                    std::span<const std::uint8_t> bytes, WallTime time, std::string_view comment,
                    std::vector<LogEntry>& rows) {
  LineLog& log = lines_[line];
  Append(log, direction, bytes.first(1), time);
  if (!comment.empty()) log.Comment(*log.Latest(direction), comment);
  for (bytes = bytes.subspan(1); !bytes.empty();) {
    const auto part = bytes.first(std::min(bytes.size(), kMostAtOnce));
    Append(log, direction, part, time);
    bytes = bytes.subspan(part.size());
    TakeReady(time, rows);
  }
  TakeReady(time, rows);
}

void RowMerger::Finish(std::vector<LogEntry>& rows) {
  while (!pending_.empty()) TakeFirst(rows);
  lines_.clear();
}

void RowMerger::Append(LineLog& log, protocol::Direction direction,
                       std::span<const std::uint8_t> bytes, WallTime time) {
  std::size_t number = log.End();
  log.Append(direction, bytes, time);
  for (; number < log.End(); ++number) pending_.push_back({{}, &log, number});
}

void RowMerger::TakeReady(WallTime now, std::vector<LogEntry>& rows) {
  while (!pending_.empty()) {
    const Pending& first = pending_.front();
    if (first.log != nullptr) {
      first.log->Settle(now);
      if (first.number >= first.log->Settled()) {
        if (pending_.size() <= kMostPending) return;
        first.log->Finish();
      }
    }
    TakeFirst(rows);
  }
}

void RowMerger::TakeFirst(std::vector<LogEntry>& rows) {
  Pending& first = pending_.front();
  if (first.log == nullptr) {
    rows.push_back(std::move(first.row));
  } else {
    rows.push_back(first.log->At(first.number));
    first.log->DropBefore(first.number + 1);
  }
  pending_.pop_front();
}

}  // namespace vantrel::log
