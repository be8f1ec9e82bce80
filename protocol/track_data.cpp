// SPDX-License-Identifier: MIT

// What the magnetic commands write.

#include "protocol/command_readers.h"

#include <algorithm>

namespace vantrel::protocol {

// The digit of 31h and 32h is a mask: 1, 2 and 4 for the three tracks.
std::optional<TrackChoice> ReadTrackChoice(std::string_view data) {
  if (data.size() != 1 || data[0] < '1' || data[0] > '7') return std::nullopt;
  const unsigned mask = static_cast<unsigned>(data[0] - '0');
  TrackChoice choice;
  for (std::size_t track = 0; track < kTracks; ++track)
    choice.tracks.at(track) = (mask >> track & 1U) != 0;
  return choice;
}

Meaning InWords(const TrackChoice& choice) {
  std::string numbers;
  std::size_t named = 0;
  const auto chosen = std::count(choice.tracks.begin(), choice.tracks.end(), true);
  for (std::size_t track = 0; track < kTracks; ++track) {
    if (!choice.tracks.at(track)) continue;
    ++named;
    if (named > 1) numbers += static_cast<std::ptrdiff_t>(named) == chosen ? " and " : ", ";
    numbers += std::to_string(track + 1);
  }
  return (chosen == 1 ? "track " : "tracks ") + numbers;
}

std::optional<TrackPreset> ReadTrackPreset(std::string_view data, const PresetRule& rule) {
  const auto is_taken = [&rule](char character) {
    return character >= rule.first && character <= rule.last && character != 0x02 &&
           character != 0x03;
  };
  if (data.empty() || data.size() > rule.most || !std::all_of(data.begin(), data.end(), is_taken))
    return std::nullopt;
  TrackPreset preset{rule.track, std::string(data)};
  if (rule.in_reverse) std::reverse(preset.contents.begin(), preset.contents.end());
  return preset;
}

}  // namespace vantrel::protocol
