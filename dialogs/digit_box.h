// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace vantrel::dialogs {

// A text box that takes the digits 0 to 9 alone. Every other typed character is discarded,
// Backspace, Enter and Escape among them (they reach no button and close nothing); what is pasted
// or dropped loses all but its digits.
class DigitBox : public QLineEdit {
  Q_OBJECT

 public:
  // Whether Delete, Cut and the other keys that delete forward work, or are discarded like
  // Backspace.
  enum class Deleting { kAllowed, kDiscarded };

  DigitBox(const QString& name, const QString& text, Deleting deleting, QWidget* parent = nullptr);

 signals:
  // The left mouse button was pressed and released on the box.
  void Click();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  const Deleting deleting_;
};

}  // namespace vantrel::dialogs
