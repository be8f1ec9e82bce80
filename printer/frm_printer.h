#pragma once

#include "printer/printer_state.h"

#include <QWidget>

#include <array>

class QByteArray;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace vantrel {

class CardSlotView;
class PrinterModel;
class PrinterServer;

// The window of a software printer: its card in the slot, a hand to put it in and pull it out, what
// its tracks hold, what the printer is doing, and what goes over the line.
class FrmPrinter : public QWidget {
  Q_OBJECT

 public:
  // Both must outlive the form; `server` serves `model`.
  FrmPrinter(PrinterModel& model, PrinterServer& server, QWidget* parent = nullptr);

 private:
  QWidget* MakeCardSide();
  QWidget* MakeStateSide();
  QWidget* MakeLog();
  // A label for a value of the state, bold and selectable.
  QLabel* MakeValue(const char* name);
  void CmdInsertCard_Click();
  void CmdPullOutCard_Click();
  void Log(const QString& direction, const QByteArray& bytes);
  // Shows the model as it is now.
  void Refresh();

  PrinterModel& model_;
  PrinterServer& server_;
  CardSlotView* slot_ = nullptr;
  QPushButton* CmdInsertCard = nullptr;
  QPushButton* CmdPullOutCard = nullptr;
  std::array<QRadioButton*, 2> OptCard{};
  std::array<QLineEdit*, kTracks> TxtTrack{};
  QLabel* LblActivity = nullptr;
  QLabel* LblPlace = nullptr;
  QLabel* LblLED = nullptr;
  QLabel* LblBuzzer = nullptr;
  QLabel* LblTransportCount = nullptr;
  QLabel* LblPrintCount = nullptr;
  QPlainTextEdit* TxtLog = nullptr;
};

}  // namespace vantrel
