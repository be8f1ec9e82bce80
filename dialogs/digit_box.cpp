// SPDX-License-Identifier: MIT

#include "dialogs/digit_box.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QValidator>

#include <algorithm>

namespace vantrel::dialogs {
namespace {

bool IsDigit(QChar character) { return character >= u'0' && character <= u'9'; }

// Accepts every text after taking out what is no digit.
class DigitFilter : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& input, int& position) const override {
    QString digits;
    int digits_before = 0;
    for (qsizetype i = 0; i < input.size(); ++i) {
      if (!IsDigit(input[i])) continue;
      digits += input[i];
      if (i < position) ++digits_before;
    }
    input = digits;
    position = digits_before;
    return Acceptable;
  }
};

bool TakesAway(QKeyEvent* event) {
  static constexpr QKeySequence::StandardKey kKeys[] = {QKeySequence::Delete,
                                                        QKeySequence::Cut,
                                                        QKeySequence::DeleteEndOfWord,
                                                        QKeySequence::DeleteEndOfLine,
                                                        QKeySequence::DeleteCompleteLine,
                                                        QKeySequence::Undo,
                                                        QKeySequence::Redo};
  return event->key() == Qt::Key_Delete ||
         std::any_of(std::begin(kKeys), std::end(kKeys),
                     [event](auto key) { return event->matches(key); });
}

}  // namespace

DigitBox::DigitBox(const QString& name, const QString& text, Deleting deleting, QWidget* parent)
    : QLineEdit(text, parent), deleting_(deleting) {
  setObjectName(name);
  setValidator(new DigitFilter(this));
}

void DigitBox::keyPressEvent(QKeyEvent* event) {
  event->accept();
  switch (event->key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Escape:
      return;
    default:
      break;
  }
  if (TakesAway(event)) {
    if (deleting_ == Deleting::kAllowed) QLineEdit::keyPressEvent(event);
    return;
  }
  const QString text = event->text();
  const bool is_shortcut =
      (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  const bool types = !is_shortcut && !text.isEmpty() && text[0].isPrint();
  if (types && !std::all_of(text.begin(), text.end(), IsDigit)) return;
  QLineEdit::keyPressEvent(event);
}

void DigitBox::contextMenuEvent(QContextMenuEvent* event) {
  if (deleting_ == Deleting::kAllowed) {
    QLineEdit::contextMenuEvent(event);
    return;
  }
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(tr("Copy"), this, &QLineEdit::copy)->setEnabled(hasSelectedText());
  menu->addAction(tr("Paste"), this, &QLineEdit::paste);
  menu->addAction(tr("Select All"), this, &QLineEdit::selectAll);
  menu->popup(event->globalPos());
}

void DigitBox::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
    emit Click();
}

}  // namespace vantrel::dialogs
