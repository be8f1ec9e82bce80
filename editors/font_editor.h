// SPDX-License-Identifier: MIT
#pragma once

#include "editors/dot_editor.h"
#include "link/common.h"

#include <string>
#include <string_view>

namespace vantrel::editors {

// The data field of 44h and 45h: "0,A,00FF...". The number is sent as it is, `hex` is the columns'
// bytes as hex text.
std::string ComposeCharacterData(bool is_24_dot, std::string_view image_no, std::string_view hex);

// The editor of an external character: 44h registers a double-byte one (24 x 24 or 16 x 16 dots,
// columns x rows), 45h a single-byte one (12 x 24 or 8 x 16).
class FontEditor : public DotEditor {
 public:
  // `common` says the mode and takes the data field; it must outlive the editor.
  explicit FontEditor(link::CommonVariables& common);

  int PrintedRows() const override { return is_24_dot_ ? 24 : 16; }
  // The index of the last dot in use: a whole number of columns of 24.
  int LastDotIndex() const { return last_dot_index_; }

  // Leaves the all-set 24 x 24 pattern in DataString, which is what the console sends when the form
  // is closed by its close box.
  void Form_Activate();
  // Change the font's height. All values become 0 and no dot is repainted, so black dots stay black
  // and a click on one clears it: this is meant.
  void Opt24dot_Click();
  void Opt16dot_Click();
  // 0 is "Fill All", 1 is "Clear All". Both leave a dot alone that has the wanted paint already.
  void CmdAll_Click(int Index);
  // Composes DataString: size code, registration number as typed and the dots.
  void CmdNext_Click(std::string_view image_no);

 protected:
  int LastColumn() const override;
  void MarkColumn(int column, bool set) override;

 private:
  // Zeroes all values and shows the first `rows` dots of the first `columns` columns.
  void SizeGrid(int columns, int rows);

  link::CommonVariables& common_;
  bool is_24_dot_ = true;
  int last_dot_index_ = 0;
};

}  // namespace vantrel::editors
