// SPDX-License-Identifier: MIT

#include "log/capture_reader.h"

#include "log/capture_time.h"
#include "log/pcapng.h"

#include <algorithm>
#include <utility>

namespace vantrel::log {
namespace {

constexpr std::size_t kMostInterfaces = 65536;
constexpr std::uint32_t kDirectionFlags = 3;

std::string TextOf(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool IsReadable(std::uint16_t link_type) {
  return link_type == pcapng::kRtacSerial || link_type == pcapng::kUserDefined;
}

// "1 packet is broken", "2 packets are broken".
std::string Packets(std::size_t count, const char* one, const char* more) {
  return count == 1 ? std::string("1 packet ") + one : std::to_string(count) + " packets " + more;
}

}  // namespace

void CaptureReader::Feed(std::span<const std::uint8_t> bytes, std::vector<LogEntry>& rows) {
  blocks_.Feed(bytes);
  while (const auto block = blocks_.Next()) Take(*block, rows);
}

void CaptureReader::End(std::vector<LogEntry>& rows) {
  merger_.Finish(rows);
  blocks_.End();
}

std::vector<std::string> CaptureReader::Damage() const {
  std::vector<std::string> damage;
  if (broken_ > 0)
    damage.push_back("holds " + Packets(broken_, "that is broken", "that are broken"));
  if (cut_ > 0)
    damage.push_back("holds " + Packets(cut_, "that was cut short when it was captured",
                                        "that were cut short when they were captured"));
  if (without_direction_ > 0)
    damage.push_back("holds " + Packets(without_direction_, "that tells no direction",
                                        "that tell no direction"));
  if (odd_times_ > 0)
    damage.push_back(
        "holds " + Packets(odd_times_, "with a time that cannot be", "with times that cannot be"));
  if (broken_others_ > 0) damage.emplace_back("holds a broken description of itself");
  if (unknown_sections_ > 0) damage.emplace_back("holds a section of an unknown version");
  if (!blocks_.Damage().empty()) damage.push_back(blocks_.Damage());
  return damage;
}

std::vector<std::string> CaptureReader::Notes() const {
  if (foreign_interfaces_ == 0) return {};
  const std::string interfaces = foreign_interfaces_ == 1 ? "1 interface of another link type"
                                                          : std::to_string(foreign_interfaces_) +
                                                                " interfaces of other link types";
  return {"holds " + interfaces + ", passed over with " +
          Packets(foreign_packets_, "on it", foreign_interfaces_ == 1 ? "on it" : "on them")};
}

void CaptureReader::Take(const Block& block, std::vector<LogEntry>& rows) {
  const Fields fields(block.body, block.big_endian);
  if (block.type == pcapng::kSection) {
    merger_.Finish(rows);
    return TakeSection(fields);
  }
  if (!is_known_section_) return;
  if (block.type == pcapng::kInterface)
    TakeInterface(fields);
  else if (block.type == pcapng::kSimplePacket)
    TakeSimplePacket(fields, rows);
  else
    TakePacket(fields, block.type, rows);
}

void CaptureReader::TakeSection(Fields fields) {
  interfaces_.clear();
  fields.U32();  // the byte order
  is_known_section_ = fields.U16() == 1;
  if (!is_known_section_) ++unknown_sections_;
}

void CaptureReader::TakeInterface(Fields fields) {
  if (interfaces_.size() >= kMostInterfaces) {
    ++broken_others_;
    return;
  }
  Interface& interface = interfaces_.emplace_back();
  CapturedLine line;
  bool broken = fields.Left() < 8;
  interface.link_type = fields.U16();
  fields.U16();
  interface.longest = fields.U32();
  const bool big_endian = fields.IsBigEndian();
  while (const auto option = NextOption(fields, broken)) {
    Fields value(option->value, big_endian);
    if (option->code == pcapng::kName)
      line.name = TextOf(option->value);
    else if (option->code == pcapng::kDescription)
      interface.is_ours = TextOf(option->value) == pcapng::kOurDescription;
    else if (option->code == pcapng::kSpeed && value.Left() == 8)
      line.speed = value.U64();
    else if (option->code == pcapng::kResolution && value.Left() == 1)
      interface.resolution = option->value.front();
    else if (option->code == pcapng::kTimeOffset && value.Left() == 8)
      interface.time_offset = static_cast<std::int64_t>(value.U64());
  }
  if (broken) ++broken_others_;
  if (!IsReadable(interface.link_type))
    ++foreign_interfaces_;
  else if (!line_)
    line_ = std::move(line);
}

void CaptureReader::TakePacket(Fields fields, std::uint32_t type, std::vector<LogEntry>& rows) {
  const bool is_old = type == pcapng::kOldPacket;
  const std::size_t number = is_old ? fields.U16() : fields.U32();
  if (is_old) fields.U16();  // packets lost before it
  std::uint64_t ticks = std::uint64_t{fields.U32()} << 32;
  ticks |= fields.U32();
  const std::uint32_t kept = fields.U32();
  const std::uint32_t length = fields.U32();
  const auto data = fields.Padded(kept);
  if (number >= interfaces_.size() || !data) {
    ++broken_;
    return;
  }
  const Interface& interface = interfaces_[number];
  if (!IsReadable(interface.link_type)) {
    ++foreign_packets_;
    return;
  }
  Packet packet;
  packet.data = *data;
  packet.time = PacketTime(ticks, interface.resolution, interface.time_offset);
  if (!packet.time) ++odd_times_;
  if (kept < length) ++cut_;
  TakePacketOptions(fields, packet);
  TakeData(number, packet, rows);
}

void CaptureReader::TakeSimplePacket(Fields fields, std::vector<LogEntry>& rows) {
  if (interfaces_.empty()) {
    ++broken_;
    return;
  }
  const Interface& interface = interfaces_.front();
  if (!IsReadable(interface.link_type)) {
    ++foreign_packets_;
    return;
  }
  const std::uint32_t length = fields.U32();
  const std::uint32_t kept = interface.longest > 0 ? std::min(length, interface.longest) : length;
  const auto data = fields.Padded(kept);
  if (!data) {
    ++broken_;
    return;
  }
  if (kept < length) ++cut_;
  Packet packet;
  packet.data = *data;
  // It has no time of its own; the header of its link type has one.
  Fields header(packet.data, true);
  if (interface.link_type == pcapng::kRtacSerial && header.Left() >= pcapng::kRtacHeader) {
    const std::uint64_t seconds = header.U32();
    packet.time = PacketTime(seconds * 1000000 + header.U32(), 6, 0);
  }
  TakeData(0, packet, rows);
}

void CaptureReader::TakePacketOptions(Fields& fields, Packet& packet) {
  bool broken = false;
  const bool big_endian = fields.IsBigEndian();
  while (const auto option = NextOption(fields, broken)) {
    if (option->code == pcapng::kFlags && option->value.size() == 4)
      packet.flags = Fields(option->value, big_endian).U32();
    else if (option->code == pcapng::kComment)
      packet.comment += (packet.comment.empty() ? "" : "\n") + TextOf(option->value);
  }
  if (broken) ++broken_;
}

void CaptureReader::TakeData(std::size_t number, const Packet& packet,
                             std::vector<LogEntry>& rows) {
  const Interface& interface = interfaces_[number];
  std::span<const std::uint8_t> bytes = packet.data;
  std::uint32_t direction = packet.flags & kDirectionFlags;
  if (interface.link_type == pcapng::kRtacSerial) {
    if (bytes.size() < pcapng::kRtacHeader) {
      ++broken_;
      return;
    }
    const std::uint8_t event = bytes[pcapng::kRtacEvent];
    if (event != pcapng::kToPrinter && event != pcapng::kFromPrinter) return;
    direction = event == pcapng::kToPrinter ? pcapng::kOutbound : pcapng::kInbound;
    bytes = bytes.subspan(pcapng::kRtacHeader);
  }
  if (bytes.empty()) return;
  if (direction != pcapng::kOutbound && direction != pcapng::kInbound) {
    ++without_direction_;
    return;
  }
  const auto from = direction == pcapng::kOutbound ? protocol::Direction::kFromConsole
                                                   : protocol::Direction::kFromPrinter;
  const WallTime time = packet.time.value_or(WallTime{});
  if (interface.is_ours)
    merger_.Add({time, from, TextOf(bytes), packet.comment}, rows);
  else
    merger_.Add(number, from, bytes, time, packet.comment, rows);
}

}  // namespace vantrel::log
