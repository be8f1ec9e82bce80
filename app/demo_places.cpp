// SPDX-License-Identifier: MIT

#include "app/demo_places.h"

#include <QMargins>

#include <algorithm>

namespace vantrel::app {
namespace {

constexpr QSize kConsoleLikes(1120, 720);
constexpr QSize kPrinterLikes(1120, 860);
constexpr int kPrinterLeast = 1000;
// The printer's window has the card slot, the card's buttons and the log's meanings right of this.
constexpr int kPrinterHides = 570;
// What a window manager puts around a window.
constexpr QMargins kFrame(4, 28, 4, 4);

}  // namespace

DemoPlaces PlacesIn(const QRect& available, int console_least) {
  const int frame = kFrame.left() + kFrame.right();
  const int height = available.height() - kFrame.top() - kFrame.bottom();
  const int room = available.width() - 2 * frame;
  const QPoint first = available.topLeft() + QPoint(kFrame.left(), kFrame.top());
  int console = std::min(kConsoleLikes.width(), room - kPrinterLeast);
  int printer = std::min(kPrinterLikes.width(), room - console);
  int printer_left = first.x() + console + frame;
  if (console < console_least) {
    printer = kPrinterLeast;
    printer_left = available.right() + 1 - kFrame.right() - printer;
    console = std::clamp(printer_left + kPrinterHides - kFrame.right() - first.x(), console_least,
                         std::max(console_least, kConsoleLikes.width()));
    printer_left = std::max(printer_left, first.x() + console + kFrame.right() - kPrinterHides);
  }
  return {
      {first, QSize(console, std::min(kConsoleLikes.height(), height))},
      {QPoint(printer_left, first.y()), QSize(printer, std::min(kPrinterLikes.height(), height))}};
}

}  // namespace vantrel::app
