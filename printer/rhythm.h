#pragma once

#include <chrono>
#include <optional>

namespace vantrel {

// The rhythm in which LED and buzzer repeat, half of it on and half off.
inline constexpr std::chrono::milliseconds kCycle{1000};

// Whether a LED or buzzer is on, `since` after its operation digit of 5Ah was set: '0' never, '1'
// always, '2' in every cycle, '3' in one, '4' in three.
bool IsOn(char operation, std::chrono::milliseconds since);

// How long after `since` that next changes; nothing when it stays.
std::optional<std::chrono::milliseconds> UntilNextTurn(char operation,
                                                       std::chrono::milliseconds since);

}  // namespace vantrel
