// SPDX-License-Identifier: MIT

#include "dialogs/focus_ring.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

namespace vantrel::dialogs {
namespace {

constexpr double kEnough = 3;

double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

}  // namespace

double ContrastRatio(const QColor& one, const QColor& other) {
  const double a = Luminance(one);
  const double b = Luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor FocusColor(const QPalette& palette) {
  const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
  bool stands_out = true;
  for (const auto role : {QPalette::Button, QPalette::Base, QPalette::Window})
    stands_out &= ContrastRatio(highlight, palette.color(QPalette::Active, role)) >= kEnough;
  return stands_out ? highlight : palette.color(QPalette::Active, QPalette::WindowText);
}

void PaintFocusRing(QPainter& painter, const QWidget& widget) {
  painter.setPen(QPen(FocusColor(widget.palette()), kFocusRingWidth, Qt::SolidLine, Qt::SquareCap,
                      Qt::MiterJoin));
  // A line of that width lies half on either side of its path.
  const int inset = kFocusRingWidth / 2;
  painter.drawRect(widget.rect().adjusted(inset, inset, -inset, -inset));
}

}  // namespace vantrel::dialogs
