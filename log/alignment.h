// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vantrel::log {

// Two sequences side by side: which element of the one stands beside which of the other.
struct Alignment {
  // Elements at `a` and after it stand beside those at `b` and after it, `length` of each.
  struct Run {
    std::size_t a = 0;
    std::size_t b = 0;
    std::size_t length = 0;
  };
  // In order; what is in none stands alone.
  std::vector<Run> runs;
  // Whether the sequences differ so much that the search was given up.
  bool gave_up = false;
};

// What becomes of the rest when the search is given up: it stands alone, or is put side by side one
// by one, whatever it is.
enum class Rest { kAlone, kInStep };

// Puts equal elements side by side so that as few as possible stand alone. Beyond `most_apart`
// elements that stand alone it gives up; equal elements at the ends are found all the same. Memory
// grows with the number of runs and the square of `most_apart` alone.
Alignment Align(std::span<const std::uint32_t> a, std::span<const std::uint32_t> b,
                std::size_t most_apart, Rest rest);

}  // namespace vantrel::log
