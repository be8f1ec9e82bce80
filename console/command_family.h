// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace vantrel::console {

// What kind of work a command is, in the order of the buttons.
enum class Family { kTrackReads, kTrackWrites, kPrintData, kCard, kMaintenance };

inline constexpr std::array<std::string_view, 5> kFamilyNames = {
    "Track reads", "Track writes", "Print data", "Card", "Maintenance"};

// The family of a command code of two hex digits: the first digit tells it, but for the codes that
// begin with 5, of which 50h, 51h and 53h to 55h move the card.
constexpr Family FamilyOf(std::string_view code) {
  switch (code[0]) {
    case '2':
      return Family::kTrackReads;
    case '3':
      return Family::kTrackWrites;
    case '4':
      return Family::kPrintData;
    case '5':
      return code[1] <= '5' && code[1] != '2' ? Family::kCard : Family::kMaintenance;
    default:
      return Family::kMaintenance;
  }
}

}  // namespace vantrel::console
