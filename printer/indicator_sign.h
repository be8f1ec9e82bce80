#pragma once

#include <QColor>
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

namespace vantrel {

// A lamp or a bell that goes on and off in the rhythm of an operation digit of 5Ah.
class IndicatorSign : public QWidget {
  Q_OBJECT

 public:
  enum class Shape { kLamp, kBell };

  explicit IndicatorSign(Shape shape, QWidget* parent = nullptr);

  // Begins this operation in this colour; does nothing while both are as they were.
  void Show(char operation, const QColor& colour);
  bool IsOnNow() const { return on_; }

  QSize sizeHint() const override { return {22, 22}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  void TurnedOn();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Turn();

  Shape shape_;
  char operation_ = '0';
  QColor colour_;
  bool on_ = false;
  QElapsedTimer since_;
  QTimer next_turn_;
};

}  // namespace vantrel
