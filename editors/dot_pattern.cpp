// SPDX-License-Identifier: MIT

#include "editors/dot_pattern.h"

#include "link/frame.h"

#include <cstdint>
#include <stdexcept>
#include <utility>

namespace vantrel::editors {

DotPattern::DotPattern(int columns, int rows)
    : columns_(columns), rows_(rows), dots_(static_cast<std::size_t>(columns * rows)) {}

const DotPattern::Dot& DotPattern::At(int index) const {
  if (index < 0 || index >= Count()) throw std::out_of_range("Subscript out of range");
  return dots_[static_cast<std::size_t>(index)];
}

DotPattern::Dot& DotPattern::At(int index) {
  return const_cast<Dot&>(std::as_const(*this).At(index));
}

void DotPattern::Mark(int index, bool set) {
  Dot& dot = At(index);
  dot.black = set;
  dot.value = set ? 1 : 0;
}

void DotPattern::Toggle(int index) { Mark(index, !IsBlack(index)); }

// The four dots from `top` down as a number, the lowest of them most significant.
int DotPattern::HexDigit(int top) const {
  int digit = 0;
  for (int k = 3; k >= 0; --k) digit = 2 * digit + Value(top + k);
  return digit;
}

std::string DotPattern::HexByte(int base) const {
  return link::HexOf(static_cast<std::uint8_t>(16 * HexDigit(base + 4) + HexDigit(base)));
}

std::string DotPattern::Hex(int last_column, int last_byte) const {
  std::string hex;
  for (int column = 0; column <= last_column; ++column)
    for (int byte = 0; byte <= last_byte; ++byte) hex += HexByte(column * rows_ + byte * 8);
  return hex;
}

}  // namespace vantrel::editors
