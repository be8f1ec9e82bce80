#include "app/printer_options.h"
#include "app/printer_table.h"
#include "commandline/fault.h"
#include "dialogs/program_start.h"
#include "dialogs/telling_guard.h"
#include "dialogs/window_dialogs.h"
#include "dialogs/window_file_chooser.h"
#include "log/capture_file.h"
#include "log/capture_recorder.h"
#include "log/capture_sink.h"
#include "log/frm_playback.h"
#include "log/frm_through.h"
#include "log/json_object.h"
#include "log/line_output.h"
#include "log/line_recorder.h"
#include "log/log_printer.h"
#include "log/playback.h"
#include "log/playback_server.h"
#include "log/through_server.h"
#include "printer/drawing/fonts.h"
#include "printer/line/device_link.h"
#include "printer/line/pseudo_terminal.h"
#include "printer/line/socket_line.h"
#include "printer/model/printer_model.h"
#include "printer/service/end_watch.h"
#include "printer/service/line_recording.h"
#include "printer/service/log_file.h"
#include "printer/service/printer_script.h"
#include "printer/service/printer_server.h"
#include "printer/service/script_console.h"
#include "printer/window/frm_printer.h"

#include <QApplication>
#include <QFile>
#include <QSettings>

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// How long a reader of the last lines may leave them.
constexpr std::chrono::milliseconds kPatience{2000};

// What the printer's windows are handed.
struct WindowHelpers {
  vantrel::dialogs::WindowDialogs dialogs;
  vantrel::dialogs::WindowFileChooser files;
  vantrel::dialogs::TellingGuard guard{dialogs};

  vantrel::dialogs::Helpers All() { return {dialogs, files, guard}; }
};

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

std::unique_ptr<QCoreApplication> MakeWindowApplication(int& argc, char** argv) {
  std::unique_ptr<QCoreApplication> application;
  {
    const vantrel::dialogs::DisplayWatch watch("vantrel-printer", "--headless needs none.");
    application = std::make_unique<WindowApplication>(argc, argv);
  }
  vantrel::dialogs::IdentifyApplication("vantrel-printer");
  return application;
}

// The link to the device, if one is asked for.
std::unique_ptr<vantrel::printer::DeviceLink> MakeLink(const vantrel::app::PrinterOptions& options,
                                                       const std::string& device) {
  if (options.link.empty()) return nullptr;
  return std::make_unique<vantrel::printer::DeviceLink>(options.link, device);
}

// How a script is answered.
vantrel::printer::ScriptStyle StyleOf(const vantrel::app::PrinterOptions& options) {
  return {.json = options.json,
          .line = options.tcp              ? "address"
                  : options.socket.empty() ? "device"
                                           : "socket"};
}

// Makes the link and tells the device to open.
std::unique_ptr<vantrel::printer::DeviceLink> Announce(const vantrel::app::PrinterOptions& options,
                                                       const std::string& device,
                                                       vantrel::log::LineOutput& output) {
  auto link = MakeLink(options, device);
  output.Write(options.json ? vantrel::log::JsonObject()
                                  .Add("ok", std::optional(true))
                                  .Add(StyleOf(options).line, device)
                                  .Text()
                            : device);
  if (output.IsGone()) throw std::runtime_error("standard output cannot be written.");
  return link;
}

// Where a console finds the printer.
vantrel::printer::PrinterServer::LineMaker LinesOf(const vantrel::app::PrinterOptions& options) {
  if (options.tcp) return vantrel::printer::TcpLines(*options.tcp);
  if (!options.socket.empty()) return vantrel::printer::SocketLines(options.socket);
  return vantrel::printer::MakePseudoTerminal;
}

void Complain(const std::string& error) { std::cerr << "vantrel-printer: " << error << '\n'; }

// The files that are written of a recorder's line as it goes, where they are asked for.
class Files {
 public:
  // Throws std::runtime_error, in words, where one cannot be written.
  explicit Files(const vantrel::app::PrinterOptions& options) {
    if (!options.capture.empty()) sink_.emplace(options.capture);
    if (options.log.empty()) return;
    constexpr std::int64_t kMegabyte = 1000000;
    const auto limit =
        options.log_limit ? std::optional(*options.log_limit * kMegabyte) : std::nullopt;
    log_.emplace(options.log, limit);
    QObject::connect(&*log_, &vantrel::printer::LogFile::Ended, &*log_,
                     [](const QString& reason) { Complain(reason.toLocal8Bit().toStdString()); });
  }
  bool AreAskedFor() const { return sink_ || log_; }
  // From now on; the recorder knows its line and outlives this object.
  void Begin(vantrel::log::LineRecorder& recorder) {
    if (log_) log_->Begin(recorder);
    if (!sink_) return;
    writer_.emplace(recorder, *sink_);
    QObject::connect(&*writer_, &vantrel::log::CaptureRecorder::Ended, &*writer_,
                     [](const QString& reason) { Complain(reason.toLocal8Bit().toStdString()); });
  }
  // The end of the line. Returns the status to end with instead of `status`.
  int Finish(int status) {
    if (writer_) writer_->Finish();
    if (log_) log_->Finish();
    const bool failed = (sink_ && !sink_->Problem().empty()) || (log_ && log_->HasFailed());
    return failed && status == EXIT_SUCCESS ? EXIT_FAILURE : status;
  }

