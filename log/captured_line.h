// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vantrel::log {

// What a capture tells of the line that its rows went over.
struct CapturedLine {
  std::string name;                    // the terminal's path; empty where none is told
  std::optional<std::uint64_t> speed;  // bits a second

  friend bool operator==(const CapturedLine&, const CapturedLine&) = default;
};

}  // namespace vantrel::log
