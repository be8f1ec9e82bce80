// SPDX-License-Identifier: MIT

#include "editors/dot_preview.h"

#include <QPainter>

namespace vantrel::editors {
namespace {

constexpr int kFrame = 1;  // pixels around the picture

}  // namespace

DotPreview::DotPreview(const DotEditor& editor, QWidget* parent)
    : QWidget(parent), editor_(editor) {
  setObjectName("DotPreview");
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  Refresh();
}

void DotPreview::Refresh() {
  const DotPattern& dots = editor_.Dots();
  QImage picture(editor_.PrintedColumns(), editor_.PrintedRows(), QImage::Format_RGB32);
  picture.fill(Qt::white);
  int black = 0;
  for (int column = 0; column < picture.width(); ++column) {
    for (int row = 0; row < picture.height(); ++row) {
      if (dots.Value(column * dots.Rows() + row) == 0) continue;
      picture.setPixelColor(column, row, Qt::black);
      ++black;
    }
  }
  if (picture == picture_) return;
  picture_ = picture;
  setAccessibleName(QString("Picture as it prints, %1 by %2 dots, %3 black")
                        .arg(picture.width())
                        .arg(picture.height())
                        .arg(black));
  update();
}

QSize DotPreview::sizeHint() const {
  // Of the largest picture, so that the form keeps its layout.
  return QSize(editor_.Dots().Columns(), editor_.Dots().Rows()) + QSize(2, 2) * kFrame;
}

void DotPreview::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(QRect(QPoint(), picture_.size() + QSize(kFrame, kFrame)));
  painter.drawImage(kFrame, kFrame, picture_);
}

}  // namespace vantrel::editors
