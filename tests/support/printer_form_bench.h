// SPDX-License-Identifier: MIT
#pragma once

#include "printer/model/printer_model.h"
#include "printer/service/printer_server.h"
#include "printer/window/frm_printer.h"
#include "tests/support/device_user.h"
#include "tests/support/installed_fonts.h"
#include "tests/support/recording_guard.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/scripted_file_chooser.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QLabel>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <optional>
#include <stdexcept>
#include <system_error>

namespace vantrel::support {

// The window of a printer whose work takes no time, with a console on its line.
class PrinterFormBench : public testing::Test {
 protected:
  PrinterFormBench() {
    real_.start();
    model_.SetInstantWork(true);
    form_.show();
  }

  // The control of this name; throws std::runtime_error when there is none.
  template <typename Widget>
  Widget* Find(const char* name) {
    auto* widget = form_.findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error(name);
    return widget;
  }
  QString Label(const char* name) { return Find<QLabel>(name)->text(); }
  void Click(const char* name) { QTest::mouseClick(Find<QAbstractButton>(name), Qt::LeftButton); }
  // Shows the page with this title.
  void TurnTo(const QString& title) {
    auto* pages = Find<QTabWidget>("TabPages");
    for (int page = 0; page < pages->count(); ++page) {
      if (pages->tabText(page).remove('&') == title) return pages->setCurrentIndex(page);
    }
    throw std::runtime_error(title.toStdString());
  }
  protocol::Moment Now() const {
    return held_ ? *held_ : protocol::Moment{real_.isValid() ? real_.elapsed() : 0};
  }
  // From now on the printer's time passes only here: by so much, in which nobody waits.
  void Pass(std::chrono::milliseconds time) {
    held_ = Now() + time;
    model_.Advance(*held_);
  }

  // The printer's time, where it stands still; else it is the real one.
  std::optional<protocol::Moment> held_;
  QElapsedTimer real_;
  printer::PrinterModel model_{support::InstalledFonts(), link::CodePage::kWestern};
  // Whether the system has lines to give.
  bool has_lines_ = true;
  // Whether making one fails as nothing that a system does.
  bool make_line_throws_ = false;
  printer::PrinterServer server_{model_,
                                 [this] {
                                   if (!has_lines_)
                                     throw std::system_error(EMFILE, std::generic_category(),
                                                             "No line");
                                   if (make_line_throws_)
                                     throw std::logic_error("No memory for a line.");
                                   return printer::MakePseudoTerminal();
                                 },
                                 [this] { return Now(); }};
  ScriptedDialogs dialogs_;
  ScriptedFileChooser files_;
  RecordingGuard guard_;
  printer::FrmPrinter form_{model_, server_, {dialogs_, files_, guard_}};
  DeviceUser console_{server_.DevicePath()};
};

}  // namespace vantrel::support
