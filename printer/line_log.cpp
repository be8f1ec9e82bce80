#include "printer/line_log.h"

#include "link/frame.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <ostream>

namespace vantrel {
namespace {

constexpr std::uint8_t kStx = 0x02;
constexpr std::uint8_t kEtx = 0x03;

// The printer's control characters stand alone.
bool IsControl(Direction direction, std::uint8_t byte) {
  return direction == Direction::kFromPrinter && (byte == 0x06 || byte == 0x15 || byte == 0x10);
}

std::tm LocalTime(WallTime time) {
  const std::time_t seconds =
      std::chrono::system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(time));
  std::tm local{};
  localtime_r(&seconds, &local);
  return local;
}

int MillisecondsOf(WallTime time) {
  return static_cast<int>((time - std::chrono::floor<std::chrono::seconds>(time)).count());
}

std::string DateInWords(WallTime time) {
  const std::tm local = LocalTime(time);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", local.tm_year + 1900, local.tm_mon + 1,
                local.tm_mday);
  return text.data();
}

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string field = "\"";
  for (const char character : text) {
    if (character == '"') field += '"';
    field += character;
  }
  return field + '"';
}

}  // namespace

void LineLog::Append(Direction direction, std::span<const std::uint8_t> bytes, WallTime now) {
  Settle(now);
  for (const std::uint8_t byte : bytes) Add(direction, byte, now);
  Trim();
}

void LineLog::Settle(WallTime now) {
  for (auto& open : open_) {
    if (open && now - open->last_byte >= kGroupSilence) open.reset();
  }
}

void LineLog::Clear() {
  first_ = End();
  entries_.clear();
  bytes_ = 0;
  open_ = {};
}

std::size_t LineLog::Settled() const {
  std::size_t settled = End();
  for (const auto& open : open_) {
    if (open) settled = std::min(settled, open->number);
  }
  return settled;
}

void LineLog::Add(Direction direction, std::uint8_t byte, WallTime now) {
  auto& open = open_.at(static_cast<std::size_t>(direction));
  const bool in_frame = open && open->place != Place::kNoise;
  if (open && open->place == Place::kBlockCheck) {
    // Whatever it is, STX included, the byte after ETX is the block check.
  } else if (byte == kStx) {
    Begin(direction, Place::kContent, now);
  } else if (!in_frame && IsControl(direction, byte)) {
    Begin(direction, Place::kNoise, now);
  } else if (!open) {
    Begin(direction, Place::kNoise, now);
  }
  LogEntry& entry = entries_[open->number - first_];
  entry.bytes += static_cast<char>(byte);
  ++bytes_;
  open->last_byte = now;
  if (open->place == Place::kBlockCheck || entry.bytes.size() >= kLongestGroup ||
      (open->place == Place::kNoise && IsControl(direction, byte)))
    open.reset();
  else if (open->place == Place::kContent && byte == kEtx)
    open->place = Place::kBlockCheck;
}

void LineLog::Begin(Direction direction, Place place, WallTime now) {
  open_.at(static_cast<std::size_t>(direction)) = Open{End(), place, now};
  entries_.push_back({now, direction, {}});
}

void LineLog::Trim() {
  if (entries_.size() <= kMostEntries && bytes_ <= kMostBytes) return;
  for (std::size_t left = entries_.size() / 8 + 1; left > 0 && !entries_.empty(); --left) {
    bytes_ -= entries_.front().bytes.size();
    entries_.pop_front();
    ++first_;
  }
  for (auto& open : open_) {
    if (open && open->number < first_) open.reset();
  }
}

std::string TimeInWords(WallTime time) {
  const std::tm local = LocalTime(time);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%02d:%02d:%02d.%03d", local.tm_hour, local.tm_min,
                local.tm_sec, MillisecondsOf(time));
  return text.data();
}

std::string_view DirectionInWords(Direction direction) {
  return direction == Direction::kFromConsole ? "received" : "sent";
}

std::string HexOf(const LogEntry& entry) {
  std::string hex = SpacedPairs(HexTextOf(Bytes(entry.bytes.begin(), entry.bytes.end())));
  if (!hex.empty()) hex.pop_back();
  return hex;
}

std::string CharactersOf(const LogEntry& entry) {
  std::string characters = entry.bytes;
  for (char& character : characters) {
    if (character < 0x20 || character > 0x7E) character = '.';
  }
  return characters;
}

std::string MeaningOf(const LogEntry& entry) {
  return MeaningInWords(entry.direction, {reinterpret_cast<const std::uint8_t*>(entry.bytes.data()),
                                          entry.bytes.size()});
}

std::string TextLineOf(const LogEntry& entry) {
  std::string direction(DirectionInWords(entry.direction));
  direction.resize(8, ' ');
  return DateInWords(entry.time) + ' ' + TimeInWords(entry.time) + "  " + direction + "  " +
         HexOf(entry) + "  " + MeaningOf(entry);
}

void WriteText(std::ostream& out, const LineLog& log) {
  for (std::size_t number = log.First(); number < log.End() && out; ++number)
    out << TextLineOf(log.At(number)) << '\n';
}

void WriteCsv(std::ostream& out, const LineLog& log) {
  out << "Date,Time,Direction,Hex,Characters,Meaning\r\n";
  for (std::size_t number = log.First(); number < log.End() && out; ++number) {
    const LogEntry& entry = log.At(number);
    out << DateInWords(entry.time) << ',' << TimeInWords(entry.time) << ','
        << DirectionInWords(entry.direction) << ',' << HexOf(entry) << ','
        << CsvField(CharactersOf(entry)) << ',' << CsvField(MeaningOf(entry)) << "\r\n";
  }
}

std::string SaveLog(const LineLog& log, const std::string& path) {
  const std::string part = path + ".part";
  errno = 0;
  std::ofstream file(part, std::ios::binary);
  if (path.ends_with(".csv") || path.ends_with(".CSV"))
    WriteCsv(file, log);
  else
    WriteText(file, log);
  file.close();
  if (file && std::rename(part.c_str(), path.c_str()) == 0) return {};
  const int error = errno;
  std::remove(part.c_str());
  return path + " was not saved: " + std::strerror(error) + '.';
}

}  // namespace vantrel
