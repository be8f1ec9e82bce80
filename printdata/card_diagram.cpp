// SPDX-License-Identifier: MIT

#include "printdata/card_diagram.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace vantrel::printdata {
namespace {

constexpr int kGap = 8;
// How far an axis runs on beyond the card, and its arrow head.
constexpr int kAxisOvershoot = 16;
constexpr int kHead = 5;
constexpr int kPointRadius = 5;
// The card has the printable area's shape, 320 to 480 dots.
constexpr int kShortSide = 152;
constexpr int kLongSide = 228;

void DrawArrow(QPainter& painter, QPoint from, QPoint to) {
  painter.drawLine(from, to);
  const bool upwards = from.x() == to.x();
  const QPoint back = upwards ? QPoint(0, 2 * kHead) : QPoint(-2 * kHead, 0);
  const QPoint aside = upwards ? QPoint(kHead, 0) : QPoint(0, kHead);
  painter.drawPolygon(QPolygon({to, to + back + aside, to + back - aside}));
}

// A broad arrow that points upwards in a square from (0,0) to (1,1).
QPolygonF BroadArrow() {
  return QPolygonF({{0.5, 0}, {1, 0.5}, {0.7, 0.5}, {0.7, 1}, {0.3, 1}, {0.3, 0.5}, {0, 0.5}});
}

}  // namespace

CardDiagram::CardDiagram(Orientation orientation, QWidget* parent)
    : QWidget(parent),
      orientation_(orientation),
      y_range_(Label(orientation == Orientation::kVertical ? "Y: 0 - 479" : "Y: 0 - 319")),
      x_range_(Label(orientation == Orientation::kVertical ? "X: 0 - 319" : "X: 0 - 479")),
      insert_(Label("Insert Card Direction")),
      origin_(Label("Origin (0,0)")),
      reference_(Label("Reference Point (X,Y) = Left Bootom")) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QLabel* CardDiagram::Label(const QString& text) {
  auto* label = new QLabel(text, this);
  label->setTextFormat(Qt::PlainText);
  return label;
}

int CardDiagram::LineHeight() const { return fontMetrics().lineSpacing() + 4; }

QSize CardDiagram::CardSize() const {
  const QSize size(std::max(kShortSide, insert_->sizeHint().width() + 2 * kGap), kLongSide);
  return orientation_ == Orientation::kVertical ? size : QSize(kLongSide, kShortSide);
}

QSize CardDiagram::minimumSizeHint() const {
  const QSize card = CardSize();
  const int left = y_range_->sizeHint().width() + kGap;
  const int right =
      std::max(card.width() + kAxisOvershoot, 2 * kGap + reference_->sizeHint().width());
  return {left + right + 1, kAxisOvershoot + card.height() + kGap + 3 * LineHeight()};
}

QRect CardDiagram::CardRect() const {
  const QSize spare = size() - minimumSizeHint();
  const QPoint corner(std::max(0, spare.width() / 2) + y_range_->sizeHint().width() + kGap,
                      std::max(0, spare.height() / 2) + kAxisOvershoot);
  return {corner, CardSize()};
}

void CardDiagram::resizeEvent(QResizeEvent*) {
  const QRect card = CardRect();
  const auto place = [](QLabel* label, int x, int y) {
    label->setGeometry(QRect(QPoint(x, y), label->sizeHint()));
  };
  const int height = insert_->sizeHint().height();
  place(y_range_, card.left() - kGap - y_range_->sizeHint().width(),
        card.center().y() - height / 2);
  // Under the card, one line each, so that none meets another.
  const int first = card.bottom() + kGap;
  const auto in_line = [&](int line) { return first + line * LineHeight(); };
  place(x_range_, card.center().x() - x_range_->sizeHint().width() / 2, in_line(0));
  place(origin_, card.left() + 2 * kGap, in_line(1));
  place(reference_, card.left() + 2 * kGap, in_line(2));
  place(insert_, card.center().x() - insert_->sizeHint().width() / 2, card.center().y() + 20);
}

void CardDiagram::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRect card = CardRect();
  const QPoint origin = card.bottomLeft();
  const QColor ink = palette().color(QPalette::WindowText);
  const QColor accent = palette().color(QPalette::Highlight);

  QColor outline = ink;
  outline.setAlphaF(0.4F);
  painter.setPen(QPen(outline, 1));
  painter.setBrush(palette().base());
  painter.drawRoundedRect(card, 10, 10);

  painter.save();
  painter.translate(card.center().x(), card.center().y() - 14);
  if (orientation_ == Orientation::kHorizontal) painter.rotate(90);
  painter.scale(52, 52);
  painter.translate(-0.5, -0.5);
  painter.setPen(Qt::NoPen);
  painter.setBrush(accent);
  painter.drawPolygon(BroadArrow());
  painter.restore();

  painter.setPen(QPen(ink, 2));
  painter.setBrush(ink);
  DrawArrow(painter, origin, QPoint(card.right() + kAxisOvershoot - 2, origin.y()));
  DrawArrow(painter, origin, QPoint(origin.x(), card.top() - kAxisOvershoot + 2));

  // The two texts of the reference point hang from it by a line.
  painter.setPen(QPen(ink, 1));
  for (const QLabel* label : {origin_, reference_}) {
    const int y = label->geometry().center().y();
    painter.drawLine(origin, QPoint(origin.x(), y));
    painter.drawLine(QPoint(origin.x(), y), QPoint(label->geometry().left() - 4, y));
  }
  painter.setBrush(accent);
  painter.drawEllipse(origin, kPointRadius, kPointRadius);
}

}  // namespace vantrel::printdata
