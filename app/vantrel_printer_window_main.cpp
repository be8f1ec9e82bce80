// SPDX-License-Identifier: MIT

// The software printer with a window; vantrel-printer becomes it.

#include "app/printer_options.h"
#include "app/printer_program.h"
#include "app/printer_table.h"
#include "dialogs/program_start.h"
#include "dialogs/telling_guard.h"
#include "dialogs/window_dialogs.h"
#include "dialogs/window_file_chooser.h"
#include "log/frm_playback.h"
#include "log/frm_through.h"
#include "log/line_recorder.h"
#include "log/playback_server.h"
#include "log/through_server.h"
#include "printer/service/printer_server.h"
#include "printer/window/frm_printer.h"

#include <QApplication>
#include <QFile>
#include <QSettings>

#include <memory>
#include <optional>

namespace {

using vantrel::app::PrinterOptions;

// An application with windows; its guard is the last net for what an event throws.
class WindowApplication : public QApplication {
 public:
  WindowApplication(int& argc, char** argv) : QApplication(argc, argv) {}

  bool notify(QObject* receiver, QEvent* event) override {
    bool taken = true;
    guard_.Run([&] { taken = QApplication::notify(receiver, event); });
    return taken;
  }

 private:
  vantrel::dialogs::WindowDialogs dialogs_;
  vantrel::dialogs::TellingGuard guard_{dialogs_};
};

class Windows : public vantrel::app::PrinterWindows {
 public:
  explicit Windows(const PrinterOptions& options) : options_(options) {}

  std::unique_ptr<QObject> ShowPrinter(vantrel::printer::PrinterModel& model,
                                       vantrel::printer::PrinterServer& server,
                                       const vantrel::log::LineRecorder& recorder,
                                       const QStringList& missing_fonts) override {
    const auto& place = options_.geometry;
    auto form = std::make_unique<vantrel::printer::FrmPrinter>(model, server, Helpers(),
                                                               place ? nullptr : &settings_);
    if (place) form->setGeometry(place->x, place->y, place->width, place->height);
    form->ShowMissingFonts(missing_fonts);
    form->SetLine(recorder.Line());
    form->show();
    return form;
  }

  std::unique_ptr<QObject> ShowPlayback(const vantrel::log::PlaybackServer& server,
                                        vantrel::log::LineRecorder& recorder) override {
    auto form = std::make_unique<vantrel::log::FrmPlayback>(
        QFile::decodeName(options_.replay.c_str()), server, recorder, Helpers());
    form->show();
    return form;
  }

  std::unique_ptr<QObject> ShowThrough(const vantrel::log::ThroughServer& server,
                                       vantrel::log::LineRecorder& recorder) override {
    auto form = std::make_unique<vantrel::log::FrmThrough>(
        QString::fromStdString(server.DevicePath()), QFile::decodeName(options_.through.c_str()),
        recorder, Helpers());
    QObject::connect(&server, &vantrel::log::ThroughServer::Ended, form.get(),
                     &vantrel::log::FrmThrough::TellEnd);
    form->show();
    return form;
  }

 private:
  vantrel::dialogs::Helpers Helpers() { return {dialogs_, files_, guard_}; }

  const PrinterOptions& options_;
  vantrel::dialogs::WindowDialogs dialogs_;
  vantrel::dialogs::WindowFileChooser files_;
  vantrel::dialogs::TellingGuard guard_{dialogs_};
  QSettings settings_{"vantrel", "vantrel-printer"};
};

}  // namespace

int main(int argc, char** argv) {
  vantrel::app::BeginPrinter();
  const auto [options, end] =
      vantrel::app::ParsePrinterOptions(vantrel::app::PrinterProgram(), argc, argv);
  if (end) return *end;
  std::optional<WindowApplication> application;
  {
    const vantrel::dialogs::DisplayWatch watch("vantrel-printer", "--headless needs none.");
    application.emplace(argc, argv);
  }
  vantrel::dialogs::IdentifyApplication("vantrel-printer");
  Windows windows(options);
  return vantrel::app::RunPrinter(options, &windows);
}
