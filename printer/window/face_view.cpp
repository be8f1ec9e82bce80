#include "printer/window/face_view.h"

#include <QPainter>

#include <algorithm>

namespace vantrel::printer {
namespace {

// Room around the dots for the edge of the card.
constexpr int kMargin = 6;

}  // namespace

FaceView::FaceView(QWidget* parent) : QWidget(parent), image_(ImageOf(face_)) {
  setAccessibleName(tr("Face of the card"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void FaceView::Show(const Bitmap& face) {
  if (face == face_) return;
  face_ = face;
  image_ = Picture();
  update();
}

void FaceView::Turn() {
  quarter_turns_ = (quarter_turns_ + 1) % 4;
  image_ = Picture();
  updateGeometry();
  update();
  emit Scaled();
}

int FaceView::Scale() const {
  return std::max(1, std::min((width() - 2 * kMargin) / image_.width(),
                              (height() - 2 * kMargin) / image_.height()));
}

QSize FaceView::sizeHint() const { return image_.size() + QSize(2 * kMargin, 2 * kMargin); }

void FaceView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QSize size = image_.size() * Scale();
  const QRect card(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size);
  const bool dark = palette().color(QPalette::Window).lightness() < 128;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(dark ? QColor(0x6b, 0x75, 0x85) : QColor(0x9a, 0xa4, 0xb3), 1));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(card).adjusted(-4.5, -4.5, 4.5, 4.5), 6, 6);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
  painter.drawImage(card, image_);
}

void FaceView::resizeEvent(QResizeEvent*) { emit Scaled(); }

}  // namespace vantrel::printer
