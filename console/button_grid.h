// SPDX-License-Identifier: MIT
#pragma once

namespace vantrel::console {

// A cell of the button grid, both 0-based.
struct Cell {
  int row;
  int column;

  bool operator==(const Cell&) const = default;
};

// The grid in which the command buttons stand: down each column in table order, all columns equally
// high, the last one as far as the buttons go.
class ButtonGrid {
 public:
  static constexpr int kColumns = 6;

  // `count` buttons, at least 1.
  explicit constexpr ButtonGrid(int count) : rows_((count + kColumns - 1) / kColumns) {}

  constexpr int Rows() const { return rows_; }
  // Where the button of that 0-based index in the table stands.
  constexpr Cell CellOf(int index) const { return {index % rows_, index / rows_}; }
  // The button of a cell; no button of the table where the last column has ended.
  constexpr int IndexOf(Cell cell) const { return cell.column * rows_ + cell.row; }

 private:
  int rows_;
};

}  // namespace vantrel::console
