// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/command_data.h"
#include "protocol/moment.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel::printer {

// One cycle of a flashing LED or an interrupted buzzer: its first half on, its second half off.
inline constexpr std::chrono::milliseconds kAlertCycle{1000};

// LED and buzzer as 5Ah sets them, in its own digits.
struct Indicators {
  char buzzer = '0';         // '0' off, '1' on, '2' buzzing, '3' one cycle, '4' three cycles
  char led_colour = '1';     // '1' green, '2' red, '3' orange
  char led_operation = '0';  // '0' off, '1' on, '2' flashing, '3' one cycle, '4' three cycles
  // When the cycles of each began.
  protocol::Moment buzzer_since{0};
  protocol::Moment led_since{0};

  // Sets them as 5Ah says. A blank keeps the buzzer or the LED as it is, in the middle of its cycle
  // too.
  void Set(const protocol::IndicatorSetting& setting, protocol::Moment now);
  // Whether light or sound can be seen or heard at a moment, not before they were set.
  bool LedIsLit(protocol::Moment now) const;
  bool BuzzerSounds(protocol::Moment now) const;
  // Switches off what has run through its one cycle or its three.
  void Advance(protocol::Moment now);
  // When, after `now`, LED or buzzer next goes on or off by itself; nothing if neither ever does.
  std::optional<protocol::Moment> NextChange(protocol::Moment now) const;
};

// In words for a window: "flashing, red", "off".
std::string LedInWords(const Indicators& indicators);
// "green", "red", "orange", and "off", "on", "flashing", "1 cycle", "3 cycles".
std::string_view LedColourInWords(const Indicators& indicators);
std::string_view LedOperationInWords(const Indicators& indicators);
// "buzzing" in place of "flashing".
std::string_view BuzzerInWords(const Indicators& indicators);

}  // namespace vantrel::printer
