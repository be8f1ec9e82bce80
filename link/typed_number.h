// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vantrel::link {

// The number that a typed text begins with: leading blanks are skipped, then a sign, digits, a
// decimal point and an exponent (E or D) are read up to the first character that does not fit
// ("12abc" gives 12, "1e1" gives 10). Nothing readable gives 0; a number too large for a double
// gives infinity.
double LeadingNumber(std::string_view text);

// LeadingNumber rounded to the nearest whole number, halves to even (12.5 gives 12, 13.5 gives 14).
// Empty when that is outside -32768 to 32767, the range of a typed parameter.
std::optional<std::int16_t> TypedInteger(std::string_view text);

// Whether the whole text, without outer blanks, is a number equal to 2: "2", " 2", "+2" and "2.0"
// are, "2x", "21" and an empty text are not.
bool EqualsTwo(std::string_view text);

}  // namespace vantrel::link
