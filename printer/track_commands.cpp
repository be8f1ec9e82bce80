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
    {0x21, IsEmpty, Need::kCardOrWait, kReadTime, ReadTrack},
    {0x22, IsEmpty, Need::kCardOrWait, kReadTime, ReadTrack},
    {0x23, IsEmpty, Need::kCardOrWait, kReadTime, ReadTrack},
    {0x25, IsEmpty, Need::kTargetCard, kReadTime, ReadTrack},
    {0x26, IsEmpty, Need::kTargetCard, kReadTime, ReadTrack},
    {0x27, IsEmpty, Need::kTargetCard, kReadTime, ReadTrack},
    {0x29, IsEmpty, Need::kBufferOrCard, kReadTime, ReadBuffer},
    {0x2A, IsEmpty, Need::kBufferOrCard, kReadTime, ReadBuffer},
    {0x2B, IsEmpty, Need::kBufferOrCard, kReadTime, ReadBuffer},
};

}  // namespace

std::span<const CommandRow> TrackCommands() { return kRows; }

}  // namespace vantrel
