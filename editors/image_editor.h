// SPDX-License-Identifier: MIT
#pragma once

#include "editors/dot_editor.h"
#include "link/common.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantrel::editors {

// The printer's image area: its last line (X) and the last byte of eight dots of each line (Y).
inline constexpr int kLastImageLine = 479;
inline constexpr int kLastImageByte = 39;

// The data field of 43h, or of 4Dh where `line_bytes`, the bytes of each line, are told:
// "0,0,5,00FF...". The coordinates are sent as they are, `hex` is the lines' bytes as hex text.
std::string ComposeImageData(std::string_view x_text, std::string_view y_text,
                             std::optional<int> line_bytes, std::string_view hex);

// The editor of an external image: line mode (43h) sends one line of up to 40 dots, block mode
// (4Dh) up to 40 lines. The printer's image area has 480 lines (X) of 40 bytes of eight dots (Y); a
// column of the grid is a line. The user gives the coordinates first and draws then.
class ImageEditor : public DotEditor {
 public:
  enum class Step { kCoordinates, kDrawing };

  // A coordinate out of range, with the message that says so.
  struct InvalidCoordinate {
    bool is_x;
    std::string prompt;
    std::string title;
  };

  // `common` says the mode and takes the data field; it must outlive the editor.
  explicit ImageEditor(link::CommonVariables& common);

  Step CurrentStep() const { return step_; }
  int PrintedRows() const override;
  // The last line that the data field carries, and the last byte of each line.
  int LastLineIndex() const { return last_line_index_; }
  int LastByteIndex() const { return last_byte_index_; }

  // Begins in the coordinate step and leaves "0" in DataString, which is what the console sends
  // when the form is closed by its close box.
  void Form_Activate();
  // Goes back to the coordinate step. Dots already drawn keep their state.
  void TxtCoordinate_Click() { step_ = Step::kCoordinates; }
  // Reads the coordinates from what the texts begin with (an empty text is 0). Goes on to drawing
  // and sizes the grid; returns what is wrong, and changes nothing, when one is out of range.
  std::optional<InvalidCoordinate> CmdSet_Click(std::string_view x_text, std::string_view y_text);
  // Repaints the visible dots clear. Their values stay, so what was drawn is still sent: this is
  // meant.
  void CmdClear_Click();
  // Composes DataString from the coordinates as they stand and the lines in use. Throws
  // std::out_of_range when the lines' bytes reach past the last dot.
  void CmdNext_Click(std::string_view x_text, std::string_view y_text);

 protected:
  int LastColumn() const override { return last_line_index_; }
  void MarkColumn(int column, bool set) override;

 private:
  void SizeGrid(int x, int y);

  link::CommonVariables& common_;
  Step step_ = Step::kCoordinates;
  int last_line_index_ = 0;
  int last_byte_index_ = 0;
};

}  // namespace vantrel::editors
