// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/frame_reader.h"
#include "protocol/frame_words.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantrel::log {

// A moment of the calendar, to the microsecond.
using WallTime = std::chrono::sys_time<std::chrono::microseconds>;

// This moment.
WallTime WallNow();

// One group of bytes: a frame from STX to block check, one control character of the printer, or
// bytes outside frames. What never became whole is a group too; no byte is left out. A control
// character that comes after a whole command ends a reply that was cut short before that command.
struct LogEntry {
  WallTime time{};  // of its first byte
  protocol::Direction direction = protocol::Direction::kFromConsole;
  std::string bytes;  // one character a byte
  // What was told beside the bytes, UTF-8; most often empty. A comment goes into captures, a remark
  // is shown after the meaning.
  std::string comment{};
  std::string remark{};

  friend bool operator==(const LogEntry&, const LogEntry&) = default;
};

// The bytes of an entry as numbers, valid as long as the entry is.
std::span<const std::uint8_t> BytesOf(const LogEntry& entry);
// Whether an entry is a frame from STX to block check.
bool IsWholeFrame(const LogEntry& entry);

// What a log keeps at the most; where either bound is passed, the oldest eighth of the entries is
// dropped, and again while it still is.
struct LogBounds {
  std::size_t entries = 2'000'000;
  std::size_t bytes = std::size_t{512} << 20;
};

// Everything that went over a line, in groups, in the order of their first bytes. Entries have
// numbers that stay: the first one ever is 0, and where the oldest were dropped to bound the memory
// the numbers of the others remain. Adding costs the same however many there are.
class LineLog {
 public:
  // The longest group; a longer one goes on in the next.
  static constexpr std::size_t kLongestGroup = protocol::kLongestGroup;

  explicit LineLog(LogBounds bounds = {}) : bounds_(bounds) {}

  // Adds bytes as they were read or written at `now`, in any split.
  void Append(protocol::Direction direction, std::span<const std::uint8_t> bytes, WallTime now);
  // Completes groups whose silence has lasted by `now`.
  void Settle(WallTime now);
  // When the next group is complete if nothing more comes; nothing while none is open.
  std::optional<WallTime> Deadline() const;
  // Completes all groups as they stand.
  void Finish();
  // Adds a comment to an entry; one that has a comment keeps it, on a line before. Nothing happens
  // where the number is outside [First(), End()).
  void Comment(std::size_t number, std::string_view comment);
  // The same with a remark.
  void Remark(std::size_t number, std::string_view remark);
  // Forgets the entries before a number.
  void DropBefore(std::size_t number);
  // Forgets all entries; the numbers go on.
  void Clear();

  // The entries are [First(), End()); those in [First(), Settled()) change no more.
  std::size_t First() const { return first_; }
  std::size_t End() const { return first_ + entries_.size(); }
  std::size_t Settled() const;
  // The number of the entry that holds a direction's latest byte; nothing where none does.
  std::optional<std::size_t> Latest(protocol::Direction direction) const;
  // The number of the latest whole frame of a direction; nothing where the log holds none.
  std::optional<std::size_t> LatestFrame(protocol::Direction direction) const;
  // The entry of a number in [First(), End()); throws std::out_of_range outside.
  const LogEntry& At(std::size_t number) const { return entries_.at(number - first_); }

 private:
  // One end of the line, and the number of the entry that holds its latest byte.
  struct Sender {
    explicit Sender(protocol::Direction direction) : reader(direction) {}

    protocol::FrameReader reader;
    std::optional<std::size_t> number;
  };

  void Add(protocol::Direction direction, std::uint8_t byte, WallTime now);
  void AddLine(std::size_t number, std::string LogEntry::*told, std::string_view line);
  void Trim();

  LogBounds bounds_;
  std::deque<LogEntry> entries_;
  std::size_t first_ = 0;
  std::size_t bytes_ = 0;
  // By direction.
  std::array<Sender, 2> senders_{Sender(protocol::Direction::kFromConsole),
                                 Sender(protocol::Direction::kFromPrinter)};
};

// The columns of an entry: "2026-01-02" and "10:20:30.123" in local time, "received" (by the
// printer) or "sent", "02 21 03 22", and the bytes as characters with a dot for each that is not
// printable.
std::string DateInWords(WallTime time);
std::string TimeInWords(WallTime time);
std::string_view DirectionInWords(protocol::Direction direction);
std::string HexOf(const LogEntry& entry);
std::string CharactersOf(const LogEntry& entry);
std::string MeaningOf(const LogEntry& entry);

// One line of text without its end: date, time, direction, hex and meaning.
std::string TextLineOf(const LogEntry& entry);

}  // namespace vantrel::log
