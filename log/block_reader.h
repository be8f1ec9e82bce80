// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vantrel::log {

// Numbers out of the bytes of a section, whose byte order its header decides.
class Fields {
 public:
  Fields(std::span<const std::uint8_t> bytes, bool big_endian)
      : rest_(bytes), big_endian_(big_endian) {}

  // The next number; 0, and the rest passed over, where the bytes end before it does.
  std::uint16_t U16() { return static_cast<std::uint16_t>(Number(2)); }
  std::uint32_t U32() { return static_cast<std::uint32_t>(Number(4)); }
  std::uint64_t U64() { return Number(8); }
  // The next bytes, passing over what fills them up to a multiple of 4; nothing where there are
  // fewer.
  std::optional<std::span<const std::uint8_t>> Padded(std::size_t count);
  std::size_t Left() const { return rest_.size(); }
  bool IsBigEndian() const { return big_endian_; }

 private:
  std::uint64_t Number(std::size_t bytes);

  std::span<const std::uint8_t> rest_;
  bool big_endian_ = false;
};

// An option of a block.
struct Option {
  std::uint16_t code = 0;
  std::span<const std::uint8_t> value;
};

// The next option; nothing at their end, and where they are broken, which sets `broken`.
std::optional<Option> NextOption(Fields& options, bool& broken);

// A block of a pcapng file: what stands between its lengths.
struct Block {
  std::uint32_t type = 0;
  bool big_endian = false;
  std::span<const std::uint8_t> body;
};

// Finds the blocks in the bytes of a pcapng file as they come, in any split. Only blocks that tell
// of sections, interfaces and packets are given; others are passed over, however long. Memory is
// bounded by the longest of those that are given.
class BlockReader {
 public:
  // A block to be given that is longer is taken for a broken one.
  static constexpr std::uint32_t kLongestBlock = 1U << 20;

  void Feed(std::span<const std::uint8_t> bytes);
  // The next whole block, its body valid until the next call; nothing before more bytes are fed.
  // Throws std::runtime_error, "is no capture" and the like, where the bytes begin no pcapng file.
  std::optional<Block> Next();
  // To be called after the last byte: a block that is not whole is damage.
  void End();
  // Why no more blocks are to be had, "is broken at byte 12"; empty while all is well.
  const std::string& Damage() const { return damage_; }

 private:
  std::optional<Block> Take();
  // Where a block is not whole yet, false.
  bool PassOver();
  void ReadByteOrder();
  bool CanBe(std::uint32_t type, std::uint32_t length) const;
  void Break();
  void Drop(std::size_t count);
  std::span<const std::uint8_t> Front() const { return std::span(buffer_).subspan(taken_); }
  std::uint32_t NumberAt(std::size_t at) const;

  std::vector<std::uint8_t> buffer_;
  std::size_t taken_ = 0;      // bytes of the buffer that are done with
  std::uint64_t offset_ = 0;   // of what stands at the front, in the file
  std::uint64_t block_ = 0;    // where the block that is being read begins, in the file
  std::uint32_t passing_ = 0;  // length of the block that is being passed over; 0 without one
  std::uint32_t passed_ = 0;   // bytes of it that were
  bool begun_ = false;
  bool big_endian_ = false;
  std::string damage_;
};

}  // namespace vantrel::log
