// SPDX-License-Identifier: MIT

#include "protocol/frame_reader.h"

namespace vantrel::protocol {

FrameReader::Step FrameReader::Take(std::uint8_t byte, Moment now) {
  last_byte_ = now;
  if (IsControl(byte) && (!IsInFrame() || overtaken_)) {
    EndGroup();
    return {GroupKind::kControl, true, true, false};
  }
  const bool is_check = place_ == Place::kBlockCheck;
  const bool begins = !IsOpen() || (byte == kStx && !is_check);
  if (begins) Begin(byte == kStx ? Place::kContent : Place::kNoise);
  Step step{IsInFrame() ? GroupKind::kFrame : GroupKind::kNoise, begins, is_check, is_check};
  if (++length_ >= kLongestGroup) step.ends = true;
  if (step.ends)
    EndGroup();
  else if (place_ == Place::kContent && byte == kEtx)
    place_ = Place::kBlockCheck;
  return step;
}

void FrameReader::Settle(Moment now) {
  if (IsOpen() && now - last_byte_ >= kFrameSilence) EndGroup();
}

std::optional<Moment> FrameReader::Deadline() const {
  if (!IsOpen()) return std::nullopt;
  return last_byte_ + kFrameSilence;
}

bool FrameReader::IsControl(std::uint8_t byte) const {
  return sender_ == Direction::kFromPrinter && IsAnswer(byte);
}

void FrameReader::Begin(Place place) {
  place_ = place;
  length_ = 0;
  overtaken_ = false;
}

}  // namespace vantrel::protocol
