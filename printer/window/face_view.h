#pragma once

#include "printer/drawing/bitmap.h"
#include "printer/service/dot_image.h"

#include <QImage>
#include <QWidget>

namespace vantrel::printer {

// A card's printed face. Each dot is a square of whole screen pixels, as many as fit, at least one.
class FaceView : public QWidget {
  Q_OBJECT

 public:
  explicit FaceView(QWidget* parent = nullptr);

  // Draws these dots from now on.
  void Show(const Bitmap& face);
  // Turns the picture by a quarter, clockwise.
  void Turn();
  int QuarterTurns() const { return quarter_turns_; }
  // The picture as it is turned now, one pixel a dot.
  QImage Picture() const { return ImageOf(face_, quarter_turns_); }
  // Screen pixels a dot takes each way at the present size, before the scaling of the screen.
  int Scale() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  void Scaled();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  Bitmap face_{kFaceWidth, kFaceHeight};
  QImage image_;
  int quarter_turns_ = 0;
};

}  // namespace vantrel::printer
