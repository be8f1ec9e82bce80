// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

namespace vantrel::app {

// What the console needs with the usual fonts; pixels.
inline constexpr int kUsualConsoleWidth = 690;

// Where the demonstration opens its two windows, without their frames.
struct DemoPlaces {
  QRect console;
  QRect printer;
};

// Both on a screen of which `available` is free, the console at least `console_least` wide: side by
// side where they fit, else the console over the printer so that the printer's card slot, "Insert
// card" and the meanings of its log stay in sight.
DemoPlaces PlacesIn(const QRect& available, int console_least);

}  // namespace vantrel::app
