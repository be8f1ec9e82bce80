// SPDX-License-Identifier: MIT

#include "console/port_label.h"

#include <QMenuBar>
#include <QPainter>

#include <algorithm>

namespace vantrel::console {
namespace {

constexpr int kMargin = 8;  // pixels on either side of the text

}  // namespace

PortLabel::PortLabel(QWidget* parent) : QLabel(parent) {
  setObjectName("LblPort");
  setTextFormat(Qt::PlainText);
}

void PortLabel::Show(int number, const QString& device, const QString& speed,
                     const QString& state) {
  QStringList parts{QString("COM %1").arg(number)};
  if (!device.isEmpty()) parts += device;
  parts += {speed, state};
  const QString all = parts.join(" \u00B7 ");
  if (all == text()) return;
  setText(all);
  setToolTip(all);
  // A menu bar gives its corner a size when it is laid out, not when the corner's hint changes.
  if (auto* bar = qobject_cast<QMenuBar*>(parentWidget()))
    bar->setCornerWidget(this, Qt::TopRightCorner);
}

QSize PortLabel::sizeHint() const {
  int room = QWIDGETSIZE_MAX;
  if (auto* bar = qobject_cast<QMenuBar*>(parentWidget())) {
    room = bar->width();
    // The bar asks for this while it lays its entries out, so it can't be asked for their places.
    for (const auto* action : bar->actions())
      room -= bar->fontMetrics().horizontalAdvance(action->text()) + 4 * kMargin;
  }
  const int wanted = fontMetrics().horizontalAdvance(text()) + 2 * kMargin;
  return {std::clamp(room, 0, wanted), fontMetrics().height() + kMargin};
}

QSize PortLabel::minimumSizeHint() const { return {0, fontMetrics().height()}; }

void PortLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  const QRect inside = rect().adjusted(kMargin, 0, -kMargin, 0);
  painter.drawText(inside, Qt::AlignRight | Qt::AlignVCenter,
                   fontMetrics().elidedText(text(), Qt::ElideMiddle, inside.width()));
}

}  // namespace vantrel::console
