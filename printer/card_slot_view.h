#pragma once

#include "printer/printer_state.h"

#include <QWidget>

class QPainter;

namespace vantrel {

// The printer seen from above, its slot on the left, with the card where it is and the LED.
class CardSlotView : public QWidget {
  Q_OBJECT

 public:
  explicit CardSlotView(QWidget* parent = nullptr);

  // Draws this place and kind of the card and these indicators from now on.
  void Show(CardPlace place, CardKind kind, const Indicators& indicators);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawCard(QPainter& painter, const QRectF& card) const;

  CardPlace place_ = CardPlace::kOutside;
  CardKind kind_ = CardKind::kOrdinary;
  Indicators indicators_;
};

}  // namespace vantrel
