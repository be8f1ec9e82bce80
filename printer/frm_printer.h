#pragma once

#include "printer/card_deck.h"
#include "printer/line_recorder.h"
#include "printer/printer_state.h"

#include <QTimer>
#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace vantrel {

class CardSlotView;
class FaceView;
class FaultPage;
class FileChooser;
class IndicatorSign;
class LogPanel;
class PrinterModel;
class PrinterPage;
class PrinterServer;

// The window of a software printer: the face of its card as it is printed, the card in the slot and
// a hand to put it in and pull it out, what its tracks hold, what the printer is doing, and what
// goes over the line.
class FrmPrinter : public QWidget {
  Q_OBJECT

 public:
  // All must outlive the form; `server` serves `model`.
  FrmPrinter(PrinterModel& model, PrinterServer& server, FileChooser& files,
             QWidget* parent = nullptr);

  // The log of this form, from its construction on.
  LineRecorder& Recorder() { return recorder_; }

 private:
  QWidget* MakeStateBar();
  QWidget* MakeFaceSide();
  QWidget* MakeCardPage();
  QWidget* MakeTracksPage();
  QWidget* MakeLog(FileChooser& files);
  // A label for a value of the state, bold and selectable.
  QLabel* MakeValue(const char* name);
  QPushButton* MakeButton(const char* name, const QString& caption, void (FrmPrinter::*click)());
  void CmdInsertCard_Click();
  void CmdPullOutCard_Click();
  void CmdNewCard_Click();
  void CmbDeck_Click(int index);
  void CmdTurn_Click();
  void CmdSavePicture_Click();
  // Shows the model as it is now.
  void Refresh();
  void RefreshTracks();
  void RefreshIndicators();
  void ShowScale();
  void ShowDevice();

  PrinterModel& model_;
  PrinterServer& server_;
  FileChooser& files_;
  LineRecorder recorder_;
  CardDeck deck_;
  // A face costs more than a text, so several changes are drawn as one.
  QTimer draw_face_;
  QTabWidget* pages_ = nullptr;
  FaceView* face_ = nullptr;
  CardSlotView* slot_ = nullptr;
  PrinterPage* printer_page_ = nullptr;
  FaultPage* fault_page_ = nullptr;
  LogPanel* log_ = nullptr;
  IndicatorSign* led_ = nullptr;
  IndicatorSign* buzzer_ = nullptr;
  QPushButton* CmdInsertCard = nullptr;
  QPushButton* CmdPullOutCard = nullptr;
  QPushButton* CmdNewCard = nullptr;
  QPushButton* CmdTurn = nullptr;
  QPushButton* CmdSavePicture = nullptr;
  QComboBox* CmbDeck = nullptr;
  QCheckBox* ChkMute = nullptr;
  std::array<QRadioButton*, 2> OptCard{};
  std::array<QLineEdit*, kTracks> TxtTrack{};
  std::array<QLineEdit*, kTracks> TxtTrackHex{};
  std::array<QLineEdit*, kTracks> TxtBuffer{};
  std::array<QLineEdit*, kTracks> TxtBufferHex{};
  QLabel* LblActivity = nullptr;
  QLabel* LblDevice = nullptr;
  QLabel* LblPlace = nullptr;
  QLabel* LblLED = nullptr;
  QLabel* LblBuzzer = nullptr;
  QLabel* LblTransportCount = nullptr;
  QLabel* LblPrintCount = nullptr;
  QLabel* LblScale = nullptr;
};

}  // namespace vantrel