 private:
  std::optional<vantrel::log::CaptureSink> sink_;
  std::optional<vantrel::log::CaptureRecorder> writer_;
  std::optional<vantrel::printer::LogFile> log_;
};

// Runs until the program is asked to end, and returns its status.
int Run(vantrel::log::LineOutput& output, vantrel::log::LineRecorder& recorder, Files& written) {
  const vantrel::printer::EndWatch end_watch;
  QObject::connect(&end_watch, &vantrel::printer::EndWatch::Asked, &end_watch,
                   [] { QCoreApplication::exit(EXIT_SUCCESS); });
  int status = QCoreApplication::exec();
  // What has been read is told in events.
  QCoreApplication::sendPostedEvents();
  recorder.Finish();
  status = written.Finish(status);
  output.Drain(kPatience);
  return status;
}

int PassThrough(const vantrel::app::PrinterOptions& options) {
  vantrel::log::LineOutput output(STDOUT_FILENO);
  vantrel::log::LineRecorder recorder;
  recorder.SetLine({options.through, {}});
  vantrel::log::ThroughServer server(options.through, LinesOf(options)(), recorder);
  Files written(options);
  WindowHelpers helpers;
  std::unique_ptr<vantrel::log::FrmThrough> form;
  std::optional<vantrel::log::LogPrinter> printer;
  if (options.headless) {
    printer.emplace(recorder, output);
  } else {
    form = std::make_unique<vantrel::log::FrmThrough>(QString::fromStdString(server.DevicePath()),
                                                      QFile::decodeName(options.through.c_str()),
                                                      recorder, helpers.All());
    form->show();
  }
  bool gone = false;
  QObject::connect(&server, &vantrel::log::ThroughServer::Ended, &server,
                   [&](const QString& reason) {
                     gone = true;
                     Complain(reason.toLocal8Bit().toStdString());
                     // A window stays, so that its log can be saved.
                     if (form)
                       form->TellEnd(reason);
                     else
                       QCoreApplication::exit(EXIT_FAILURE);
                   });
  written.Begin(recorder);
  const auto link = Announce(options, server.DevicePath(), output);
  const int status = Run(output, recorder, written);
  return gone ? EXIT_FAILURE : status;
}

// Says what fonts the printer lacks, and returns it, a sentence each.
QStringList TellMissing(const vantrel::printer::Fonts& fonts) {
  QStringList missing;
  for (const std::string& sentence : fonts.Missing()) {
    Complain(sentence);
    missing += QFile::decodeName(sentence.c_str());
  }
  return missing;
}

// The rows of a capture that could be read whole; throws std::runtime_error, in words, else.
std::vector<vantrel::log::LogEntry> RowsToPlay(const std::string& path) {
  std::vector<std::string> damage;
  std::vector<vantrel::log::LogEntry> rows = vantrel::log::ReadCapture(path, damage);
  if (!damage.empty())
    throw std::runtime_error(damage.front() + " Only a whole capture is played back.");
  return rows;
}

std::string SummaryInJson(const vantrel::log::Playback& playback) {
  return vantrel::log::JsonObject()
      .Add("ok", std::optional(playback.IsSuccess()))
      .Add("frames", static_cast<long>(playback.Frames()))
      .Add("played", static_cast<long>(playback.Played()))
      .Add("unexpected", static_cast<long>(playback.Unexpected()))
      .Text();
}

