// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/helpers.h"

#include <QFrame>

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QToolButton;

namespace vantrel::printer {

class IndicatorSign;
class PrinterModel;
class PrinterServer;

// A bar of what a printer is doing: its work, its device, where its card is, its LED and buzzer in
// their rhythm, its counters, and the faults that are set.
class StateBar : public QFrame {
  Q_OBJECT

 public:
  // All must outlive the bar; `server` serves `model`.
  StateBar(PrinterModel& model, const PrinterServer& server, dialogs::Helpers helpers,
           QWidget* parent = nullptr);

  // Shows the printer as it is now. Whoever owns the bar calls it when the server tells of a
  // change.
  void Refresh();

 signals:
  // The buzzer is heard, once for each time that it goes on; not while it is muted.
  void Beeped();

 private:
  // A value, bold and selectable, with room for its widest words where they are told.
  QLabel* MakeValue(const char* name, const QString& widest = {});
  // Adds a value under its caption, with a sign before it and more after it where there are any.
  // Returns the caption.
  QLabel* Add(const QString& caption, QWidget* value, QWidget* sign = nullptr,
              QWidget* more = nullptr);
  void MakeBuzzer();
  void MakeFaults();
  // Shows a value, and tells it with its caption to a screen reader.
  void Tell(QLabel* value, const QString& text);
  void RefreshFaults();
  void RefreshDevice();

  PrinterModel& model_;
  const PrinterServer& server_;
  dialogs::Helpers helpers_;
  QHBoxLayout* layout_ = nullptr;
  IndicatorSign* led_ = nullptr;
  IndicatorSign* buzzer_ = nullptr;
  QCheckBox* ChkMute = nullptr;
  QLabel* LblActivity = nullptr;
  QLabel* LblDevice = nullptr;
  QLabel* LblPlace = nullptr;
  QLabel* LblLED = nullptr;
  QLabel* LblBuzzer = nullptr;
  QLabel* LblTransportCount = nullptr;
  QLabel* LblPrintCount = nullptr;
  QToolButton* CmdFaults = nullptr;
};

}  // namespace vantrel::printer
