// SPDX-License-Identifier: MIT
#pragma once

#include "log/capture_rows.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantrel::log {

enum class Difference : std::uint8_t { kNone, kDiffers, kOnlyLeft, kOnlyRight };

// A line of two captures side by side.
struct AlignedLine {
  static constexpr std::uint32_t kNothing = 0xFFFFFFFF;

  std::uint32_t left = kNothing;  // the row, or kNothing
  std::uint32_t right = kNothing;
  Difference difference = Difference::kNone;

  friend bool operator==(const AlignedLine&, const AlignedLine&) = default;
};

struct AlignedRows {
  std::vector<AlignedLine> lines;
  // Whether the captures differ so much that part of them was put side by side exchange by
  // exchange.
  bool went_in_step = false;
};

// Every row of two captures, in their order, those that belong together in one line: exchanges as
// they are compared, and in an exchange one row after the other. Bytes that are neither frame nor
// control character are no difference.
AlignedRows AlignRows(const CaptureRows& left, const CaptureRows& right);

}  // namespace vantrel::log
