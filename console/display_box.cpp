// SPDX-License-Identifier: MIT

#include "console/display_box.h"

#include "dialogs/focus_ring.h"

#include <QFontDatabase>
#include <QPainter>

#include <cmath>
#include <utility>

namespace vantrel::console {
namespace {

constexpr int kBar = 3;  // pixels; less than the document's own margin

}  // namespace

DisplayBox::DisplayBox(const QString& name, const QString& accessible_name, int lines,
                       QWidget* parent)
    : QPlainTextEdit(parent), lines_(lines) {
  setObjectName(name);
  setAccessibleName(accessible_name);
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setTabChangesFocus(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setFocusPolicy(Qt::StrongFocus);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void DisplayBox::SetText(const QString& text) {
  if (text.isEmpty() ? !document()->isEmpty() : text != toPlainText()) setPlainText(text);
}

QSize DisplayBox::minimumSizeHint() const {
  const int margins =
      static_cast<int>(std::ceil(2 * document()->documentMargin())) + 2 * frameWidth();
  return {fontMetrics().averageCharWidth() * 12, fontMetrics().lineSpacing() * lines_ + margins};
}

void DisplayBox::paintEvent(QPaintEvent* event) {
  QPlainTextEdit::paintEvent(event);
  QPainter painter(viewport());
  if (stands_out_ && !document()->isEmpty())
    painter.fillRect(QRect(0, 0, kBar, viewport()->height()), dialogs::FocusColor(palette()));
  if (shows_focus_) dialogs::PaintFocusRing(painter, *viewport());
}

void DisplayBox::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  // While a command waits the focus is only parked here.
  shows_focus_ = event->reason() != Qt::OtherFocusReason;
  if (shows_focus_) viewport()->update();
}

void DisplayBox::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  if (std::exchange(shows_focus_, false)) viewport()->update();
}

}  // namespace vantrel::console
