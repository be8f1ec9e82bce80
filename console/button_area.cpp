// SPDX-License-Identifier: MIT

#include "console/button_area.h"

#include "console/command_button.h"
#include "console/command_table.h"

#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>

#include <algorithm>

namespace vantrel::console {

ButtonArea::ButtonArea(std::span<const ConsoleCommand> commands, QWidget* parent)
    : QWidget(parent), places_(static_cast<int>(commands.size())) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(5);
  grid->setVerticalSpacing(3);
  for (int i = 0; i < static_cast<int>(commands.size()); ++i) {
    auto* button = new CommandButton(commands[static_cast<std::size_t>(i)]);
    buttons_.push_back(button);
    // A line stands between two columns.
    const Cell cell = places_.CellOf(i);
    grid->addWidget(button, cell.row, cell.column * 2);
  }
  for (int column = 0; column < ButtonGrid::kColumns; ++column)
    grid->setColumnStretch(column * 2, 1);
  for (int row = 0; row < places_.Rows(); ++row) grid->setRowStretch(row, 1);
  for (int number = 1; number < ButtonGrid::kColumns; ++number) {
    auto* line = new QFrame;
    line->setObjectName(QString("Line%1").arg(number));
    line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    grid->addWidget(line, 0, number * 2 - 1, places_.Rows(), 1);
  }
}

void ButtonArea::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      return MoveFocus(0, -1);
    case Qt::Key_Right:
      return MoveFocus(0, 1);
    case Qt::Key_Up:
      return MoveFocus(-1, 0);
    case Qt::Key_Down:
      return MoveFocus(1, 0);
    default:
      QWidget::keyPressEvent(event);
  }
}

void ButtonArea::MoveFocus(int rows, int columns) {
  const auto focused = std::find(buttons_.begin(), buttons_.end(), focusWidget());
  if (focused == buttons_.end()) return;
  const int count = static_cast<int>(buttons_.size());
  Cell cell = places_.CellOf(static_cast<int>(focused - buttons_.begin()));
  while (true) {
    cell = {cell.row + rows, cell.column + columns};
    if (cell.row < 0 || cell.row >= places_.Rows() || cell.column < 0 ||
        cell.column >= ButtonGrid::kColumns)
      return;
    const int index = places_.IndexOf(cell);
    if (index >= count) return;
    CommandButton* button = buttons_[static_cast<std::size_t>(index)];
    if (!button->isEnabled()) continue;
    button->setFocus(Qt::TabFocusReason);
    return;
  }
}

}  // namespace vantrel::console
