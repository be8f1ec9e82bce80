#include "printer/indicator_sign.h"

#include "printer/rhythm.h"

#include <QPainter>
#include <QPainterPath>

#include <chrono>

namespace vantrel {

IndicatorSign::IndicatorSign(Shape shape, QWidget* parent) : QWidget(parent), shape_(shape) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  next_turn_.setSingleShot(true);
  next_turn_.setTimerType(Qt::PreciseTimer);
  connect(&next_turn_, &QTimer::timeout, this, &IndicatorSign::Turn);
}

void IndicatorSign::Show(char operation, const QColor& colour) {
  if (operation == operation_ && colour == colour_) return;
  operation_ = operation;
  colour_ = colour;
  on_ = false;
  since_.start();
  Turn();
}

void IndicatorSign::Turn() {
  const std::chrono::milliseconds since{since_.elapsed()};
  const bool was_on = std::exchange(on_, IsOn(operation_, since));
  if (const auto left = UntilNextTurn(operation_, since))
    next_turn_.start(*left);
  else
    next_turn_.stop();
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

}  // namespace vantrel
