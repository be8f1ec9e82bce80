#include "printer/command.h"

#include <algorithm>

namespace vantrel {
namespace {

// The bits of a write command's digit: 1 is track 1, 2 is track 2, 4 is track 3.
unsigned MaskOf(const Command& command) {
  return static_cast<unsigned>(command.data.front() - '0');
}

constexpr unsigned kThirdTrackAlone = 4;

bool IsMask(std::string_view data) {
  return data.size() == 1 && data.front() >= '1' && data.front() <= '7';
}

// A QL-8 reads all three tracks but writes the third alone.
bool SeriesWrites(const PrinterState& state, const Command& command) {
  return state.series == Series::kQl7 || MaskOf(command) == kThirdTrackAlone;
}

// All chosen tracks or none: where one has no preset, nothing is written and all presets stay.
Reply WriteTracks(PrinterState& state, const Command& command) {
  const unsigned mask = MaskOf(command);
  bool complete = state.card.kind == CardKind::kOrdinary;
  for (std::size_t track = 0; track < kTracks; ++track) {
    if ((mask >> track & 1U) != 0 && !state.presets[track]) complete = false;
  }
  for (std::size_t track = 0; complete && track < kTracks; ++track) {
    if ((mask >> track & 1U) == 0) continue;
    state.card.tracks[track] = *state.presets[track];
    state.presets[track].reset();
  }
  state.PassUnderHead();
  return {complete ? status::kNormal : status::kWritingError, {}};
}

template <char first, char last, std::size_t most>
bool IsTrackData(std::string_view data) {
  return !data.empty() && data.size() <= most &&
         std::all_of(data.begin(), data.end(), [](char character) {
           return character >= first && character <= last && character != 0x02 && character != 0x03;
         });
}

constexpr auto kIsSevenBitData = IsTrackData<0x01, 0x7E, 69>;

// 35h, 38h and 3Bh are the first track's, and so on in threes.
std::size_t PresetTrackOf(const Command& command) { return (command.code - 0x35U) % kTracks; }

Reply Preset(PrinterState& state, const Command& command) {
  state.presets.at(PresetTrackOf(command)) = command.data;
  return {};
}

// Recorded in the other direction, so that the head meets the last character first.
Reply PresetInReverse(PrinterState& state, const Command& command) {
  state.presets.at(PresetTrackOf(command)).emplace(command.data.rbegin(), command.data.rend());
  return {};
}

constexpr CommandRow kRows[] = {
    {0x31, Need::kCardOrWait, IsMask, kWriteTime, WriteTracks, SeriesWrites},
    {0x32, Need::kTargetCard, IsMask, kWriteTime, WriteTracks, SeriesWrites},
    {0x35, Need::kNothing, kIsSevenBitData, kNoTime, PresetInReverse},
    {0x36, Need::kNothing, kIsSevenBitData, kNoTime, PresetInReverse},
    {0x37, Need::kNothing, kIsSevenBitData, kNoTime, PresetInReverse},
    {0x38, Need::kNothing, kIsSevenBitData, kNoTime, Preset},
    {0x39, Need::kNothing, kIsSevenBitData, kNoTime, Preset},
    {0x3A, Need::kNothing, kIsSevenBitData, kNoTime, Preset},
    {0x3B, Need::kNothing, IsTrackData<0x20, 0x5E, 76>, kNoTime, Preset},
    {0x3C, Need::kNothing, IsTrackData<0x30, 0x3E, 37>, kNoTime, Preset},
    {0x3D, Need::kNothing, IsTrackData<0x30, 0x3E, 104>, kNoTime, Preset},
};

}  // namespace

std::span<const CommandRow> MagneticCommands() { return kRows; }

}  // namespace vantrel
