// SPDX-License-Identifier: MIT
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
  // From now on a text stands out by a bar along the box's left edge.
  void SetStandsOut() { stands_out_ = true; }

  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  const int lines_;
  bool stands_out_ = false;
  bool shows_focus_ = false;
};

}  // namespace vantrel::console
