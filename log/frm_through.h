// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/helpers.h"

#include <QWidget>

class QLabel;

namespace vantrel::log {

class LineRecorder;
class LogPanel;

// The window of a pass-through: what goes between a console and a real printer.
class FrmThrough : public QWidget {
  Q_OBJECT

 public:
  // `console_device` is what the console opens, `printer_device` the real printer's. The recorder
  // and the helpers must outlive the form.
  FrmThrough(const QString& console_device, const QString& printer_device, LineRecorder& recorder,
             dialogs::Helpers helpers, QWidget* parent = nullptr);

  // Tells that nothing is passed on any more, and why; the log stays.
  void TellEnd(const QString& reason);

 private:
  QLabel* LblThrough = nullptr;
};

}  // namespace vantrel::log
