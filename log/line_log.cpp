// SPDX-License-Identifier: MIT

#include "log/line_log.h"

#include <algorithm>
#include <ctime>

namespace vantrel::log {
namespace {

protocol::Moment MomentOf(WallTime time) {
  return std::chrono::floor<protocol::Moment>(time.time_since_epoch());
}

// The local calendar of a second. Rows of a log follow each other closely, so the latest second is
// kept.
const std::tm& LocalTime(WallTime time) {
  thread_local std::optional<std::time_t> latest;
  thread_local std::tm local{};
  // The system's clock counts nanoseconds, which end in the year 2262.
  const std::time_t seconds =
      std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count();
  // A new time zone is seen at the next second.
  if (latest != seconds) localtime_r(&seconds, &local);
  latest = seconds;
  return local;
}

int MillisecondsOf(WallTime time) {
  return static_cast<int>((time - std::chrono::floor<std::chrono::seconds>(time)).count() / 1000);
}

void AppendDigits(std::string& out, int value, int digits) {
  std::array<char, 12> text{};
  for (int i = digits - 1; i >= 0; --i, value /= 10)
    text.at(static_cast<std::size_t>(i)) = static_cast<char>('0' + value % 10);
  out.append(text.data(), static_cast<std::size_t>(digits));
}

}  // namespace

WallTime WallNow() {
  return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
}

std::span<const std::uint8_t> BytesOf(const LogEntry& entry) {
  return {reinterpret_cast<const std::uint8_t*>(entry.bytes.data()), entry.bytes.size()};
}

bool IsWholeFrame(const LogEntry& entry) {
  return protocol::KindOf(entry.direction, BytesOf(entry)) == protocol::GroupKind::kFrame &&
         protocol::PartsOf(BytesOf(entry)).check.has_value();
}

void LineLog::Append(protocol::Direction direction, std::span<const std::uint8_t> bytes,
                     WallTime now) {
  Settle(now);
  for (const std::uint8_t byte : bytes) Add(direction, byte, now);
  Trim();
}

void LineLog::Settle(WallTime now) {
  for (Sender& sender : senders_) sender.reader.Settle(MomentOf(now));
}

std::optional<WallTime> LineLog::Deadline() const {
  std::optional<protocol::Moment> deadline;
  for (const Sender& sender : senders_) {
    const auto next = sender.reader.Deadline();
    if (next && (!deadline || *next < *deadline)) deadline = next;
  }
  if (!deadline) return {};
  return WallTime(*deadline);
}

void LineLog::Finish() {
  for (Sender& sender : senders_) sender.reader.EndGroup();
}

void LineLog::Comment(std::size_t number, std::string_view comment) {
  AddLine(number, &LogEntry::comment, comment);
}

void LineLog::Remark(std::size_t number, std::string_view remark) {
  AddLine(number, &LogEntry::remark, remark);
}

void LineLog::AddLine(std::size_t number, std::string LogEntry::*told, std::string_view line) {
  if (number < first_ || number >= End()) return;
  std::string& kept = entries_[number - first_].*told;
  if (!kept.empty()) kept += '\n';
  kept += line;
}

void LineLog::Clear() {
  first_ = End();
  entries_.clear();
  bytes_ = 0;
  Finish();
}

std::size_t LineLog::Settled() const {
  std::size_t settled = End();
  for (const Sender& sender : senders_) {
    if (sender.reader.IsOpen()) settled = std::min(settled, *sender.number);
  }
  return settled;
}

std::optional<std::size_t> LineLog::Latest(protocol::Direction direction) const {
  const auto latest = senders_.at(static_cast<std::size_t>(direction)).number;
  return latest && *latest >= first_ ? latest : std::nullopt;
}

std::optional<std::size_t> LineLog::LatestFrame(protocol::Direction direction) const {
  for (std::size_t number = End(); number > first_; --number) {
    const LogEntry& entry = entries_[number - 1 - first_];
    if (entry.direction == direction && IsWholeFrame(entry)) return number - 1;
  }
  return {};
}

void LineLog::Add(protocol::Direction direction, std::uint8_t byte, WallTime now) {
  Sender& sender = senders_.at(static_cast<std::size_t>(direction));
  const protocol::FrameReader::Step step = sender.reader.Take(byte, MomentOf(now));
  if (step.begins) {
    sender.number = End();
    entries_.push_back({now, direction, {}, {}});
  }
  entries_[*sender.number - first_].bytes += static_cast<char>(byte);
  ++bytes_;
  if (step.whole && direction == protocol::Direction::kFromConsole)
    senders_.at(static_cast<std::size_t>(protocol::Direction::kFromPrinter)).reader.Overtake();
}

void LineLog::Trim() {
  while (entries_.size() > bounds_.entries || bytes_ > bounds_.bytes)
    DropBefore(first_ + std::min(entries_.size() / 8 + 1, entries_.size()));
}

void LineLog::DropBefore(std::size_t number) {
  for (; first_ < number && !entries_.empty(); ++first_) {
    bytes_ -= entries_.front().bytes.size();
    entries_.pop_front();
  }
  for (Sender& sender : senders_) {
    if (sender.number && *sender.number < first_) sender.reader.EndGroup();
  }
}

std::string DateInWords(WallTime time) {
  const std::tm& local = LocalTime(time);
  std::string text;
  // The first and the last day that a file can tell may belong to another year here.
  AppendDigits(text, std::clamp(local.tm_year + 1900, 0, 9999), 4);
  text += '-';
  AppendDigits(text, local.tm_mon + 1, 2);
  text += '-';
  AppendDigits(text, local.tm_mday, 2);
  return text;
}

std::string TimeInWords(WallTime time) {
  const std::tm& local = LocalTime(time);
  std::string text;
  AppendDigits(text, local.tm_hour, 2);
  text += ':';
  AppendDigits(text, local.tm_min, 2);
  text += ':';
  AppendDigits(text, local.tm_sec, 2);
  text += '.';
  AppendDigits(text, MillisecondsOf(time), 3);
  return text;
}

std::string_view DirectionInWords(protocol::Direction direction) {
  return direction == protocol::Direction::kFromConsole ? "received" : "sent";
}

std::string HexOf(const LogEntry& entry) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string hex;
  hex.reserve(3 * entry.bytes.size());
  for (const std::uint8_t byte : BytesOf(entry)) {
    if (!hex.empty()) hex += ' ';
    hex += kDigits[byte >> 4];
    hex += kDigits[byte & 0xF];
  }
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
  std::string words = protocol::MeaningInWords(entry.direction, BytesOf(entry));
  if (!entry.remark.empty()) words += " (" + entry.remark + ')';
  std::replace(words.begin(), words.end(), '\n', ';');
  return words;
}

std::string TextLineOf(const LogEntry& entry) {
  std::string direction(DirectionInWords(entry.direction));
  direction.resize(8, ' ');
  return DateInWords(entry.time) + ' ' + TimeInWords(entry.time) + "  " + direction + "  " +
         HexOf(entry) + "  " + MeaningOf(entry);
}

}  // namespace vantrel::log
