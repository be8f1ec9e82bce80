// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>

namespace vantrel::printer {

// The colour of the lit LED, by its digit of 5Ah: '1' green, '2' red, '3' orange.
QColor LedColour(char colour);

// A lamp or a bell that is on or off.
class IndicatorSign : public QWidget {
  Q_OBJECT

 public:
  enum class Shape { kLamp, kBell };

  explicit IndicatorSign(Shape shape, QWidget* parent = nullptr);

  // Shows it on, in this colour, or off, from now on.
  void Show(bool on, const QColor& colour);
  bool IsOnNow() const { return on_; }

  QSize sizeHint() const override { return {22, 22}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  // It was off and is on now.
  void TurnedOn();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Shape shape_;
  QColor colour_;
  bool on_ = false;
};

}  // namespace vantrel::printer
