#pragma once

// What holds for every window.

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QKeySequence>
#include <QLabel>
#include <QMenuBar>
#include <QStringList>
#include <QTabWidget>
#include <QWidget>

namespace vantrel::support {

// The letters behind Alt of all that is in sight, one as often as it is there.
inline QStringList MnemonicsIn(const QWidget& window) {
  QStringList letters;
  const auto add = [&letters](const QString& text) {
    const QString letter = QKeySequence::mnemonic(text).toString();
    if (!letter.isEmpty()) letters += letter;
  };
  for (const auto* bar : window.findChildren<QMenuBar*>()) {
    for (const QAction* action : bar->actions()) add(action->text());
  }
  for (const auto* tabs : window.findChildren<QTabWidget*>()) {
    for (int page = 0; page < tabs->count(); ++page) add(tabs->tabText(page));
  }
  for (const auto* button : window.findChildren<QAbstractButton*>()) {
    if (button->isVisible()) add(button->text());
  }
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (label->isVisible() && label->buddy() != nullptr) add(label->text());
  }
  return letters;
}

// The letters that are there twice.
inline QStringList MnemonicsTwiceIn(const QWidget& window) {
  QStringList letters = MnemonicsIn(window);
  QStringList once = letters;
  once.removeDuplicates();
  for (const QString& letter : once) letters.removeOne(letter);
  return letters;
}

// Class and name of what is in sight, takes the focus, and has no name for a screen reader. The
// parts of a combo box or a spin box are told with it.
inline QStringList UnnamedIn(const QWidget& window) {
  QStringList unnamed;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const QWidget* parent = widget->parentWidget();
    if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus ||
        qobject_cast<const QComboBox*>(parent) != nullptr ||
        qobject_cast<const QAbstractSpinBox*>(parent) != nullptr)
      continue;
    const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
    if (told == nullptr || told->text(QAccessible::Name).isEmpty())
      unnamed += QString("%1 %2").arg(widget->metaObject()->className(), widget->objectName());
  }
  return unnamed;
}

}  // namespace vantrel::support
