// SPDX-License-Identifier: MIT

#include "printer/window/card_slot_view.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <string>

namespace vantrel::printer {
namespace {

// The drawing is laid out on this grid and scaled to the widget.
constexpr QSizeF kGrid{520, 190};
constexpr QRectF kBody{190, 20, 310, 150};
constexpr QSizeF kCard{150, 95};
constexpr double kCardTop = 47;
constexpr QColor kDarkLed(0x60, 0x66, 0x70);

double CardLeft(CardPlace place) {
  switch (place) {
    case CardPlace::kFront:
      return 120;
    case CardPlace::kInside:
      return 235;
    case CardPlace::kRear:
      return 340;
    case CardPlace::kExit:
      return 65;
    default:
      return 12;
  }
}

}  // namespace

CardSlotView::CardSlotView(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  // The hand's buttons hand their focus to it while a card moves; the key Tab passes it by.
  setFocusPolicy(Qt::ClickFocus);
}

void CardSlotView::Show(CardPlace place, CardKind kind) {
  place_ = place;
  kind_ = kind;
  setAccessibleName(tr("Card %1").arg(QString::fromStdString(std::string(PlaceInWords(place)))));
  update();
}

void CardSlotView::ShowLed(bool lit, const QColor& colour) {
  if (lit == led_is_lit_ && colour == led_colour_) return;
  led_is_lit_ = lit;
  led_colour_ = colour;
  update();
}

QSize CardSlotView::sizeHint() const { return kGrid.toSize(); }

QSize CardSlotView::minimumSizeHint() const { return (kGrid * 0.48).toSize(); }

void CardSlotView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double scale = std::min(width() / kGrid.width(), height() / kGrid.height());
  painter.translate((width() - kGrid.width() * scale) / 2, (height() - kGrid.height() * scale) / 2);
  painter.scale(scale, scale);

  const bool dark = palette().color(QPalette::Window).lightness() < 128;
  const QColor body = dark ? QColor(0x3a, 0x41, 0x4c) : QColor(0xd9, 0xde, 0xe6);
  const QColor edge = dark ? QColor(0x6b, 0x75, 0x85) : QColor(0x9a, 0xa4, 0xb3);
  painter.setPen(QPen(edge, 1.5));
  painter.setBrush(body);
  painter.drawRoundedRect(kBody, 12, 12);
  // The bed on which the card lies, open at the slot.
  painter.setPen(Qt::NoPen);
  painter.setBrush(body.darker(dark ? 150 : 115));
  painter.drawRect(QRectF(kBody.left() - 1, kCardTop - 6, kBody.width() - 8, kCard.height() + 12));
  painter.setBrush(edge);
  painter.drawRoundedRect(QRectF(kBody.left() - 5, kCardTop - 10, 8, kCard.height() + 20), 3, 3);

  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(QRectF(kBody.left() + 12, kBody.top(), 120, 22), Qt::AlignVCenter, tr("Front"));
  painter.drawText(QRectF(kBody.right() - 132, kBody.top(), 120, 22),
                   Qt::AlignVCenter | Qt::AlignRight, tr("Rear"));
  painter.setPen(QPen(edge, 1));
  painter.setBrush(led_is_lit_ ? led_colour_ : kDarkLed);
  painter.drawEllipse(QPointF(kBody.left() + 20, kBody.bottom() - 11), 5.5, 5.5);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(QRectF(kBody.left() + 32, kBody.bottom() - 22, 60, 22), Qt::AlignVCenter,
                   tr("LED"));

  DrawCard(painter, QRectF(QPointF(CardLeft(place_), kCardTop), kCard));
}

void CardSlotView::DrawCard(QPainter& painter, const QRectF& card) const {
  const bool cleaning = kind_ == CardKind::kCleaning;
  QPainterPath outline;
  outline.addRoundedRect(card, 8, 8);
  QLinearGradient face(card.topLeft(), card.bottomRight());
  face.setColorAt(0, cleaning ? QColor(0xff, 0xff, 0xff) : QColor(0x2f, 0x7f, 0xd6));
  face.setColorAt(1, cleaning ? QColor(0xe3, 0xe9, 0xef) : QColor(0x1c, 0x54, 0x9c));
  painter.fillPath(outline, face);
  if (!cleaning)
    painter.fillRect(QRectF(card.left(), card.top() + 12, card.width(), 16),
                     QColor(0x22, 0x22, 0x26));
  painter.setPen(QPen(QColor(0x14, 0x2c, 0x48), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(outline);
  painter.setPen(cleaning ? QColor(0x30, 0x38, 0x44) : QColor(Qt::white));
  painter.drawText(card.adjusted(10, 30, -10, -6), Qt::AlignCenter,
                   cleaning ? tr("Cleaning card") : tr("Card"));
}

}  // namespace vantrel::printer
