// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

namespace vantrel::printdata {

// A drawing of the card as it lies in the printer: the way it is inserted, the axes of the
// coordinates and the reference point at its left bottom, which is the origin.
class CardDiagram : public QWidget {
  Q_OBJECT

 public:
  enum class Orientation { kVertical, kHorizontal };

  explicit CardDiagram(Orientation orientation, QWidget* parent = nullptr);

  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QLabel* Label(const QString& text);
  QSize CardSize() const;
  // Where the card's outline lies, its left bottom being the origin.
  QRect CardRect() const;
  int LineHeight() const;

  const Orientation orientation_;
  QLabel* const y_range_;
  QLabel* const x_range_;
  QLabel* const insert_;
  QLabel* const origin_;
  QLabel* const reference_;
};

}  // namespace vantrel::printdata
