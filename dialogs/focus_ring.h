// SPDX-License-Identifier: MIT
#pragma once

#include <QFocusEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

namespace vantrel::dialogs {

// Width of the ring around what has the focus, in device-independent pixels.
inline constexpr int kFocusRingWidth = 2;

// The contrast ratio of two colours, 1 to 21, as WCAG 2 defines it.
double ContrastRatio(const QColor& one, const QColor& other);

// A colour of the palette that stands out from its buttons, its bases and its windows at 3 to 1 or
// more, where it has one.
QColor FocusColor(const QPalette& palette);

// Draws the ring along the inner edge of `widget`, on which `painter` paints.
void PaintFocusRing(QPainter& painter, const QWidget& widget);

// A widget that shows the ring when it has the focus.
template <typename Widget>
class Ringed : public Widget {
 public:
  using Widget::Widget;

 protected:
  void paintEvent(QPaintEvent* event) override {
    Widget::paintEvent(event);
    if (!this->hasFocus()) return;
    QPainter painter(this);
    PaintFocusRing(painter, *this);
  }
  void focusInEvent(QFocusEvent* event) override {
    Widget::focusInEvent(event);
    this->update();
  }
  void focusOutEvent(QFocusEvent* event) override {
    Widget::focusOutEvent(event);
    this->update();
  }
};

}  // namespace vantrel::dialogs
