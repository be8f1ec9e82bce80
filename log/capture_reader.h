// SPDX-License-Identifier: MIT
#pragma once

#include "log/block_reader.h"
#include "log/captured_line.h"
#include "log/line_log.h"
#include "log/row_merger.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::log {

// Makes rows of the bytes of a pcapng file as they come, in any split: of link type 250 (RTAC
// serial) and of 147, where a packet's flags tell its direction. On an interface with our
// description each packet is a row; the bytes of others are told apart as those of a line are, by
// the packets' times. Memory is bounded, whatever the bytes are.
class CaptureReader {
 public:
  // Adds the rows that these bytes make whole. Throws std::runtime_error, a sentence without its
  // subject and its dot ("is no capture"), where they begin no pcapng file.
  void Feed(std::span<const std::uint8_t> bytes, std::vector<LogEntry>& rows);
  // To be called after the last byte: adds the rows that are still open, as they stand.
  void End(std::vector<LogEntry>& rows);

  // What could not be read, each a sentence without its subject and its dot, "ends within the block
  // at byte 96"; empty where all was read. Complete after End.
  std::vector<std::string> Damage() const;
  // What was passed over and is no damage, told alike.
  std::vector<std::string> Notes() const;
  // The line of the first interface of these link types, as far as the file tells of it.
  CapturedLine Line() const { return line_.value_or(CapturedLine{}); }

 private:
  struct Interface {
    std::uint16_t link_type = 0;
    bool is_ours = false;
    std::uint8_t resolution = 6;
    std::int64_t time_offset = 0;  // seconds
    std::uint32_t longest = 0;     // bytes that are kept of a packet; 0 for all
  };
  // What a packet block tells.
  struct Packet {
    std::span<const std::uint8_t> data;
    std::optional<WallTime> time;
    std::uint32_t flags = 0;
    std::string comment;
  };

  void Take(const Block& block, std::vector<LogEntry>& rows);
  void TakeSection(Fields fields);
  void TakeInterface(Fields fields);
  void TakePacket(Fields fields, std::uint32_t type, std::vector<LogEntry>& rows);
  void TakeSimplePacket(Fields fields, std::vector<LogEntry>& rows);
  void TakePacketOptions(Fields& fields, Packet& packet);
  // Makes rows of a packet on the interface of a number.
  void TakeData(std::size_t number, const Packet& packet, std::vector<LogEntry>& rows);

  BlockReader blocks_;
  RowMerger merger_;
  std::vector<Interface> interfaces_;
  std::optional<CapturedLine> line_;
  bool is_known_section_ = true;
  std::size_t broken_ = 0;
  std::size_t cut_ = 0;
  std::size_t without_direction_ = 0;
  std::size_t odd_times_ = 0;
  std::size_t broken_others_ = 0;
  std::size_t unknown_sections_ = 0;
  std::size_t foreign_interfaces_ = 0;
  std::size_t foreign_packets_ = 0;
};

}  // namespace vantrel::log
