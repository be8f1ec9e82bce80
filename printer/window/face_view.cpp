// SPDX-License-Identifier: MIT

#include "printer/window/face_view.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vantrel::printer {
namespace {

// Room around the dots for the edge of the card.
constexpr int kMargin = 7;
constexpr double kLeastScale = 0.4;

}  // namespace

FaceView::FaceView(const QString& what, QWidget* parent) : QWidget(parent), what_(what) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  TakePicture();
}

void FaceView::Show(const Bitmap& face) {
  if (face == face_) return;
  face_ = face;
  TakePicture();
}

void FaceView::Turn() {
  quarter_turns_ = (quarter_turns_ + 1) % 4;
  TakePicture();
  updateGeometry();
  emit Scaled();
}

void FaceView::SetZoom(std::optional<int> zoom) {
  zoom_ = zoom;
  updateGeometry();
  update();
  emit Scaled();
}

void FaceView::TakePicture() {
  image_ = Picture();
  black_dots_ = 0;
  for (int y = 0; y < face_.Height(); ++y) {
    for (int x = 0; x < face_.Width(); ++x) black_dots_ += face_.At(x, y) ? 1 : 0;
  }
  setAccessibleName(tr("%1, %2 by %3 dots, %L4 black")
                        .arg(what_)
                        .arg(image_.width())
                        .arg(image_.height())
                        .arg(black_dots_));
  update();
}

double FaceView::Scale() const {
  if (zoom_) return *zoom_;
  const double fits = std::min((width() - 2.0 * kMargin) / image_.width(),
                               (height() - 2.0 * kMargin) / image_.height());
  return fits >= 1 ? std::floor(fits) : std::max(fits, 0.1);
}

QSize FaceView::sizeHint() const {
  return image_.size() * zoom_.value_or(1) + QSize(2 * kMargin, 2 * kMargin);
}

QSize FaceView::minimumSizeHint() const {
  if (zoom_) return sizeHint();
  // A standing card is no higher than a lying one, so that turning it needs no scrolling.
  QSize lying = image_.size();
  if (lying.height() > lying.width()) lying.transpose();
  return image_.size().scaled(lying * kLeastScale, Qt::KeepAspectRatio) +
         QSize(2 * kMargin, 2 * kMargin);
}

void FaceView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const double scale = Scale();
  const QSize size = image_.size() * scale;
  const QRect card(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size);
  const bool dark = palette().color(QPalette::Window).lightness() < 128;
  painter.setRenderHint(QPainter::Antialiasing);
  // Both have a contrast of 3:1 or more, the card's white and a white window's included.
  painter.setPen(QPen(dark ? QColor(0x8b, 0x95, 0xa5) : QColor(0x6b, 0x75, 0x85), 2));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(card).adjusted(-5, -5, 5, 5), 7, 7);
  if (scale < 1) {
    painter.drawImage(card, image_.convertToFormat(QImage::Format_RGB32)
                                .scaled(card.size() * devicePixelRatioF(), Qt::IgnoreAspectRatio,
                                        Qt::SmoothTransformation));
    return;
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
  painter.drawImage(card, image_);
}

void FaceView::resizeEvent(QResizeEvent*) { emit Scaled(); }

}  // namespace vantrel::printer
