// SPDX-License-Identifier: MIT

#include "log/row_text.h"

#include "log/capture_writer.h"

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace vantrel::log {
namespace {

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string field = "\"";
  for (const char character : text) {
    if (character == '"') field += '"';
    field += character;
  }
  return field + '"';
}

void AppendCsv(std::string& out, const LogEntry& entry) {
  const auto field = [&out](const std::string& text, char after = ',') {
    out += CsvField(text);
    out += after;
  };
  field(DateInWords(entry.time));
  field(TimeInWords(entry.time));
  field(std::string(DirectionInWords(entry.direction)));
  field(HexOf(entry));
  field(CharactersOf(entry));
  field(MeaningOf(entry));
  field(UtcInWords(entry.time));
  field(entry.comment, '\r');
  out += '\n';
}

bool EndsWith(std::string_view path, std::string_view ending) {
  if (path.size() < ending.size()) return false;
  path.remove_prefix(path.size() - ending.size());
  for (std::size_t i = 0; i < ending.size(); ++i) {
    const char letter =
        path[i] >= 'A' && path[i] <= 'Z' ? static_cast<char>(path[i] - 'A' + 'a') : path[i];
    if (letter != ending[i]) return false;
  }
  return true;
}

}  // namespace

std::optional<LogFormat> FormatOf(std::string_view path) {
  if (EndsWith(path, ".txt")) return LogFormat::kText;
  if (EndsWith(path, ".csv")) return LogFormat::kCsv;
  if (EndsWith(path, ".pcapng")) return LogFormat::kCapture;
  return std::nullopt;
}

std::string FileStart(LogFormat format, const CapturedLine& line) {
  if (format == LogFormat::kCapture) return CaptureStart(line);
  return format == LogFormat::kCsv ? std::string(kCsvHeading) + "\r\n" : std::string();
}

void AppendRow(std::string& out, LogFormat format, const LogEntry& entry) {
  if (format == LogFormat::kCapture) {
    AppendPacket(out, entry);
  } else if (format == LogFormat::kCsv) {
    AppendCsv(out, entry);
  } else {
    out += TextLineOf(entry);
    out += '\n';
  }
}

std::string UtcInWords(WallTime time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  std::string text = "0000-00-00T00:00:00.000000Z";
  const auto put = [&text](std::size_t first, std::size_t digits, std::int64_t number) {
    for (; digits > 0 && number > 0; number /= 10)
      text[first + --digits] = static_cast<char>('0' + number % 10);
  };
  put(0, 4, int{date.year()});
  put(5, 2, unsigned{date.month()});
  put(8, 2, unsigned{date.day()});
  put(11, 2, clock.hours().count());
  put(14, 2, clock.minutes().count());
  put(17, 2, clock.seconds().count());
  put(20, 6, clock.subseconds().count());
  return text;
}

}  // namespace vantrel::log
