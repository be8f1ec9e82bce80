// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QLineEdit>
#include <QPalette>
#include <QString>

#include <string_view>
#include <type_traits>

namespace vantrel::printer {

// One character a byte.
QString ToQt(std::string_view bytes);
// "41 42".
QString HexToQt(std::string_view bytes);

// What draws the eye, on this palette's ground: an amber with a contrast of 3:1 or more.
QColor NoticeColour(const QPalette& palette);

// Sets a text only where it is another one, so that a caret and a selection stay.
template <typename Box>
void SetText(Box* box, const QString& text) {
  if (box->text() == text) return;
  box->setText(text);
  // A line that is longer than its box shows its beginning.
  if constexpr (std::is_same_v<Box, QLineEdit>) {
    if (box->isReadOnly()) box->setCursorPosition(0);
  }
}

// Shows a text in a box to read, or in an empty one why it is empty; to a screen reader, too.
void ShowReading(QLineEdit* box, const QString& text, const QString& when_empty);

}  // namespace vantrel::printer
