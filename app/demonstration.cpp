// SPDX-License-Identifier: MIT

#include "app/demonstration.h"

#include "console/frm_vantrel.h"
#include "console/guarded_application.h"

#include <QTimer>

#include <exception>

namespace vantrel::app {
namespace {

constexpr const char* kTitle = "Software Printer";

}  // namespace

void Demonstration::Start(const QStringList& options) {
  options_ = options;
  printer_ = std::make_unique<PrinterProcess>(options_);
}

void Demonstration::Serve(console::FrmVantrel& console) { console_ = &console; }

dialogs::Answer Demonstration::MsgBox(const std::string& prompt, dialogs::Buttons buttons,
                                      const std::string& title, dialogs::Icon icon) {
  if (title != console::kPortErrorTitle || printer_ == nullptr || !printer_->HasEnded())
    return windows_.MsgBox(prompt, buttons, title, icon);
  OfferToStartAgain();
  return dialogs::Answer::kOk;
}

std::string Demonstration::InputBox(const std::string& prompt, const std::string& title,
                                    const std::string& default_text) {
  return windows_.InputBox(prompt, title, default_text);
}

void Demonstration::OfferToStartAgain() {
  const auto answer = windows_.MsgBox(
      "The software printer has ended. The console goes on without it.\r\n\r\n"
      "Start it again now? To be asked again later, choose a speed in \"Setting\" - "
      "\"Baud Rate\".",
      dialogs::Buttons::kYesNo, kTitle);
  if (answer != dialogs::Answer::kYes) return;
  try {
    printer_ = std::make_unique<PrinterProcess>(options_);
  } catch (const std::exception& error) {
    windows_.MsgBox(error.what(), dialogs::Buttons::kOk, kTitle, dialogs::Icon::kCritical);
    return;
  }
  // When what has met the failure has ended.
  if (console_) QTimer::singleShot(0, console_, [this] { console_->ReopenPort(); });
}

}  // namespace vantrel::app
