#include "printer/command.h"

namespace vantrel {
namespace {

Reply ReplyWithTrack(std::string contents) {
  if (contents.empty()) return {status::kNoStripe, {}};
  return {status::kNormal, std::move(contents)};
}

Reply ReadTrack(PrinterState& state, const Command& command) {
  state.PassUnderHead();
  return ReplyWithTrack(state.TrackAsRead(TrackOf(command)));
}

Reply ReadBuffer(PrinterState& state, const Command& command) {
  const auto& buffer = state.buffers.at(TrackOf(command));
  if (!buffer) state.PassUnderHead();
  return ReplyWithTrack(*buffer);
}

constexpr CommandRow kRows[] = {
    {0x21, Need::kCardOrWait, IsEmpty, kReadTime, ReadTrack},
    {0x22, Need::kCardOrWait, IsEmpty, kReadTime, ReadTrack},
    {0x23, Need::kCardOrWait, IsEmpty, kReadTime, ReadTrack},
    {0x25, Need::kTargetCard, IsEmpty, kReadTime, ReadTrack},
    {0x26, Need::kTargetCard, IsEmpty, kReadTime, ReadTrack},
    {0x27, Need::kTargetCard, IsEmpty, kReadTime, ReadTrack},
    {0x29, Need::kBufferOrCard, IsEmpty, kReadTime, ReadBuffer},
    {0x2A, Need::kBufferOrCard, IsEmpty, kReadTime, ReadBuffer},
    {0x2B, Need::kBufferOrCard, IsEmpty, kReadTime, ReadBuffer},
};

}  // namespace

std::span<const CommandRow> TrackCommands() { return kRows; }

}  // namespace vantrel
