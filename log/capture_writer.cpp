// SPDX-License-Identifier: MIT

#include "log/capture_writer.h"

#include "log/pcapng.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string_view>

namespace vantrel::log {
namespace {

constexpr std::size_t kLongestOption = 65535;

void AddLittle(std::string& out, std::uint64_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> (8 * i) & 0xFF);
}

void AddBig(std::string& out, std::uint64_t value, int bytes) {
  for (int i = bytes - 1; i >= 0; --i) out += static_cast<char>(value >> (8 * i) & 0xFF);
}

void Pad(std::string& out, std::size_t length) { out.append((4 - length % 4) % 4, '\0'); }

void AddOption(std::string& out, std::uint16_t code, std::string_view value) {
  value = value.substr(0, kLongestOption);
  AddLittle(out, code, 2);
  AddLittle(out, value.size(), 2);
  out += value;
  Pad(out, value.size());
}

void AddNumber(std::string& out, std::uint16_t code, std::uint64_t value, int bytes) {
  std::string number;
  AddLittle(number, value, bytes);
  AddOption(out, code, number);
}

void EndOptions(std::string& out) { AddLittle(out, pcapng::kEndOfOptions, 4); }

// Begins a block; its length is filled in by EndBlock, which is handed what this returns.
std::size_t BeginBlock(std::string& out, std::uint32_t type) {
  const std::size_t begin = out.size();
  AddLittle(out, type, 4);
  AddLittle(out, 0, 4);
  return begin;
}

void EndBlock(std::string& out, std::size_t begin) {
  std::string length;
  AddLittle(length, out.size() - begin + 4, 4);
  out += length;
  out.replace(begin + 4, 4, length);
}

}  // namespace

std::string CaptureStart(const CapturedLine& line) {
  std::string out;
  std::size_t block = BeginBlock(out, pcapng::kSection);
  AddLittle(out, pcapng::kByteOrderMagic, 4);
  AddLittle(out, 1, 2);  // version 1.0
  AddLittle(out, 0, 2);
  AddLittle(out, ~std::uint64_t{0}, 8);  // a length that is not told
  AddOption(out, pcapng::kApplication, "vantrel " VANTREL_VERSION);
  EndOptions(out);
  EndBlock(out, block);

  block = BeginBlock(out, pcapng::kInterface);
  AddLittle(out, pcapng::kRtacSerial, 2);
  AddLittle(out, 0, 2);
  AddLittle(out, 0, 4);  // no packet is cut
  if (!line.name.empty()) AddOption(out, pcapng::kName, line.name);
  AddOption(out, pcapng::kDescription, pcapng::kOurDescription);
  if (line.speed) AddNumber(out, pcapng::kSpeed, *line.speed, 8);
  AddNumber(out, pcapng::kResolution, 6, 1);  // microseconds
  EndOptions(out);
  EndBlock(out, block);
  return out;
}

void AppendPacket(std::string& capture, const LogEntry& entry) {
  const bool to_printer = entry.direction == protocol::Direction::kFromConsole;
  const auto time = static_cast<std::uint64_t>(
      std::max<std::int64_t>(entry.time.time_since_epoch() / std::chrono::microseconds{1}, 0));
  const std::size_t length = pcapng::kRtacHeader + entry.bytes.size();

  const std::size_t block = BeginBlock(capture, pcapng::kPacket);
  AddLittle(capture, 0, 4);  // the interface
  AddLittle(capture, time >> 32, 4);
  AddLittle(capture, time & 0xFFFFFFFF, 4);
  AddLittle(capture, length, 4);
  AddLittle(capture, length, 4);
  AddBig(capture, time / 1000000, 4);
  AddBig(capture, time % 1000000, 4);
  AddBig(capture, to_printer ? pcapng::kToPrinter : pcapng::kFromPrinter, 1);
  AddBig(capture, 0, 3);
  capture += entry.bytes;
  Pad(capture, length);
  AddNumber(capture, pcapng::kFlags, to_printer ? pcapng::kOutbound : pcapng::kInbound, 4);
  if (!entry.comment.empty()) AddOption(capture, pcapng::kComment, entry.comment);
  EndOptions(capture);
  EndBlock(capture, block);
}

}  // namespace vantrel::log
