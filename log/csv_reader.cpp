// SPDX-License-Identifier: MIT

#include "log/csv_reader.h"

#include "log/row_text.h"
#include "protocol/fields.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace vantrel::log {
namespace {

using protocol::HexDigitOf;
using protocol::NumberOf;

enum Column { kDate, kTime, kDirection, kHex, kCharacters, kMeaning, kUtc, kComment, kColumns };

// Parts of a record, RFC 4180; nothing at the end of the file. `broken` where it ends in quotes or
// goes on after them. `lines` grows by the ends of line that were read.
std::optional<std::vector<std::string>> NextRecord(std::istream& in, std::size_t& lines,
                                                   bool& broken) {
  std::vector<std::string> fields(1);
  bool quoted = false;
  bool closed = false;
  bool any = false;
  for (int next = in.get(); next != std::istream::traits_type::eof(); next = in.get()) {
    const char character = static_cast<char>(next);
    any = true;
    if (character == '\n') ++lines;
    if (quoted) {
      if (character != '"') {
        fields.back() += character;
      } else if (in.peek() == '"') {
        fields.back() += static_cast<char>(in.get());
      } else {
        quoted = false;
        closed = true;
      }
    } else if (character == ',') {
      fields.emplace_back();
      closed = false;
    } else if (character == '\n') {
      return fields;
    } else if (character == '\r' && in.peek() == '\n') {
      continue;
    } else if (character == '"' && fields.back().empty() && !closed) {
      quoted = true;
    } else {
      broken = broken || closed;
      fields.back() += character;
    }
  }
  broken = broken || quoted;
  if (!any) return std::nullopt;
  return fields;
}

std::string WithoutMark(std::string line) {
  if (line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

// The number that stands at a place of a text of fixed places; nothing for anything but digits.
std::optional<int> At(std::string_view text, std::size_t at, std::size_t digits) {
  return NumberOf(text.substr(at, digits), 999999);
}

// The parts of a text as "2026-11-21", "13:00:05", whose places 'd' stands for.
bool HasForm(std::string_view text, std::string_view form) {
  if (text.size() != form.size()) return false;
  for (std::size_t i = 0; i < form.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (form[i] == 'd' ? !digit : text[i] != form[i]) return false;
  }
  return true;
}

// Seconds of a calendar's day and time; nothing where there is no such moment.
std::optional<std::chrono::sys_seconds> Calendar(std::string_view date, std::string_view time) {
  const std::chrono::year_month_day day(std::chrono::year{*At(date, 0, 4)},
                                        std::chrono::month{static_cast<unsigned>(*At(date, 5, 2))},
                                        std::chrono::day{static_cast<unsigned>(*At(date, 8, 2))});
  const int hour = *At(time, 0, 2);
  const int minute = *At(time, 3, 2);
  const int second = *At(time, 6, 2);
  if (!day.ok() || hour > 23 || minute > 59 || second > 60) return std::nullopt;
  return std::chrono::sys_days(day) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
         std::chrono::seconds(second);
}

std::optional<WallTime> UtcTime(std::string_view text) {
  if (!HasForm(text, "dddd-dd-ddTdd:dd:dd.ddddddZ")) return std::nullopt;
  const auto seconds = Calendar(text.substr(0, 10), text.substr(11, 8));
  if (!seconds) return std::nullopt;
  return *seconds + std::chrono::microseconds(*At(text, 20, 6));
}

std::optional<WallTime> LocalTime(std::string_view date, std::string_view time) {
  if (!HasForm(date, "dddd-dd-dd") || !HasForm(time, "dd:dd:dd.ddd")) return std::nullopt;
  if (!Calendar(date, time)) return std::nullopt;
  std::tm local{};
  local.tm_year = *At(date, 0, 4) - 1900;
  local.tm_mon = *At(date, 5, 2) - 1;
  local.tm_mday = *At(date, 8, 2);
  local.tm_hour = *At(time, 0, 2);
  local.tm_min = *At(time, 3, 2);
  local.tm_sec = *At(time, 6, 2);
  local.tm_isdst = -1;
  const std::time_t seconds = std::mktime(&local);
  return WallTime(std::chrono::seconds(seconds)) + std::chrono::milliseconds(*At(time, 9, 3));
}

std::optional<std::string> BytesIn(std::string_view hex) {
  std::string bytes;
  for (std::size_t at = 0; at < hex.size(); at += 3) {
    if (at + 2 > hex.size() || (at + 2 < hex.size() && hex[at + 2] != ' ')) return std::nullopt;
    const auto high = HexDigitOf(hex[at]);
    const auto low = HexDigitOf(hex[at + 1]);
    if (!high || !low) return std::nullopt;
    bytes += static_cast<char>(*high * 16 + *low);
  }
  if (bytes.empty() || hex.back() == ' ') return std::nullopt;
  return bytes;
}

// Whether a file can tell of a moment: local times and leap seconds lead to some past the last
// year.
bool IsTold(WallTime time) {
  using std::chrono::January;
  constexpr std::chrono::sys_days kFirst(std::chrono::year{0} / January / 1);
  constexpr std::chrono::sys_days kEnd(std::chrono::year{10000} / January / 1);
  return time >= kFirst && time < kEnd;
}

std::optional<LogEntry> EntryOf(const std::vector<std::string>& fields) {
  const bool has_utc = fields.size() == kColumns;
  const auto time = has_utc ? UtcTime(fields[kUtc]) : LocalTime(fields[kDate], fields[kTime]);
  const auto bytes = BytesIn(fields[kHex]);
  const bool received = fields[kDirection] == "received";
  if (!time || !IsTold(*time) || !bytes || (!received && fields[kDirection] != "sent"))
    return std::nullopt;
  return LogEntry{*time,
                  received ? protocol::Direction::kFromConsole : protocol::Direction::kFromPrinter,
                  *bytes, has_utc ? fields[kComment] : std::string()};
}

}  // namespace

bool IsCsvLog(const std::string& path) {
  // What is read of a pipe is gone.
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return false;
  std::ifstream in(path, std::ios::binary);
  std::string start(kCsvHeading.size() + 8, '\0');
  in.read(start.data(), static_cast<std::streamsize>(start.size()));
  start.resize(static_cast<std::size_t>(in.gcount()));
  const std::string heading = WithoutMark(start.substr(0, start.find('\n')));
  return heading == kCsvHeading || heading == kOldCsvHeading;
}

std::vector<LogEntry> ReadCsvLog(std::istream& in, const std::string& name) {
  std::string heading;
  std::getline(in, heading);
  const std::size_t columns = WithoutMark(heading) == kCsvHeading ? kColumns : kUtc;
  std::vector<LogEntry> rows;
  std::size_t line = 2;
  bool broken = false;
  for (std::size_t next = line; auto fields = NextRecord(in, next, broken); line = next) {
    const auto entry =
        fields->size() == columns && !broken ? EntryOf(*fields) : std::optional<LogEntry>();
    if (!entry)
      throw std::runtime_error(name + " has no row of a log in line " + std::to_string(line) + '.');
    rows.push_back(*entry);
  }
  if (in.bad()) throw std::runtime_error(name + " cannot be read.");
  return rows;
}

}  // namespace vantrel::log
