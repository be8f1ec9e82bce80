#pragma once

#include <QPlainTextEdit>

namespace vantrel::console {

// A read-only text box of several lines whose text can be selected and copied.
class DisplayBox : public QPlainTextEdit {
  Q_OBJECT
  Q_PROPERTY(QString text READ toPlainText WRITE setPlainText)

 public:
  // Is at least `lines` lines of text high; more can be scrolled to.
  DisplayBox(const QString& name, const QString& accessible_name, int lines,
             QWidget* parent = nullptr);

  // Shows `text`; a text that it shows already costs nothing.
  void SetText(const QString& text);

  QSize sizeHint() const override;
};

}  // namespace vantrel::console
