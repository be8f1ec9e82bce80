// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/helpers.h"
#include "log/line_recorder.h"

#include <QStringList>
#include <QWidget>

#include <functional>
#include <utility>

class QAction;
class QMenu;
class QMenuBar;
class QSettings;
class QSplitter;
class QTabWidget;

namespace vantrel::log {
class LogPanel;
}

namespace vantrel::printer {

class BufferPage;
class CardPage;
class FaceSide;
class FaultPage;
class PrinterModel;
class PrinterPage;
class PrinterServer;
class StateBar;
class TracksPage;

// The window of a software printer: the face of its card as it is printed, the card in the slot and
// a hand to put it in and pull it out, what its tracks and buffers hold, what the printer is doing,
// and what goes over the line.
class FrmPrinter : public QWidget {
  Q_OBJECT

 public:
  // All must outlive the form; `server` serves `model`. Where settings are handed in, the form
  // takes its size and place, its parts' sizes and its columns' widths from there, and leaves them
  // there at its end.
  FrmPrinter(PrinterModel& model, PrinterServer& server, dialogs::Helpers helpers,
             QSettings* settings = nullptr, QWidget* parent = nullptr);
  ~FrmPrinter() override;

  // Names the fonts that the printer lacks beside the card's face; see FaceSide.
  void ShowMissingFonts(const QStringList& fonts);
  // What a saved capture tells of the line.
  void SetLine(log::CapturedLine line) { recorder_.SetLine(std::move(line)); }

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QMenuBar* MakeMenus();
  void MakeFileMenu(QMenu& menu);
  void MakeEditMenu(QMenu& menu);
  void MakeViewMenu(QMenu& menu);
  void MakeHelpMenu(QMenu& menu);
  QAction* Add(QMenu& menu, const QString& caption, const QKeySequence& keys,
               std::function<void()> act);
  void AddPage(QWidget* page, const QString& title);
  QWidget* MakeLog();
  void Tell(const QString& title, const QString& text);
  // Gives the log its rows where nothing else is remembered.
  void ShareHeight();
  void Remember();
  bool Recall();
  void TellDevice();
  void OpenDeck();
  // False where the deck was not saved, or the question where was cancelled.
  bool SaveDeck();
  // Asks whether to save what was made by hand and is not saved; false where the answer is no
  // answer.
  bool MayLoseDeck();
  // Copies what is selected in the box with the focus, or else the log.
  void Copy();
  // Shows the model as it is now.
  void Refresh();

  const PrinterModel& model_;
  PrinterServer& server_;
  dialogs::Helpers helpers_;
  QSettings* settings_;
  log::LineRecorder recorder_;
  bool is_placed_ = false;
  QAction* open_deck_ = nullptr;
  QTabWidget* pages_ = nullptr;
  QSplitter* halves_ = nullptr;
  QSplitter* sides_ = nullptr;
  log::LogPanel* log_ = nullptr;
  StateBar* state_bar_ = nullptr;
  FaceSide* face_side_ = nullptr;
  CardPage* card_page_ = nullptr;
  TracksPage* tracks_page_ = nullptr;
  BufferPage* buffer_page_ = nullptr;
  PrinterPage* printer_page_ = nullptr;
  FaultPage* fault_page_ = nullptr;
};

}  // namespace vantrel::printer
