// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/file_chooser.h"

namespace vantrel::dialogs {

// Asks with the system's file dialog.
class WindowFileChooser : public FileChooser {
 public:
  QString SaveName(QWidget* parent, const QString& title, const QString& suggestion,
                   const QString& filters) override;
  QString OpenName(QWidget* parent, const QString& title, const QString& filters) override;
};

}  // namespace vantrel::dialogs
