// SPDX-License-Identifier: MIT

#include "link/common.h"

#include "link/frame.h"

#include <cmath>
#include <limits>
#include <stdexcept>

namespace vantrel::link {

std::string BinToDec(std::string_view binary) {
  while (!binary.empty() && binary.front() == ' ') binary.remove_prefix(1);
  while (!binary.empty() && binary.back() == ' ') binary.remove_suffix(1);
  double sum = 0;
  int place = static_cast<int>(binary.size());
  for (const char character : binary) {
    --place;
    const int digit = character >= '0' && character <= '9' ? character - '0' : 0;
    sum += std::ldexp(digit, place);
    if (sum > std::numeric_limits<std::int32_t>::max())
      throw std::overflow_error("Overflow: a binary text stands for more than 2147483647.");
  }
  return std::to_string(static_cast<std::int32_t>(sum));
}

std::string DecToBin(std::int16_t number) {
  // The remainder takes the sign of the number, so a negative number shows signs among its digits.
  // Framing passes 0 to 255 alone; the routine is kept as it is defined.
  std::string digits;
  int rest = number;
  do {
    digits = std::to_string(rest % 2) + digits;
    rest /= 2;
  } while (rest != 0);
  digits = "00000000" + digits;
  return digits.substr(digits.size() - 8);
}

std::string CalcBCC(std::string_view frame) {
  unsigned check = 0;
  for (std::size_t i = 2; i < frame.size(); i += 2) check ^= HexPair(frame, i);
  return HexOf(static_cast<std::uint8_t>(check));
}

}  // namespace vantrel::link
