// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

namespace vantrel::dialogs {

// The one way to ask for a file.
class FileChooser {
 public:
  virtual ~FileChooser() = default;
  // Asks where to save, above `parent`; `filters` as "Pictures (*.png);;All files (*)", the ending
  // of the first of them is added to a name without one. Returns the path, empty when the question
  // was cancelled.
  virtual QString SaveName(QWidget* parent, const QString& title, const QString& suggestion,
                           const QString& filters) = 0;
  // Asks which file to open, above `parent`. Returns the path, empty when the question was
  // cancelled.
  virtual QString OpenName(QWidget* parent, const QString& title, const QString& filters) = 0;
};

}  // namespace vantrel::dialogs
