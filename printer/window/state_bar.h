#pragma once

#include <QFrame>

class QCheckBox;
class QHBoxLayout;
class QLabel;

namespace vantrel::printer {

class IndicatorSign;
class PrinterModel;
class PrinterServer;

// A bar of what a printer is doing: its work, its device, where its card is, its LED and buzzer in
// their rhythm, and its counters.
class StateBar : public QFrame {
  Q_OBJECT

 public:
  // Both must outlive the bar; `server` serves `model`.
  StateBar(const PrinterModel& model, const PrinterServer& server, QWidget* parent = nullptr);

  // Shows the printer as it is now. Whoever owns the bar calls it when the server tells of a
  // change.
  void Refresh();

 private:
  // A value, bold and selectable, with room for its widest words where they are told.
  QLabel* MakeValue(const char* name, const QString& widest = {});
  // Adds a value under its caption, with a sign before it and more after it where there are any.
  void Add(const QString& caption, QLabel* value, QWidget* sign = nullptr, QWidget* more = nullptr);
  void MakeBuzzer();
  void RefreshDevice();

  const PrinterModel& model_;
  const PrinterServer& server_;
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
};

}  // namespace vantrel::printer
