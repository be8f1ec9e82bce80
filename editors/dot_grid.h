// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/guard.h"
#include "editors/dot_editor.h"

#include <QWidget>

#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel::editors {

// Draws the dots of an editor and the selectors beside them, and brings clicks on either to it.
//
// A click is a press and a release on the same dot or selector; the second press of a double click
// is a double click, which selectors have and dots have not, and its release is nothing. With the
// keyboard, arrow keys move over dots and selectors, Space clicks, and Delete on a selector does
// what a double click does.
class DotGrid : public QWidget {
  Q_OBJECT

 public:
  // What a click can hit. Dots are numbered as in DotPattern, row and column selectors from 0.
  struct Target {
    enum class Kind { kDot, kRowSelector, kColumnSelector };
    Kind kind = Kind::kDot;
    int index = 0;
    bool operator==(const Target&) const = default;
  };

  // `editor` and `guard`, inside which the editor hears of clicks, must outlive the grid. At the
  // least size, a dot is 9 device-independent pixels wide on a pitch of 8, times `scale`;
  // neighbours share the line between them. In a larger grid the shown dots grow by whole pixels,
  // as large as fit.
  DotGrid(const QString& name, DotEditor& editor, int scale, dialogs::Guard& guard,
          QWidget* parent = nullptr);

  // Rectangles in the grid's own coordinates; empty for what is hidden or does not exist.
  Q_INVOKABLE QRect DotRect(int index) const;
  Q_INVOKABLE QRect RowSelectorRect(int row) const;
  Q_INVOKABLE QRect ColumnSelectorRect(int column) const;

  QRect RectOf(const Target& target) const;
  // Dots first, then row selectors, then column selectors; hidden ones are counted.
  int TargetCount() const;
  Target TargetAt(int number) const;
  int NumberOf(const Target& target) const;
  // What a screen reader calls it, such as "Column 3, row 0".
  QString NameOf(const Target& target) const;
  const DotEditor& Editor() const { return editor_; }
  // Where the keyboard stands.
  const Target& Cursor() const { return cursor_; }

  void Click(const Target& target);
  void DblClick(const Target& target);

  // Repaints what has changed in the editor since it was last shown, and no more.
  void Refresh();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  // The editor may have changed.
  void Refreshed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QPoint OriginOfDots() const;
  // Where the cell in `column` and `row` lies, hidden or not.
  QRect CellRect(int column, int row) const;
  // How long so many cells of a pitch are, with the selectors after them.
  int LengthOf(int cells, int pitch) const { return (cells + 1) * pitch + pitch / 2 + scale_; }
  std::optional<Target> HitAt(const QPoint& position) const;
  // The columns or rows up to the last that has a visible dot.
  void MeasureShown();
  // From dot to dot, in pixels.
  int Pitch() const;
  std::vector<std::uint8_t> LookOfTargets() const;

  void MoveCursor(int columns, int rows);
  void SetCursor(const Target& target, bool by_keyboard);
  void ShowCursor(bool shown);
  void TellScreenReader(const Target& target) const;

  void PaintDot(QPainter& painter, int index) const;
  void PaintSelector(QPainter& painter, const QRect& rect, const QColor& color) const;
  void PaintOrigin(QPainter& painter) const;

  DotEditor& editor_;
  const int scale_;
  dialogs::Guard& guard_;
  int shown_columns_ = 0;
  int shown_rows_ = 0;
  std::vector<std::uint8_t> shown_;  // the looks at the last Refresh
  std::optional<Target> pressed_;
  std::optional<Target> clicked_;  // by the last press and release, unless a double click came
  QPoint clicked_at_;
  Target cursor_;
  // The cursor is drawn while the keyboard is used, so that a click repaints its own dot alone.
  bool cursor_shown_ = false;
};

}  // namespace vantrel::editors
