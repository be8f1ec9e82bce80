// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace vantrel::editors {

// The dots of a picture that the user draws. A dot has a value (what is sent), a paint (what is
// seen) and a visibility, and the three are independent: a dot can be painted clear and still be
// sent as set.
//
// Dots are numbered down the columns: the dot in column c and row r, both from 0 at the top left,
// has the index c * Rows() + r. Every function that takes an index throws std::out_of_range with
// the text "Subscript out of range" when there is no such dot. That is a fault of the program and
// is not to be caught; it ends the run.
class DotPattern {
 public:
  // All dots clear, of value 0 and visible.
  DotPattern(int columns, int rows);

  int Columns() const { return columns_; }
  int Rows() const { return rows_; }
  int Count() const { return columns_ * rows_; }

  // 1 for a set dot, 0 for a clear one.
  int Value(int index) const { return At(index).value; }
  bool IsBlack(int index) const { return At(index).black; }
  bool IsVisible(int index) const { return At(index).visible; }

  void SetValue(int index, int value) { At(index).value = value; }
  void Paint(int index, bool black) { At(index).black = black; }
  void Show(int index, bool visible) { At(index).visible = visible; }

  // Paints the dot and sets its value, both to set or both to clear.
  void Mark(int index, bool set);
  // Makes a clear dot set and a black one clear. The paint decides which it is, not the value.
  void Toggle(int index);

  // The values of the eight dots from `base` down as one byte of hex text: the top dot is the least
  // significant bit, as the printer stores it.
  std::string HexByte(int base) const;
  // Bytes 0 to `last_byte` of columns 0 to `last_column` in hex text, column by column. A byte past
  // a column's own dots is read from the columns after it.
  std::string Hex(int last_column, int last_byte) const;

 private:
  struct Dot {
    int value = 0;
    bool black = false;
    bool visible = true;
  };
  const Dot& At(int index) const;
  Dot& At(int index);
  int HexDigit(int top) const;

  const int columns_;
  const int rows_;
  std::vector<Dot> dots_;
};

}  // namespace vantrel::editors
