#pragma once

#include "printer/frame_words.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantrel {

// A moment of the calendar, to the millisecond.
using WallTime = std::chrono::sys_time<std::chrono::milliseconds>;

// Silence after which a half frame and a run of noise are complete as they stand.
inline constexpr std::chrono::milliseconds kGroupSilence{500};

// One group of bytes: a frame from STX to block check, one control character of the printer, or
// bytes outside frames. What never became whole is a group too; no byte is left out.
struct LogEntry {
  WallTime time{};  // of its first byte
  Direction direction = Direction::kFromConsole;
  std::string bytes;  // one character a byte
};

// Everything that went over a line, in groups, in the order of their first bytes. Entries have
// numbers that stay: the first one ever is 0, and where the oldest were dropped to bound the memory
// the numbers of the others remain. Adding costs the same however many there are.
class LineLog {
 public:
  // Where either bound is passed, the oldest eighth of the entries is dropped.
  static constexpr std::size_t kMostEntries = 2'000'000;
  static constexpr std::size_t kMostBytes = std::size_t{512} << 20;
  // The longest group; a longer one goes on in the next.
  static constexpr std::size_t kLongestGroup = 65537;

  // Adds bytes as they were read or written at `now`, in any split.
  void Append(Direction direction, std::span<const std::uint8_t> bytes, WallTime now);
  // Completes groups whose silence has lasted by `now`.
  void Settle(WallTime now);
  // Forgets all entries; the numbers go on.
  void Clear();

  // The entries are [First(), End()); those in [First(), Settled()) change no more.
  std::size_t First() const { return first_; }
  std::size_t End() const { return first_ + entries_.size(); }
  std::size_t Settled() const;
  // The entry of a number in [First(), End()); throws std::out_of_range outside.
  const LogEntry& At(std::size_t number) const { return entries_.at(number - first_); }

 private:
  enum class Place { kNoise, kContent, kBlockCheck };
  // The group of a direction that may still grow.
  struct Open {
    std::size_t number = 0;
    Place place = Place::kNoise;
    WallTime last_byte{};
  };

  void Add(Direction direction, std::uint8_t byte, WallTime now);
  void Begin(Direction direction, Place place, WallTime now);
  void Trim();

  std::deque<LogEntry> entries_;
  std::size_t first_ = 0;
  std::size_t bytes_ = 0;
  std::array<std::optional<Open>, 2> open_;
};

// The columns of an entry: "10:20:30.123" in local time, "received" (by the printer) or "sent",
// "02 21 03 22", and the bytes as characters with a dot for each that is not printable.
std::string TimeInWords(WallTime time);
std::string_view DirectionInWords(Direction direction);
std::string HexOf(const LogEntry& entry);
std::string CharactersOf(const LogEntry& entry);
std::string MeaningOf(const LogEntry& entry);

// One line of text without its end: date, time, direction, hex and meaning.
std::string TextLineOf(const LogEntry& entry);
// Writes the whole log as lines of text, or as CSV (RFC 4180) with a header row. Whether the stream
// is still good tells of success.
void WriteText(std::ostream& out, const LineLog& log);
void WriteCsv(std::ostream& out, const LineLog& log);
// Saves the log, as CSV where the path ends in ".csv" and as text elsewhere. Returns an empty text,
// or why it was not saved; a file that was there is then as it was.
std::string SaveLog(const LineLog& log, const std::string& path);

}  // namespace vantrel
