#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>

namespace vantrel {

// A frame, a button and a label with their design names. A label's text is plain text.

inline QGroupBox* MakeFrame(const QString& name, const QString& caption) {
  auto* frame = new QGroupBox(caption);
  frame->setObjectName(name);
  return frame;
}

inline QPushButton* MakeButton(const QString& name, const QString& caption) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  return button;
}

inline QLabel* MakeLabel(const QString& name, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

// Gives a bar the height that a text of two lines needs, so that it takes no room from the form
// when one appears.
inline void ReserveTwoLines(QStatusBar* bar) {
  bar->setMinimumHeight(2 * bar->fontMetrics().lineSpacing() + 10);
}

}  // namespace vantrel
