// SPDX-License-Identifier: MIT

#include "log/block_reader.h"

#include "log/pcapng.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace vantrel::log {
namespace {

// Type, two lengths.
constexpr std::uint32_t kShortestBlock = 12;
// What a section's header needs to tell its byte order.
constexpr std::size_t kSectionStart = 12;

// The numbers that files of the older format begin with, in either byte order.
constexpr std::array<std::uint32_t, 6> kOlderFormats{0xA1B2C3D4, 0xD4C3B2A1, 0xA1B23C4D,
                                                     0x4D3CB2A1, 0xA1B2CD34, 0x34CDB2A1};

bool IsWanted(std::uint32_t type) {
  return type == pcapng::kSection || type == pcapng::kInterface || type == pcapng::kPacket ||
         type == pcapng::kSimplePacket || type == pcapng::kOldPacket;
}

}  // namespace

std::uint64_t Fields::Number(std::size_t bytes) {
  if (rest_.size() < bytes) {
    rest_ = {};
    return 0;
  }
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < bytes; ++i)
    number = number << 8 | rest_[big_endian_ ? i : bytes - 1 - i];
  rest_ = rest_.subspan(bytes);
  return number;
}

std::optional<std::span<const std::uint8_t>> Fields::Padded(std::size_t count) {
  if (rest_.size() < count) return std::nullopt;
  const auto bytes = rest_.first(count);
  rest_ = rest_.subspan(std::min(rest_.size(), (count + 3) / 4 * 4));
  return bytes;
}

std::optional<Option> NextOption(Fields& options, bool& broken) {
  if (options.Left() == 0) return std::nullopt;
  if (options.Left() < 4) {
    broken = true;
    return std::nullopt;
  }
  Option option;
  option.code = options.U16();
  const std::uint16_t length = options.U16();
  if (option.code == pcapng::kEndOfOptions) return std::nullopt;
  const auto value = options.Padded(length);
  if (!value) {
    broken = true;
    return std::nullopt;
  }
  option.value = *value;
  return option;
}

void BlockReader::Feed(std::span<const std::uint8_t> bytes) {
  if (!damage_.empty()) return;
  buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(taken_));
  taken_ = 0;
  buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
}

std::optional<Block> BlockReader::Next() {
  while (damage_.empty()) {
    if (passing_ > 0) {
      if (!PassOver()) return std::nullopt;
      continue;
    }
    block_ = offset_;
    if (!begun_ && Front().size() >= 4) {
      const std::uint32_t first = NumberAt(0);
      if (std::find(kOlderFormats.begin(), kOlderFormats.end(), first) != kOlderFormats.end())
        throw std::runtime_error(
            "is a capture in the older format pcap, which is not read; 'editcap -F pcapng IN OUT' "
            "makes a pcapng file of it");
      if (first != pcapng::kSection) throw std::runtime_error("is no capture");
    }
    if (Front().size() < kShortestBlock) return std::nullopt;
    if (NumberAt(0) == pcapng::kSection) ReadByteOrder();
    const std::uint32_t type = NumberAt(0);
    const std::uint32_t length = NumberAt(4);
    if (!damage_.empty() || !CanBe(type, length)) {
      if (!begun_) throw std::runtime_error("is no capture");
      Break();
      return std::nullopt;
    }
    begun_ = true;
    if (IsWanted(type)) return Take();
    passing_ = length;
    passed_ = 0;
  }
  return std::nullopt;
}

void BlockReader::ReadByteOrder() {
  for (const bool big_endian : {false, true}) {
    big_endian_ = big_endian;
    if (NumberAt(8) == pcapng::kByteOrderMagic) return;
  }
  Break();
}

bool BlockReader::CanBe(std::uint32_t type, std::uint32_t length) const {
  return length >= kShortestBlock && length % 4 == 0 &&
         (!IsWanted(type) || length <= kLongestBlock) &&
         (type != pcapng::kSection || length >= kSectionStart + kShortestBlock + 4);
}

std::optional<Block> BlockReader::Take() {
  const std::uint32_t length = NumberAt(4);
  if (Front().size() < length) return std::nullopt;
  if (NumberAt(length - 4) != length) {
    Break();
    return std::nullopt;
  }
  const Block block{NumberAt(0), big_endian_, Front().subspan(8, length - kShortestBlock)};
  Drop(length);
  return block;
}

bool BlockReader::PassOver() {
  const auto count = std::min<std::size_t>(Front().size(), passing_ - 4 - passed_);
  Drop(count);
  passed_ += static_cast<std::uint32_t>(count);
  if (passed_ < passing_ - 4 || Front().size() < 4) return false;
  if (NumberAt(0) != passing_) Break();
  Drop(4);
  passing_ = 0;
  return true;
}

void BlockReader::End() {
  if (!damage_.empty()) return;
  if (!begun_ && Front().empty())
    damage_ = "is empty";
  else if (!begun_ && Front().size() < 4)
    damage_ = "is no capture";
  else if (passing_ > 0 || !Front().empty())
    damage_ = "ends within the block at byte " + std::to_string(block_);
}

void BlockReader::Break() {
  damage_ = "is broken at byte " + std::to_string(block_) + "; what comes after it is not read";
}

void BlockReader::Drop(std::size_t count) {
  taken_ += count;
  offset_ += count;
}

std::uint32_t BlockReader::NumberAt(std::size_t at) const {
  return Fields(Front().subspan(at), big_endian_).U32();
}

}  // namespace vantrel::log
