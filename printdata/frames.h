// SPDX-License-Identifier: MIT
#pragma once

#include <QGroupBox>
#include <QStatusBar>

namespace vantrel::printdata {

// Between two frames, in both directions, and between them and the form's edge; pixels.
inline constexpr int kFrameSpacing = 9;

// A frame with its design name.
inline QGroupBox* MakeFrame(const QString& name, const QString& caption) {
  auto* frame = new QGroupBox(caption);
  frame->setObjectName(name);
  return frame;
}

// Gives a bar the height that a text of two lines needs, so that it takes no room from the form
// when one appears.
inline void ReserveTwoLines(QStatusBar* bar) {
  bar->setMinimumHeight(2 * bar->fontMetrics().lineSpacing() + 10);
}

}  // namespace vantrel::printdata
