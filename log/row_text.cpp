#include "log/row_text.h"

#include "log/capture_writer.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>

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
  const auto second = std::chrono::floor<std::chrono::seconds>(time);
  const std::time_t seconds = std::chrono::system_clock::to_time_t(second);
  std::tm utc{};
  gmtime_r(&seconds, &utc);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d.%06dZ", utc.tm_year + 1900,
                utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec,
                static_cast<int>((time - second).count()));
  return text.data();
}

}  // namespace vantrel::log
