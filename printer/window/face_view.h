// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/bitmap.h"
#include "printer/window/dot_image.h"

#include <QImage>
#include <QString>
#include <QWidget>

#include <optional>

namespace vantrel::printer {

// A card's printed face, or another picture of that kind. Each dot is a square of whole screen
// pixels; where the whole picture is to fit and has no room for that, it is shown smaller.
class FaceView : public QWidget {
  Q_OBJECT

 public:
  // `what` names the picture to a screen reader: "Card face".
  explicit FaceView(const QString& what, QWidget* parent = nullptr);

  // Draws these dots from now on.
  void Show(const Bitmap& face);
  // Turns the picture by a quarter, clockwise.
  void Turn();
  int QuarterTurns() const { return quarter_turns_; }
  // Screen pixels a dot takes each way from now on, before the scaling of the screen; without a
  // number as many as fit.
  void SetZoom(std::optional<int> zoom);
  // The picture as it is turned now, one pixel a dot.
  QImage Picture() const { return ImageOf(face_, quarter_turns_); }
  // How many dots are black.
  int BlackDots() const { return black_dots_; }
  // Screen pixels a dot takes each way at the present size, before the scaling of the screen.
  double Scale() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  // The scale or the picture's size may have changed.
  void Scaled();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void TakePicture();

  QString what_;
  Bitmap face_{kFaceWidth, kFaceHeight};
  QImage image_;
  int black_dots_ = 0;
  int quarter_turns_ = 0;
  std::optional<int> zoom_;
};

}  // namespace vantrel::printer
