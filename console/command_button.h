// SPDX-License-Identifier: MIT
#pragma once

#include "console/command_family.h"

#include <QHash>
#include <QPushButton>

class QTextLayout;

namespace vantrel::console {

struct ConsoleCommand;

// A button whose caption wraps to as many lines as the button's width needs, with the command code
// that ends the caption in bold; a word that is wider than the button is broken. Its text is the
// caption as it stands; the property "Tag" holds the command's tag. The left edge has the tint of
// the command's family. Enter presses it, as Space does.
//
// Whether it is enabled and whether it looks so are two things: a button that is disabled for the
// few milliseconds of an exchange must not flicker.
class CommandButton : public QPushButton {
  Q_OBJECT

 public:
  explicit CommandButton(const ConsoleCommand& command, QWidget* parent = nullptr);

  // Makes the button look enabled or disabled, and nothing else. It looks enabled when made.
  void LookEnabled(bool enabled);
  bool LooksEnabled() const { return looks_enabled_; }

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  // Lays the caption out in lines of `width` pixels, centred, and returns the height of all lines.
  qreal LayOut(QTextLayout& layout, int width) const;
  void PaintTint(QPainter& painter) const;
  void TellScreenReader();

  const Family family_;
  const int code_length_;
  const QString shown_;  // the caption with marks for where a line may end
  bool looks_enabled_ = true;
  // The heights found for widths, because a layout asks for each many times over.
  mutable QHash<int, int> heights_;
};

}  // namespace vantrel::console
