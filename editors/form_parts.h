// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/panel_bar.h"
#include "editors/dot_grid.h"

#include <QLayout>

namespace vantrel::editors {

// What both editing forms of dots are made of.

// Lays out the origin's label, the grid, the picture as it prints and the hint in `frame`; returns
// the row below them, at whose right end the buttons go.
QBoxLayout* MakeMatrixLayout(QWidget* frame, const QString& origin, DotGrid* grid);
// Fills `form` with `body` and a status bar StatusBarExImage below it.
dialogs::PanelBar* AddBodyAndStatusBar(QWidget* form, QLayout* body);

}  // namespace vantrel::editors
