#pragma once

#include <optional>

namespace vantrel {

// The speed in bits a second at which an open terminal sends, odd ones too; nothing when it cannot
// be told or the terminal has hung up its line (speed 0).
std::optional<int> LineSpeedOf(int descriptor);

}  // namespace vantrel
