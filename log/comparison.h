// SPDX-License-Identifier: MIT
#pragma once

#include "log/exchanges.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::log {

// A field of an exchange that is not the same in two captures.
struct FieldDifference {
  enum class Field { kExchange, kCommand, kData, kControls, kStatus, kReplyData, kCheck };

  std::size_t exchange = 0;          // counted in the first capture
  std::optional<std::uint8_t> code;  // of the first's command, or of the second's where alone
  Field field = Field::kExchange;
  // Both values, one character a byte; of a check "good" or "bad". Nothing where there is none.
  std::optional<std::string> a;
  std::optional<std::string> b;
};

// "exchange 20, 21h: status 22h instead of 20h", without an end of line.
std::string TextOf(const FieldDifference& difference);
// The same as a JSON object.
std::string JsonOf(const FieldDifference& difference);

// Tells every difference of two captures in order. Exchanges are put side by side by command and
// data, then by command. Returns false where they differ too much for that and part of them was
// compared in step.
bool Compare(const std::vector<Exchange>& a, const std::vector<Exchange>& b,
             const std::function<void(const FieldDifference&)>& tell);

}  // namespace vantrel::log
