// SPDX-License-Identifier: MIT

#include "link/typed_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

namespace vantrel::link {
namespace {

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

struct Reading {
  double value = 0;
  // Characters that belong to the number, sign included; 0 when there is none.
  std::size_t length = 0;
};

// Whether a number that no double can hold, in the form that from_chars takes, is too small rather
// than too large.
bool IsTooSmall(std::string_view number) {
  const std::size_t mark = number.find('e');
  const std::string_view mantissa = number.substr(0, mark);
  const auto point = static_cast<long>(std::min(mantissa.find('.'), mantissa.size()));
  const auto first = static_cast<long>(mantissa.find_first_of("123456789"));
  constexpr long kFar = 1'000'000'000;
  long exponent = 0;
  if (mark != std::string_view::npos)
    exponent = std::clamp(std::strtol(std::string(number.substr(mark + 1)).c_str(), nullptr, 10),
                          -kFar, kFar);
  return point - first + exponent < 0;
}

// Reads the number at the very start of `text`.
Reading ReadNumber(std::string_view text) {
  std::size_t end = 0;
  std::string number;  // in the form from_chars takes: no plus sign, exponent letter e
  if (end < text.size() && (text[end] == '+' || text[end] == '-')) {
    if (text[end] == '-') number += '-';
    ++end;
  }
  const auto take_digits = [&] {
    const std::size_t start = end;
    while (end < text.size() && IsDigit(text[end])) number += text[end++];
    return end - start;
  };
  std::size_t digits = take_digits();
  if (end < text.size() && text[end] == '.') {
    number += '.';
    ++end;
    digits += take_digits();
  }
  if (digits == 0) return {};

  if (end < text.size() && std::string_view("eEdD").find(text[end]) != std::string_view::npos) {
    const std::size_t mark = end;
    const std::string mantissa = number;
    number += 'e';
    ++end;
    if (end < text.size() && (text[end] == '+' || text[end] == '-')) number += text[end++];
    if (take_digits() == 0) {
      end = mark;
      number = mantissa;
    }
  }

  Reading reading{0, end};
  const auto result = std::from_chars(number.data(), number.data() + number.size(), reading.value);
  if (result.ec == std::errc::result_out_of_range) {
    const double infinity = std::numeric_limits<double>::infinity();
    reading.value = IsTooSmall(number) ? 0 : (number[0] == '-' ? -infinity : infinity);
  }
  return reading;
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  return text;
}

}  // namespace

double LeadingNumber(std::string_view text) { return ReadNumber(WithoutLeadingBlanks(text)).value; }

std::optional<std::int16_t> TypedInteger(std::string_view text) {
  const double rounded = std::nearbyint(LeadingNumber(text));
  using Limits = std::numeric_limits<std::int16_t>;
  if (rounded < Limits::min() || rounded > Limits::max()) return std::nullopt;
  return static_cast<std::int16_t>(rounded);
}

bool EqualsTwo(std::string_view text) {
  text = WithoutLeadingBlanks(text);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  const Reading reading = ReadNumber(text);
  return reading.length > 0 && reading.length == text.size() && reading.value == 2;
}

}  // namespace vantrel::link
