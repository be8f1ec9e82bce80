// SPDX-License-Identifier: MIT

#include "editors/font_editor.h"

namespace vantrel::editors {
namespace {

constexpr int kColumns = 24;
constexpr int kRows = 24;

}  // namespace

std::string ComposeCharacterData(bool is_24_dot, std::string_view image_no, std::string_view hex) {
  std::string data = is_24_dot ? "0," : "1,";
  return data.append(image_no).append(",").append(hex);
}

FontEditor::FontEditor(link::CommonVariables& common)
    : DotEditor(kColumns, kRows, "24 X 24"), common_(common) {}

void FontEditor::Form_Activate() {
  const bool double_byte = common_.IsDoubleByteFont;
  common_.DataString = std::string(144, 'F');
  SetCaption(double_byte ? "44h Double byte external character registered font command"
                         : "45h Single byte external character registered font command");
  SetFrameCaption(double_byte ? "24 X 24" : "12 X 24");
  SetPanel1("Max 16 registered fonts");
  SizeGrid(double_byte ? 24 : 12, kRows);
  if (!is_24_dot_) ShowRowSelectors(16);
}

void FontEditor::Opt24dot_Click() {
  is_24_dot_ = true;
  const bool double_byte = common_.IsDoubleByteFont;
  // Not "12 X 24" for a single-byte character: meant. The hint of the 16-dot font stays, too.
  SetFrameCaption(double_byte ? "24 X 24" : "16 X 16");
  SizeGrid(double_byte ? 24 : 12, kRows);
}

void FontEditor::Opt16dot_Click() {
  is_24_dot_ = false;
  const bool double_byte = common_.IsDoubleByteFont;
  SetPanel1("16 dot font is invalid on Japan, China, HK & Taiwan version");
  SetFrameCaption(double_byte ? "16 X 16" : "8 X 16");
  SizeGrid(double_byte ? 16 : 8, 16);
}

void FontEditor::SizeGrid(int columns, int rows) {
  last_dot_index_ = columns * kRows - 1;
  for (int i = 0; i < EditedDots().Count(); ++i) {
    EditedDots().SetValue(i, 0);
    EditedDots().Show(i, i <= last_dot_index_ && i % kRows < rows);
  }
  ShowColumnSelectors(columns);
  ShowRowSelectors(rows);
}

int FontEditor::LastColumn() const { return (last_dot_index_ + 1) / kRows - 1; }

void FontEditor::MarkColumn(int column, bool set) {
  for (int i = column * kRows; i < (column + 1) * kRows; ++i)
    if (Dots().IsVisible(i)) EditedDots().Mark(i, set);
}

void FontEditor::CmdAll_Click(int Index) {
  const bool set = Index == 0;
  for (int i = 0; i <= last_dot_index_; ++i)
    if (Dots().IsVisible(i) && Dots().IsBlack(i) != set) EditedDots().Mark(i, set);
}

void FontEditor::CmdNext_Click(std::string_view image_no) {
  const std::string hex = Dots().Hex(LastColumn(), is_24_dot_ ? 2 : 1);
  common_.DataString = ComposeCharacterData(is_24_dot_, image_no, hex);
}

}  // namespace vantrel::editors
