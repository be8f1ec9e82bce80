#pragma once

#include "console/frm_vantrel.h"
#include "dialogs/window_dialogs.h"
#include "link/serial_port.h"
#include "printer/frm_printer.h"
#include "printer/printer_model.h"
#include "printer/printer_server.h"
#include "printer/window_file_chooser.h"
#include "tour/box_watcher.h"

#include <QDir>

#include <functional>
#include <string>

namespace vantrel {

// A walk through the console with a software printer on a pseudo-terminal: presses buttons, answers
// what they ask, prints what was sent, what came back and what it means, and takes pictures of the
// windows.
class Tour {
 public:
  // Pictures go to `folder`, which is made when it is missing.
  explicit Tour(const QString& folder);

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
  // A box is to be photographed and then answered.
  void Answer(const QString& picture, const QString& button);
  void Type(const QString& picture, const QString& text);

  void ReadTracks();
  void MoveCard();
  void Maintain();

  const QDir folder_;
  PrinterModel model_;
  PrinterServer server_;
  WindowFileChooser files_;
  FrmPrinter printer_;
  WindowDialogs dialogs_;
  SerialPort port_;
  FrmVantrel console_;
  BoxWatcher boxes_;
};

}  // namespace vantrel
