// SPDX-License-Identifier: MIT

#include "printer/window/form_text.h"

#include "link/frame.h"

namespace vantrel::printer {

QString ToQt(std::string_view bytes) {
  return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

QString HexToQt(std::string_view bytes) {
  return ToQt(link::SpacedPairs(link::HexTextOf(link::Bytes(bytes.begin(), bytes.end()))))
      .trimmed();
}

void ShowReading(QLineEdit* box, const QString& text, const QString& when_empty) {
  SetText(box, text);
  box->setPlaceholderText(when_empty);
  box->setAccessibleDescription(text.isEmpty() ? when_empty
                                               : QObject::tr("%1 characters").arg(text.size()));
}

QColor NoticeColour(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() < 128 ? QColor(0xff, 0xb3, 0x00)
                                                         : QColor(0xb4, 0x5f, 0x00);
}

}  // namespace vantrel::printer
