// SPDX-License-Identifier: MIT

#include "printer/window/indicator_sign.h"

#include <QPainter>
#include <QPainterPath>

#include <utility>

namespace vantrel::printer {

QColor LedColour(char colour) {
  if (colour == '2') return {0xe5, 0x39, 0x35};
  return colour == '3' ? QColor(0xff, 0x98, 0x00) : QColor(0x2e, 0xb8, 0x5c);
}

IndicatorSign::IndicatorSign(Shape shape, QWidget* parent) : QWidget(parent), shape_(shape) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void IndicatorSign::Show(bool on, const QColor& colour) {
  if (on == on_ && colour == colour_) return;
  const bool was_on = std::exchange(on_, on);
  colour_ = colour;
  update();
  if (on_ && !was_on) emit TurnedOn();
}

void IndicatorSign::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(width() / 22.0, height() / 22.0);
  QColor edge = palette().color(QPalette::WindowText);
  edge.setAlpha(150);
  painter.setPen(QPen(edge, 1.4));
  painter.setBrush(on_ ? QBrush(colour_) : QBrush(Qt::NoBrush));
  if (shape_ == Shape::kLamp) {
    painter.drawEllipse(QPointF(11, 11), 7, 7);
    return;
  }
  QPainterPath bell(QPointF(4, 16));
  bell.cubicTo(QPointF(7, 14), QPointF(4.5, 4), QPointF(11, 4));
  bell.cubicTo(QPointF(17.5, 4), QPointF(15, 14), QPointF(18, 16));
  bell.closeSubpath();
  painter.drawPath(bell);
  painter.drawArc(QRectF(9, 14.5, 4, 4), 180 * 16, 180 * 16);
  if (!on_) return;
  for (const int side : {0, 180}) {
    painter.drawArc(QRectF(1, 1, 20, 16), (side - 25) * 16, 50 * 16);
  }
}

}  // namespace vantrel::printer
