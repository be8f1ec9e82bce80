// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

namespace vantrel::dialogs {

// Where a window of `size`, its frame included, lies centred over `over`, moved as far as it takes
// to lie inside `available`; its left top corner counts most.
QPoint CentreOver(const QRect& over, const QSize& size, const QRect& available);

// Puts a window that has not been shown over another one's frame, on that one's screen. Where the
// system lets no program place its windows, it is placed by the system.
void PlaceOver(QWidget& window, const QWidget& other, const QRect& other_frame);

}  // namespace vantrel::dialogs
