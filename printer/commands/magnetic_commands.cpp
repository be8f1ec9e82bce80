// SPDX-License-Identifier: MIT

#include "printer/commands/command.h"

#include <utility>

namespace vantrel::printer {
namespace {

// A QL-8 reads all three tracks but writes the third alone.
bool SeriesWrites(const PrinterState& state, const protocol::TrackChoice& choice) {
  const auto& [first, second, third] = choice.tracks;
  return state.series == Series::kQl7 || (third && !first && !second);
}

// All chosen tracks or none: where one has no preset, nothing is written and all presets stay.
Reply WriteTracks(PrinterState& state, const protocol::TrackChoice& choice) {
  bool complete = state.card.kind == CardKind::kOrdinary;
  for (std::size_t track = 0; track < kTracks; ++track) {
    if (choice.tracks.at(track) && !state.presets.at(track)) complete = false;
  }
  for (std::size_t track = 0; complete && track < kTracks; ++track) {
    auto& preset = state.presets.at(track);
    if (!choice.tracks.at(track) || !preset) continue;
    state.card.tracks.at(track) = std::move(*preset);
    preset.reset();
  }
  state.PassUnderHead();
  return {complete ? status::kNormal : status::kWritingError, {}};
}

Reply Preset(PrinterState& state, const protocol::TrackPreset& preset) {
  state.presets.at(preset.track) = preset.contents;
  return {};
}

constexpr CommandRow kRows[] = {
    {.code = 0x31,
     .need = Need::kCardOrWait,
     .duration = kWriteTime,
     .work = kFor<WriteTracks>,
     .fits = kFor<SeriesWrites>},
    {.code = 0x32,
     .need = Need::kTargetCard,
     .duration = kWriteTime,
     .work = kFor<WriteTracks>,
     .fits = kFor<SeriesWrites>},
    {.code = 0x35, .work = kFor<Preset>},
    {.code = 0x36, .work = kFor<Preset>},
    {.code = 0x37, .work = kFor<Preset>},
    {.code = 0x38, .work = kFor<Preset>},
    {.code = 0x39, .work = kFor<Preset>},
    {.code = 0x3A, .work = kFor<Preset>},
    {.code = 0x3B, .work = kFor<Preset>},
    {.code = 0x3C, .work = kFor<Preset>},
    {.code = 0x3D, .work = kFor<Preset>},
};

}  // namespace

std::span<const CommandRow> MagneticCommands() { return kRows; }

}  // namespace vantrel::printer
