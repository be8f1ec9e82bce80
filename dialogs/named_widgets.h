// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QPushButton>

namespace vantrel::dialogs {

// A button and a label with their design names. The label's text is plain text.
QPushButton* MakeButton(const QString& name, const QString& caption);
QLabel* MakeLabel(const QString& name, const QString& text);

}  // namespace vantrel::dialogs
