// SPDX-License-Identifier: MIT

#include "dialogs/placement.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace vantrel::dialogs {

QPoint CentreOver(const QRect& over, const QSize& size, const QRect& available) {
  QRect place(QPoint(), size);
  place.moveCenter(over.center());
  return {std::max(available.left(), std::min(place.left(), available.right() + 1 - size.width())),
          std::max(available.top(), std::min(place.top(), available.bottom() + 1 - size.height()))};
}

void PlaceOver(QWidget& window, const QWidget& other, const QRect& other_frame) {
  window.setScreen(other.screen());
  if (!window.testAttribute(Qt::WA_Resized)) window.adjustSize();
  // The other window's frame will be its own, too.
  const QSize frame = other_frame.size() - other.size();
  window.move(CentreOver(other_frame, window.size() + frame, other.screen()->availableGeometry()));
}

}  // namespace vantrel::dialogs
