// SPDX-License-Identifier: MIT
#pragma once

#include "editors/dot_pattern.h"

#include <string>
#include <vector>

namespace vantrel::editors {

// What the two editors of dots have in common: the dots, the selectors beside them and what a click
// on either does. A row selector stands right of its row, a column selector below its column.
class DotEditor {
 public:
  virtual ~DotEditor() = default;
  DotEditor(const DotEditor&) = delete;
  DotEditor& operator=(const DotEditor&) = delete;

  const DotPattern& Dots() const { return dots_; }
  // The columns, and the dots of each from the top, that the data field carries.
  int PrintedColumns() const { return LastColumn() + 1; }
  virtual int PrintedRows() const = 0;
  // 0-based. Throw std::out_of_range.
  bool RowSelectorVisible(int row) const { return rows_.at(static_cast<std::size_t>(row)); }
  bool ColumnSelectorVisible(int column) const {
    return columns_.at(static_cast<std::size_t>(column));
  }

  // The form's caption, the caption of the frame around the dots and the hint in panel 1.
  const std::string& Caption() const { return caption_; }
  const std::string& FrameCaption() const { return frame_caption_; }
  const std::string& Panel1() const { return panel1_; }

  // A click on dot `Index` toggles it.
  void Lbldot_Click(int Index);
  // A click on a row selector sets the row in every column in use, visible or not; a double click
  // clears it.
  void lblHorizontal_Click(int Index);
  void lblHorizontal_DblClick(int Index);
  // A click on a column selector sets the dots of its column, a double click clears them.
  void LblVertical_Click(int Index);
  void LblVertical_DblClick(int Index);

 protected:
  DotEditor(int columns, int rows, std::string frame_caption);

  // The last column in use, 0-based.
  virtual int LastColumn() const = 0;
  virtual void MarkColumn(int column, bool set) = 0;

  DotPattern& EditedDots() { return dots_; }
  // Shows the selectors of the first so many rows or columns and hides the others.
  void ShowRowSelectors(int count);
  void ShowColumnSelectors(int count);
  void SetCaption(std::string text) { caption_ = std::move(text); }
  void SetFrameCaption(std::string text) { frame_caption_ = std::move(text); }
  void SetPanel1(std::string text) { panel1_ = std::move(text); }

 private:
  void MarkRow(int row, bool set);

  DotPattern dots_;
  std::vector<bool> rows_;
  std::vector<bool> columns_;
  std::string caption_;
  std::string frame_caption_;
  std::string panel1_;
};

}  // namespace vantrel::editors
