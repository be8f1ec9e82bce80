#pragma once

#include "dialogs/panel_bar.h"
#include "editors/dot_grid.h"

#include <QLabel>
#include <QLayout>
#include <QPushButton>

namespace vantrel {

// What both editing forms of dots are made of.

QPushButton* MakeButton(const QString& name, const QString& caption);
// A label of plain text.
QLabel* MakeLabel(const QString& name, const QString& text);
// Lays out the origin's label, the grid and the hint in `frame`; returns the row below them, at
// whose right end the buttons go.
QBoxLayout* MakeMatrixLayout(QWidget* frame, const QString& origin, DotGrid* grid);
// Fills `form` with `body` and a status bar StatusBarExImage below it.
PanelBar* AddBodyAndStatusBar(QWidget* form, QLayout* body);

}  // namespace vantrel
