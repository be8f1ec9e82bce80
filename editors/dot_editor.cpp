// SPDX-License-Identifier: MIT

#include "editors/dot_editor.h"

#include <utility>

namespace vantrel::editors {
namespace {

void ShowFirst(std::vector<bool>& selectors, int count) {
  for (std::size_t i = 0; i < selectors.size(); ++i) selectors[i] = static_cast<int>(i) < count;
}

}  // namespace

DotEditor::DotEditor(int columns, int rows, std::string frame_caption)
    : dots_(columns, rows),
      rows_(static_cast<std::size_t>(rows), true),
      columns_(static_cast<std::size_t>(columns), true),
      frame_caption_(std::move(frame_caption)) {}

void DotEditor::Lbldot_Click(int Index) { dots_.Toggle(Index); }

void DotEditor::lblHorizontal_Click(int Index) { MarkRow(Index, true); }
void DotEditor::lblHorizontal_DblClick(int Index) { MarkRow(Index, false); }
void DotEditor::LblVertical_Click(int Index) { MarkColumn(Index, true); }
void DotEditor::LblVertical_DblClick(int Index) { MarkColumn(Index, false); }

void DotEditor::MarkRow(int row, bool set) {
  for (int column = 0; column <= LastColumn(); ++column)
    dots_.Mark(column * dots_.Rows() + row, set);
}

void DotEditor::ShowRowSelectors(int count) { ShowFirst(rows_, count); }
void DotEditor::ShowColumnSelectors(int count) { ShowFirst(columns_, count); }

}  // namespace vantrel::editors
