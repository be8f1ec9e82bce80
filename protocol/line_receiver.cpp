// SPDX-License-Identifier: MIT

#include "protocol/line_receiver.h"

#include <utility>

namespace vantrel::protocol {

std::vector<Arrival> LineReceiver::Receive(std::span<const std::uint8_t> bytes, Moment now) {
  Advance(now);
  std::vector<Arrival> arrivals;
  for (const std::uint8_t byte : bytes) {
    const FrameReader::Step step = reader_.Take(byte, now);
    if (step.begins) frame_ = {};
    if (step.kind == GroupKind::kFrame) frame_.push_back(byte);
    if (step.whole) {
      const FrameParts parts = PartsOf(frame_);
      arrivals.push_back({parts.CheckIsGood(), {parts.content.begin(), parts.content.end()}});
    }
    if (step.ends) frame_ = {};
  }
  return arrivals;
}

std::optional<Moment> LineReceiver::Deadline() const {
  return reader_.IsInFrame() ? reader_.Deadline() : std::nullopt;
}

void LineReceiver::Advance(Moment now) {
  reader_.Settle(now);
  if (!reader_.IsInFrame()) frame_ = {};
}

}  // namespace vantrel::protocol
