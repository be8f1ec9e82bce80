// SPDX-License-Identifier: MIT

#include "protocol/frame.h"

#include <algorithm>
#include <stdexcept>

namespace vantrel::protocol {

std::uint8_t BlockCheckOf(std::span<const std::uint8_t> content) {
  std::uint8_t check = kEtx;
  for (const std::uint8_t byte : content) check ^= byte;
  return check;
}

link::Bytes FrameAround(std::span<const std::uint8_t> content) {
  link::Bytes frame;
  frame.reserve(content.size() + 3);
  frame.push_back(kStx);
  frame.insert(frame.end(), content.begin(), content.end());
  frame.push_back(kEtx);
  frame.push_back(BlockCheckOf(content));
  return frame;
}

GroupKind KindOf(Direction sender, std::span<const std::uint8_t> bytes) {
  if (!bytes.empty() && bytes.front() == kStx) return GroupKind::kFrame;
  const bool answer =
      sender == Direction::kFromPrinter && bytes.size() == 1 && IsAnswer(bytes.front());
  return answer ? GroupKind::kControl : GroupKind::kNoise;
}

FrameParts PartsOf(std::span<const std::uint8_t> frame) {
  if (frame.empty() || frame.front() != kStx)
    throw std::invalid_argument("A frame begins with STX.");
  const auto after_stx = frame.subspan(1);
  const auto etx = std::find(after_stx.begin(), after_stx.end(), kEtx);
  FrameParts parts{{after_stx.begin(), etx}, {}};
  if (after_stx.end() - etx >= 2) parts.check = *(etx + 1);
  return parts;
}

}  // namespace vantrel::protocol
