// SPDX-License-Identifier: MIT

#include "printer/line/outgoing_line.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace vantrel::printer {
namespace {

constexpr std::int64_t kBitsPerByte = 10;

// The level of the line in one bit of a stream of bytes: start bit 0, eight data bits, stop bit 1.
// Before and after the stream the line rests at 1.
bool LevelOfBit(const link::Bytes& bytes, std::int64_t bit) {
  const auto index = static_cast<std::size_t>(bit / kBitsPerByte);
  const std::int64_t place = bit % kBitsPerByte;
  if (index >= bytes.size() || place == kBitsPerByte - 1) return true;
  if (place == 0) return false;
  return (bytes[index] >> (place - 1) & 1) != 0;
}

}  // namespace

std::size_t OutgoingLine::Put(const link::Bytes& chunk, std::chrono::milliseconds gap,
                              protocol::Moment now) {
  const bool waits = speed_ > 0 || gap > gap.zero() || !parts_.empty();
  const std::size_t count =
      waits ? std::min(chunk.size(), kMostUnsent - std::min(unsent_, kMostUnsent)) : chunk.size();
  const link::Bytes room(chunk.begin(), chunk.begin() + static_cast<std::ptrdiff_t>(count));
  if (gap > gap.zero()) {
    for (const std::uint8_t byte : room) PutPart({byte}, gap, now);
  } else if (!room.empty()) {
    PutPart(room, gap, now);
  }
  return count;
}

void OutgoingLine::PutPart(link::Bytes bytes, std::chrono::milliseconds gap, protocol::Moment now) {
  const protocol::Moment start = parts_.empty() ? now : std::max(now, parts_.back().due);
  std::chrono::milliseconds time = gap;
  if (speed_ > 0) {
    const auto bits = static_cast<std::int64_t>(bytes.size()) * kBitsPerByte;
    time += std::chrono::milliseconds((bits * 1000 + speed_ - 1) / speed_);
  }
  unsent_ += bytes.size();
  parts_.push_back({std::move(bytes), start + time});
}

std::optional<link::Bytes> OutgoingLine::Take(protocol::Moment now) {
  if (parts_.empty() || parts_.front().due > now) return std::nullopt;
  link::Bytes bytes = std::move(parts_.front().bytes);
  parts_.pop_front();
  unsent_ -= bytes.size();
  return bytes;
}

std::optional<protocol::Moment> OutgoingLine::Deadline() const {
  if (parts_.empty()) return std::nullopt;
  return parts_.front().due;
}

void OutgoingLine::Clear() {
  parts_.clear();
  unsent_ = 0;
}

link::Bytes HeardAtAnotherSpeed(const link::Bytes& bytes, int sent, int heard) {
  // Times are counted so that half a bit of the hearing side is a whole number.
  const std::int64_t sent_bit = 2 * std::int64_t{heard};
  const std::int64_t heard_bit = 2 * std::int64_t{sent};
  const auto bits = static_cast<std::int64_t>(bytes.size()) * kBitsPerByte;
  const auto level = [&bytes, sent_bit](std::int64_t time) {
    return LevelOfBit(bytes, time / sent_bit);
  };
  const auto skip = [&](bool skipped, std::int64_t time) {
    while (time < bits * sent_bit && level(time) == skipped)
      time = (time / sent_bit + 1) * sent_bit;
    return time;
  };
  link::Bytes result;
  bool rests = true;
  for (std::int64_t time = 0;;) {
    // A byte begins where the line falls from 1 to 0; a stop bit that came as 0 must end first.
    if (!rests) time = skip(false, time);
    time = skip(true, time);
    if (time >= bits * sent_bit) return result;
    unsigned byte = 0;
    for (int i = 0; i < 8; ++i) {
      if (level(time + heard_bit * (i + 1) + heard_bit / 2)) byte |= 1U << i;
    }
    result.push_back(static_cast<std::uint8_t>(byte));
    time += heard_bit * 9 + heard_bit / 2;
    rests = level(time);
  }
}

}  // namespace vantrel::printer
