// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace vantrel::protocol {

// The speeds in bits a second that a printer can be set to talk at.
inline constexpr int kLowestSpeed = 50;
inline constexpr int kHighestSpeed = 4000000;

// The speed in bits a second at which an open terminal sends, odd ones too; nothing when it cannot
// be told or the terminal has hung up its line (speed 0).
std::optional<int> LineSpeedOf(int descriptor);

// Sets both speeds of an open terminal, odd ones too, once all that was written has gone out at the
// old speed. False when the terminal does not take it.
bool SetLineSpeed(int descriptor, int speed);

}  // namespace vantrel::protocol
