#pragma once

#include "log/line_recorder.h"

#include <QStringList>
#include <QWidget>

#include <utility>

namespace vantrel::dialogs {
class FileChooser;
}

namespace vantrel::log {
class LogPanel;
}

namespace vantrel::printer {

class CardPage;
class FaceSide;
class FaultPage;
class PrinterModel;
class PrinterPage;
class PrinterServer;
class StateBar;
class TracksPage;

// The window of a software printer: the face of its card as it is printed, the card in the slot and
// a hand to put it in and pull it out, what its tracks hold, what the printer is doing, and what
// goes over the line.
class FrmPrinter : public QWidget {
  Q_OBJECT

 public:
  // All must outlive the form; `server` serves `model`.
  FrmPrinter(PrinterModel& model, PrinterServer& server, dialogs::FileChooser& files,
             QWidget* parent = nullptr);

  // Names the fonts that the printer lacks beside the card's face; see FaceSide.
  void ShowMissingFonts(const QStringList& fonts);
  // What a saved capture tells of the line.
  void SetLine(log::CapturedLine line) { recorder_.SetLine(std::move(line)); }

 private:
  QWidget* MakeLog(dialogs::FileChooser& files);
  // Shows the model as it is now.
  void Refresh();

  log::LineRecorder recorder_;
  log::LogPanel* log_ = nullptr;
  StateBar* state_bar_ = nullptr;
  FaceSide* face_side_ = nullptr;
  CardPage* card_page_ = nullptr;
  TracksPage* tracks_page_ = nullptr;
  PrinterPage* printer_page_ = nullptr;
  FaultPage* fault_page_ = nullptr;
};

}  // namespace vantrel::printer
