// SPDX-License-Identifier: MIT

#include "printer/commands/command.h"

namespace vantrel::printer {
namespace {

Reply ReplyWithTrack(std::string contents) {
  if (contents.empty()) return {status::kNoStripe, {}};
  return {status::kNormal, std::move(contents)};
}

Reply ReadTrack(PrinterState& state, const protocol::TrackRead& read) {
  state.PassUnderHead();
  return ReplyWithTrack(state.TrackAsRead(read.track));
}

Reply ReadBuffer(PrinterState& state, const protocol::TrackRead& read) {
  const auto& buffer = state.buffers.at(read.track);
  if (!buffer) return ReadTrack(state, read);
  return ReplyWithTrack(*buffer);
}

bool IsBuffered(const PrinterState& state, const protocol::TrackRead& read) {
  return state.buffers.at(read.track).has_value();
}

// The three reads of each kind differ in their code alone.
constexpr CommandRow Read(std::uint8_t code) {
  return {.code = code, .need = Need::kCardOrWait, .duration = kReadTime, .work = kFor<ReadTrack>};
}

constexpr CommandRow ReadOfTheCardInside(std::uint8_t code) {
  return {.code = code, .need = Need::kTargetCard, .duration = kReadTime, .work = kFor<ReadTrack>};
}

constexpr CommandRow BufferRead(std::uint8_t code) {
  return {.code = code,
          .need = Need::kBufferOrCard,
          .duration = kReadTime,
          .work = kFor<ReadBuffer>,
          .is_buffered = kFor<IsBuffered>};
}

constexpr CommandRow kRows[] = {
    Read(0x21),
    Read(0x22),
    Read(0x23),
    ReadOfTheCardInside(0x25),
    ReadOfTheCardInside(0x26),
    ReadOfTheCardInside(0x27),
    BufferRead(0x29),
    BufferRead(0x2A),
    BufferRead(0x2B),
};

}  // namespace

std::span<const CommandRow> TrackCommands() { return kRows; }

}  // namespace vantrel::printer
