// SPDX-License-Identifier: MIT
#pragma once

#include "console/button_grid.h"

#include <QWidget>

#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace vantrel::console {

class CommandButton;
struct ConsoleCommand;

// The command buttons in their grid, with a line between two columns. Arrow keys bring the focus to
// the next enabled button that way; at the edge it stays.
class ButtonArea : public QWidget {
  Q_OBJECT

 public:
  explicit ButtonArea(std::span<const ConsoleCommand> commands, QWidget* parent = nullptr);

  // In the order of the commands.
  const std::vector<CommandButton*>& Buttons() const { return buttons_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // From the button that has the focus.
  void MoveFocus(int rows, int columns);

  const ButtonGrid places_;
  std::vector<CommandButton*> buttons_;
};

}  // namespace vantrel::console
