// SPDX-License-Identifier: MIT

#include "dialogs/named_widgets.h"

namespace vantrel::dialogs {

QPushButton* MakeButton(const QString& name, const QString& caption) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  return button;
}

QLabel* MakeLabel(const QString& name, const QString& text) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  return label;
}

}  // namespace vantrel::dialogs
