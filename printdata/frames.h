#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

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

}  // namespace vantrel
