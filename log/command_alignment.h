// SPDX-License-Identifier: MIT
#pragma once

#include "log/alignment.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vantrel::log {

// A command of a capture; no code where its frame is empty.
struct CommandKey {
  std::optional<std::uint8_t> code;
  std::string_view data;

  friend bool operator==(const CommandKey&, const CommandKey&) = default;
};

// Puts the commands of two captures beside each other: those with the same code and data, and
// between them those with the same code. Where too much differs even so, the rest goes on in step,
// whatever it is, and `gave_up` is set. Memory grows with their number alone.
Alignment AlignCommands(std::span<const CommandKey> a, std::span<const CommandKey> b);

}  // namespace vantrel::log