int Replay(const vantrel::app::PrinterOptions& options) {
  vantrel::log::Playback playback(RowsToPlay(options.replay),
                                  {.instant = options.instant, .match_code = options.match_code});
  vantrel::log::LineOutput output(STDOUT_FILENO);
  vantrel::log::LineRecorder recorder;
  vantrel::log::PlaybackServer server(playback, LinesOf(options)(), recorder);
  recorder.SetLine({server.DevicePath(), {}});
  Files written(options);
  QObject::connect(&server, &vantrel::log::PlaybackServer::Unexpected, &server,
                   [](const QString& words) { Complain(words.toStdString()); });
  WindowHelpers helpers;
  std::unique_ptr<vantrel::log::FrmPlayback> form;
  if (!options.headless) {
    form = std::make_unique<vantrel::log::FrmPlayback>(QFile::decodeName(options.replay.c_str()),
                                                       server, recorder, helpers.All());
    form->show();
  }
  vantrel::printer::PrinterScript script(server, recorder, StyleOf(options));
  QObject::connect(&script, &vantrel::printer::PrinterScript::Finished, &script,
                   [&script] { QCoreApplication::exit(script.Status()); });
  std::optional<vantrel::printer::ScriptConsole> console;
  if (options.script) console.emplace(script, STDIN_FILENO, output);
  written.Begin(recorder);
  const auto link = Announce(options, server.DevicePath(), output);
  const int status = Run(output, recorder, written);
  output.Write(options.json ? SummaryInJson(playback) : playback.Summary());
  output.Drain(kPatience);
  if (status != EXIT_SUCCESS || script.AskedStatus()) return status;
  return playback.IsSuccess() ? script.Status() : EXIT_FAILURE;
}

int Serve(const vantrel::app::PrinterOptions& options) {
  vantrel::log::LineOutput output(STDOUT_FILENO);
  vantrel::printer::Fonts fonts(vantrel::printer::SystemFontFolder());
  const QStringList missing_fonts = TellMissing(fonts);
  vantrel::printer::PrinterModel model(fonts, options.code_page);
  model.SetInstantWork(options.instant);
  model.SetSeries(options.series);
  model.SetCaseParts(options.case_parts);
  model.SetSpeed(options.speed);
  model.SetPacing(options.pacing);
  model.SetTrack(0, "VANTREL SAMPLE CARD");
  model.SetTrack(1, "0123456789");
  model.SetTrack(2, "9876543210");
  vantrel::printer::PrinterServer server(model, LinesOf(options));
  Files written(options);
  if (options.card) server.InsertCard();
  WindowHelpers helpers;
  QSettings settings("vantrel", "vantrel-printer");
  std::unique_ptr<vantrel::printer::FrmPrinter> form;
  if (!options.headless) {
    form = std::make_unique<vantrel::printer::FrmPrinter>(model, server, helpers.All(),
                                                          options.geometry ? nullptr : &settings);
    if (const auto& place = options.geometry)
      form->setGeometry(place->x, place->y, place->width, place->height);
    form->ShowMissingFonts(missing_fonts);
    form->show();
  }
  vantrel::log::LineRecorder recorder;
  recorder.SetLine({server.DevicePath(), options.speed});
  if (form) form->SetLine(recorder.Line());
  vantrel::printer::PrinterScript script(model, server, recorder, StyleOf(options));
  QObject::connect(&script, &vantrel::printer::PrinterScript::Finished, &script,
                   [&script] { QCoreApplication::exit(script.Status()); });
  std::optional<vantrel::printer::ScriptConsole> console;
  if (options.script || written.AreAskedFor()) vantrel::printer::RecordLineOf(server, recorder);
  if (options.script) {
    console.emplace(script, STDIN_FILENO, output);
  }
  written.Begin(recorder);
  auto link = Announce(options, server.DevicePath(), output);
  // The device may go and come back under another name. A link that cannot be made again leaves the
  // printer without one; nothing else depends on it.
  QObject::connect(&server, &vantrel::printer::PrinterServer::DeviceChanged, &server, [&] {
    link.reset();
    if (server.DevicePath().empty()) return;
    try {
      link = MakeLink(options, server.DevicePath());
    } catch (const std::exception& error) {
      Complain(error.what());
    }
  });
  const int status = Run(output, recorder, written);
  // It may have been ended by a signal.
  return status == EXIT_SUCCESS ? script.Status() : status;
}

}  // namespace

int main(int argc, char** argv) {
  vantrel::log::HoldStandardDescriptors();
  vantrel::commandline::EndOnFaults("vantrel-printer");
  vantrel::printer::EndWatch::Block();
  // A reader that has gone and a file that may not grow are told by the call that meets them.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);

  // Help, errors and a printer without a window need no display.
  const auto [options, end] =
      vantrel::app::ParsePrinterOptions(vantrel::app::PrinterProgram(), argc, argv);
  if (end) return *end;
  const std::unique_ptr<QCoreApplication> application =
      options.headless ? std::make_unique<QCoreApplication>(argc, argv)
                       : MakeWindowApplication(argc, argv);
  try {
    if (!options.replay.empty()) return Replay(options);
    return options.through.empty() ? Serve(options) : PassThrough(options);
  } catch (const std::exception& error) {
    Complain(error.what());
    return EXIT_FAILURE;
  }
}
