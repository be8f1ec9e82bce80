// SPDX-License-Identifier: MIT
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
#include <QProgressBar>
#include <QStringList>
#include <QTabWidget>
#include <QWidget>

#include <string_view>
#include <typeinfo>

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

// Whether a widget is a picture that a class of this system paints, with no widgets in it.
inline bool IsPicture(const QWidget& widget) {
  return std::string_view(typeid(widget).name()).find("vantrel") != std::string_view::npos &&
         widget.findChildren<QWidget*>().isEmpty();
}

// Whether a screen reader has words for a widget beside what it holds. A combo box gives what it
// shows for its name; its caption is its label's or else its description.
inline bool IsNamed(QWidget& widget) {
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&widget);
  if (told == nullptr) return false;
  if (qobject_cast<const QComboBox*>(&widget) == nullptr)
    return !told->text(QAccessible::Name).trimmed().isEmpty();
  return !told->relations(QAccessible::Label).isEmpty() ||
         !told->text(QAccessible::Description).trimmed().isEmpty();
}

// Class and name of what is in sight, takes the focus, shows progress or is a picture, and has no
// name for a screen reader. The parts of a combo box or a spin box are told with it.
inline QStringList UnnamedIn(const QWidget& window) {
  QStringList unnamed;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const QWidget* parent = widget->parentWidget();
    const bool tells = widget->focusPolicy() != Qt::NoFocus || IsPicture(*widget) ||
                       qobject_cast<QProgressBar*>(widget) != nullptr;
    if (!widget->isVisible() || !tells || qobject_cast<const QComboBox*>(parent) != nullptr ||
        qobject_cast<const QAbstractSpinBox*>(parent) != nullptr)
      continue;
    if (!IsNamed(*widget))
      unnamed += QString("%1 %2").arg(widget->metaObject()->className(), widget->objectName());
  }
  return unnamed;
}

}  // namespace vantrel::support
