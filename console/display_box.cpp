#include "console/display_box.h"

#include <QFontDatabase>

#include <cmath>

namespace vantrel::console {

DisplayBox::DisplayBox(const QString& name, const QString& accessible_name, int lines,
                       QWidget* parent)
    : QPlainTextEdit(parent) {
  setObjectName(name);
  setAccessibleName(accessible_name);
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setTabChangesFocus(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  const int margins =
      static_cast<int>(std::ceil(2 * document()->documentMargin())) + 2 * frameWidth();
  setMinimumHeight(fontMetrics().lineSpacing() * lines + margins);
}

void DisplayBox::SetText(const QString& text) {
  if (text.isEmpty() ? !document()->isEmpty() : text != toPlainText()) setPlainText(text);
}

QSize DisplayBox::sizeHint() const { return minimumSize(); }

}  // namespace vantrel::console
