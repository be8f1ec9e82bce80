// SPDX-License-Identifier: MIT
#pragma once

#include "console/frm_vantrel.h"
#include "dialogs/window_dialogs.h"
#include "dialogs/window_file_chooser.h"
#include "link/serial_port.h"
#include "log/line_recorder.h"
#include "printer/model/printer_model.h"
#include "printer/service/printer_server.h"
#include "printer/window/frm_printer.h"
#include "tour/box_watcher.h"

#include <QDir>
#include <QImage>
#include <QPoint>

#include <functional>
#include <string>

namespace vantrel::tour {

// What the form of 41h is given.
struct ClubText {
  int direction;
  int x;
  int y;
  QString text;
  const char* sequence;  // the button
  const char* number;    // what it is answered
};

// A walk through the console with a software printer on a pseudo-terminal: presses buttons, answers
// what they ask, prints what was sent, what came back and what it means, and takes pictures of the
// windows.
class Tour {
 public:
  struct Options {
    bool all_sizes = false;  // also pictures of each window at its smallest and at 1920 by 1080
    bool instant = false;    // the printer takes no time for its work and for the line
  };

  // Pictures go to `folder`, which is made when it is missing. `guard` is the console's and must
  // outlive the tour.
  Tour(const QString& folder, const Options& options, dialogs::Guard& guard);

  // Throws PortError or std::runtime_error when a step cannot be taken.
  void Run();

 private:
  // Presses a button of the console and prints the exchange. `meanwhile` runs a moment later, while
  // the command waits.
  void Press(const char* name, std::function<void()> meanwhile = {});
  void PrintExchange();
  std::string Text(const char* name) const;
  // Photographs a window as NAME.png.
  void Photograph(QWidget& window, const QString& name);
  // The printer's window with each of its pages.
  void PhotographPrinter();
  // A box is to be photographed and then answered.
  void Answer(const QString& picture, const QString& button);
  void Type(const QString& picture, const QString& text);

  // The next editing form is filled in by `fill`, photographed, and left by its button `button`. A
  // message box that the button brings up is answered with OK.
  void Fill(const QString& picture, std::function<void(QDialog& form)> fill, const char* button);

  void ReadTracks();
  void WriteTracks();
  void MoveCard();
  void Maintain();
  void PrintCard();
  // The card of examples/club-card.sh, dot by dot, by the console's commands alone.
  void PrintClubCard();
  // 41h with a sequence of the form, which asks for a number. `picture` is of the form.
  void PrintText(const ClubText& text, const QString& picture = {});
  // 4Dh with what the picture has in the 40 by 40 dots from (left, top) on.
  void DrawBlock(const QImage& emblem, QPoint corner, const QString& picture);
  // What the card shows, as a picture of white and black dots, and with the edge of a card.
  void SaveCard();
  // The forms and boxes that the rest of the tour does not come by.
  void ShowTheOthers();

  // Console and printer beside each other, as on a desktop.
  void PhotographBoth();

  void Save(QWidget& window, const QString& name);

  const QDir folder_;
  const Options options_;
  printer::Fonts fonts_;
  printer::PrinterModel model_;
  printer::PrinterServer server_;
  dialogs::WindowFileChooser files_;
  dialogs::WindowDialogs dialogs_;
  dialogs::Guard& guard_;
  log::LineRecorder recorder_;
  printer::FrmPrinter printer_;
  link::SerialPort port_;
  console::FrmVantrel console_;
  BoxWatcher boxes_;
};

}  // namespace vantrel::tour
