// SPDX-License-Identifier: MIT
#pragma once

#include "printer/commands/printer_state.h"

#include <QColor>
#include <QWidget>

class QPainter;

namespace vantrel::printer {

// The printer seen from above, its slot on the left, with the card where it is and the LED.
class CardSlotView : public QWidget {
  Q_OBJECT

 public:
  explicit CardSlotView(QWidget* parent = nullptr);

  // Draws this place and kind of the card from now on.
  void Show(CardPlace place, CardKind kind);
  // Draws the LED lit in this colour, or dark, from now on.
  void ShowLed(bool lit, const QColor& colour);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawCard(QPainter& painter, const QRectF& card) const;

  CardPlace place_ = CardPlace::kOutside;
  CardKind kind_ = CardKind::kOrdinary;
  bool led_is_lit_ = false;
  QColor led_colour_;
};

}  // namespace vantrel::printer
