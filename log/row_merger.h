// SPDX-License-Identifier: MIT
#pragma once

#include "log/line_log.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <span>
#include <string_view>
#include <vector>

namespace vantrel::log {

// Brings rows that are whole and bytes that are still to be told apart, of any number of lines,
// into the order of their first bytes. Rows are given, oldest first, when they change no more and
// none before them may.
class RowMerger {
 public:
  // Takes a row as it stands and adds what is ready to `rows`.
  void Add(LogEntry row, std::vector<LogEntry>& rows);
  // Takes bytes of a line that came at `time` and adds what is ready to `rows`. The comment goes to
  // the row that holds the first of the bytes, of which there must be one.
  void Add(std::size_t line, protocol::Direction direction, std::span<const std::uint8_t> bytes,
           WallTime time, std::string_view comment, std::vector<LogEntry>& rows);
  // Gives all rows, those that are open as they stand, and forgets the lines.
  void Finish(std::vector<LogEntry>& rows);

 private:
  // A row that was whole, or an entry of a line's log.
  struct Pending {
    LogEntry row;
    LineLog* log = nullptr;
    std::size_t number = 0;
  };

  void Append(LineLog& log, protocol::Direction direction, std::span<const std::uint8_t> bytes,
              WallTime time);
  void TakeReady(WallTime now, std::vector<LogEntry>& rows);
  void TakeFirst(std::vector<LogEntry>& rows);

  std::deque<Pending> pending_;
  std::map<std::size_t, LineLog> lines_;
};

}  // namespace vantrel::log
