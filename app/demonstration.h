// SPDX-License-Identifier: MIT
#pragma once

#include "app/printer_process.h"
#include "dialogs/window_dialogs.h"

#include <QPointer>
#include <QStringList>

#include <memory>
#include <string>

namespace vantrel::console {
class FrmVantrel;
}

namespace vantrel::app {

// The demonstration's printer, and the boxes of its console: where the console would tell that its
// port has failed because the printer has ended, they offer to start the printer again.
class Demonstration : public dialogs::Dialogs {
 public:
  // Starts the printer. Throws std::runtime_error with the reason when it does not start.
  void Start(const QStringList& options);
  // The device that a console opens; of the printer that has ended, while there is no other.
  const std::string& DevicePath() const { return printer_->DevicePath(); }
  // The console that is to open its port again when the printer has been started again.
  void Serve(console::FrmVantrel& console);

  dialogs::Answer MsgBox(const std::string& prompt, dialogs::Buttons buttons,
                         const std::string& title, dialogs::Icon icon) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& default_text) override;

 private:
  void OfferToStartAgain();

  dialogs::WindowDialogs windows_;
  QStringList options_;
  std::unique_ptr<PrinterProcess> printer_;
  QPointer<console::FrmVantrel> console_;
};

}  // namespace vantrel::app
