// SPDX-License-Identifier: MIT

#include "app/printer_program.h"

#include "commandline/fault.h"
#include "log/capture_file.h"
#include "log/capture_recorder.h"
#include "log/capture_sink.h"
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

#include <QCoreApplication>
#include <QFile>

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

namespace vantrel::app {
namespace {

// How long a reader of the last lines may leave them.
constexpr std::chrono::milliseconds kPatience{2000};

// The link to the device, if one is asked for.
std::unique_ptr<printer::DeviceLink> MakeLink(const PrinterOptions& options,
                                              const std::string& device) {
  if (options.link.empty()) return nullptr;
  return std::make_unique<printer::DeviceLink>(options.link, device);
}

// How a script is answered.
printer::ScriptStyle StyleOf(const PrinterOptions& options) {
  return {.json = options.json,
          .line = options.tcp              ? "address"
                  : options.socket.empty() ? "device"
                                           : "socket"};
}

// Makes the link and tells the device to open.
std::unique_ptr<printer::DeviceLink> Announce(const PrinterOptions& options,
                                              const std::string& device, log::LineOutput& output) {
  auto link = MakeLink(options, device);
  output.Write(options.json ? log::JsonObject()
                                  .Add("ok", std::optional(true))
                                  .Add(StyleOf(options).line, device)
                                  .Text()
                            : device);
  if (output.IsGone()) throw std::runtime_error("standard output cannot be written.");
  return link;
}

// Where a console finds the printer.
printer::PrinterServer::LineMaker LinesOf(const PrinterOptions& options) {
  if (options.tcp) return printer::TcpLines(*options.tcp);
  if (!options.socket.empty()) return printer::SocketLines(options.socket);
  return printer::MakePseudoTerminal;
}

// The files that are written of a recorder's line as it goes, where they are asked for.
class Files {
 public:
  // Throws std::runtime_error, in words, where one cannot be written.
  explicit Files(const PrinterOptions& options) {
    if (!options.capture.empty()) sink_.emplace(options.capture);
    if (options.log.empty()) return;
    constexpr std::int64_t kMegabyte = 1000000;
    const auto limit =
        options.log_limit ? std::optional(*options.log_limit * kMegabyte) : std::nullopt;
    log_.emplace(options.log, limit);
    QObject::connect(&*log_, &printer::LogFile::Ended, &*log_, [](const QString& reason) {
      ComplainOfPrinter(reason.toLocal8Bit().toStdString());
    });
  }
  bool AreAskedFor() const { return sink_ || log_; }
  // From now on; the recorder knows its line and outlives this object.
  void Begin(log::LineRecorder& recorder) {
    if (log_) log_->Begin(recorder);
    if (!sink_) return;
    writer_.emplace(recorder, *sink_);
    QObject::connect(&*writer_, &log::CaptureRecorder::Ended, &*writer_, [](const QString& reason) {
      ComplainOfPrinter(reason.toLocal8Bit().toStdString());
    });
  }
  // The end of the line. Returns the status to end with instead of `status`.
  int Finish(int status) {
    if (writer_) writer_->Finish();
    if (log_) log_->Finish();
    const bool failed = (sink_ && !sink_->Problem().empty()) || (log_ && log_->HasFailed());
    return failed && status == EXIT_SUCCESS ? EXIT_FAILURE : status;
  }

 private:
  std::optional<log::CaptureSink> sink_;
  std::optional<log::CaptureRecorder> writer_;
  std::optional<printer::LogFile> log_;
};

// Runs until the program is asked to end, and returns its status.
int Run(log::LineOutput& output, log::LineRecorder& recorder, Files& written) {
  const printer::EndWatch end_watch;
  QObject::connect(&end_watch, &printer::EndWatch::Asked, &end_watch,
                   [] { QCoreApplication::exit(EXIT_SUCCESS); });
  int status = QCoreApplication::exec();
  // What has been read is told in events.
  QCoreApplication::sendPostedEvents();
  recorder.Finish();
  status = written.Finish(status);
  output.Drain(kPatience);
  return status;
}

int PassThrough(const PrinterOptions& options, PrinterWindows* windows) {
  log::LineOutput output(STDOUT_FILENO);
  log::LineRecorder recorder;
  recorder.SetLine({options.through, {}});
  log::ThroughServer server(options.through, LinesOf(options)(), recorder);
  Files written(options);
  std::unique_ptr<QObject> window;
  std::optional<log::LogPrinter> printer;
  if (windows != nullptr)
    window = windows->ShowThrough(server, recorder);
  else
    printer.emplace(recorder, output);
  bool gone = false;
  QObject::connect(&server, &log::ThroughServer::Ended, &server, [&](const QString& reason) {
    gone = true;
    ComplainOfPrinter(reason.toLocal8Bit().toStdString());
    if (!window) QCoreApplication::exit(EXIT_FAILURE);
  });
  written.Begin(recorder);
  const auto link = Announce(options, server.DevicePath(), output);
  const int status = Run(output, recorder, written);
  return gone ? EXIT_FAILURE : status;
}

// Says what fonts the printer lacks, and returns it, a sentence each.
QStringList TellMissing(const printer::Fonts& fonts) {
  QStringList missing;
  for (const std::string& sentence : fonts.Missing()) {
    ComplainOfPrinter(sentence);
    missing += QFile::decodeName(sentence.c_str());
  }
  return missing;
}

// The rows of a capture that could be read whole; throws std::runtime_error, in words, else.
std::vector<log::LogEntry> RowsToPlay(const std::string& path) {
  std::vector<std::string> damage;
  std::vector<log::LogEntry> rows = log::ReadCapture(path, damage);
  if (!damage.empty())
    throw std::runtime_error(damage.front() + " Only a whole capture is played back.");
  return rows;
}

std::string SummaryInJson(const log::Playback& playback) {
  return log::JsonObject()
      .Add("ok", std::optional(playback.IsSuccess()))
      .Add("frames", static_cast<long>(playback.Frames()))
      .Add("played", static_cast<long>(playback.Played()))
      .Add("unexpected", static_cast<long>(playback.Unexpected()))
      .Text();
}

int Replay(const PrinterOptions& options, PrinterWindows* windows) {
  log::Playback playback(RowsToPlay(options.replay),
                         {.instant = options.instant, .match_code = options.match_code});
  log::LineOutput output(STDOUT_FILENO);
  log::LineRecorder recorder;
  log::PlaybackServer server(playback, LinesOf(options)(), recorder);
  recorder.SetLine({server.DevicePath(), {}});
  Files written(options);
  QObject::connect(&server, &log::PlaybackServer::Unexpected, &server,
                   [](const QString& words) { ComplainOfPrinter(words.toStdString()); });
  std::unique_ptr<QObject> window;
  if (windows != nullptr) window = windows->ShowPlayback(server, recorder);
  printer::PrinterScript script(server, recorder, StyleOf(options));
  QObject::connect(&script, &printer::PrinterScript::Finished, &script,
                   [&script] { QCoreApplication::exit(script.Status()); });
  std::optional<printer::ScriptConsole> console;
  if (options.script) console.emplace(script, STDIN_FILENO, output);
  written.Begin(recorder);
  const auto link = Announce(options, server.DevicePath(), output);
  const int status = Run(output, recorder, written);
  output.Write(options.json ? SummaryInJson(playback) : playback.Summary());
  output.Drain(kPatience);
  if (status != EXIT_SUCCESS || script.AskedStatus()) return status;
  return playback.IsSuccess() ? script.Status() : EXIT_FAILURE;
}

int Serve(const PrinterOptions& options, PrinterWindows* windows) {
  log::LineOutput output(STDOUT_FILENO);
  printer::Fonts fonts(printer::SystemFontFolder());
  const QStringList missing_fonts = TellMissing(fonts);
  printer::PrinterModel model(fonts, options.code_page);
  model.SetInstantWork(options.instant);
  model.SetSeries(options.series);
  model.SetCaseParts(options.case_parts);
  model.SetSpeed(options.speed);
  model.SetPacing(options.pacing);
  model.SetTrack(0, "VANTREL SAMPLE CARD");
  model.SetTrack(1, "0123456789");
  model.SetTrack(2, "9876543210");
  printer::PrinterServer server(model, LinesOf(options));
  Files written(options);
  if (options.card) server.InsertCard();
  log::LineRecorder recorder;
  recorder.SetLine({server.DevicePath(), options.speed});
  std::unique_ptr<QObject> window;
  if (windows != nullptr) window = windows->ShowPrinter(model, server, recorder, missing_fonts);
  printer::PrinterScript script(model, server, recorder, StyleOf(options));
  QObject::connect(&script, &printer::PrinterScript::Finished, &script,
                   [&script] { QCoreApplication::exit(script.Status()); });
  std::optional<printer::ScriptConsole> console;
  if (options.script || written.AreAskedFor()) printer::RecordLineOf(server, recorder);
  if (options.script) {
    console.emplace(script, STDIN_FILENO, output);
  }
  written.Begin(recorder);
  auto link = Announce(options, server.DevicePath(), output);
  // The device may go and come back under another name. A link that cannot be made again leaves the
  // printer without one; nothing else depends on it.
  QObject::connect(&server, &printer::PrinterServer::DeviceChanged, &server, [&] {
    link.reset();
    if (server.DevicePath().empty()) return;
    try {
      link = MakeLink(options, server.DevicePath());
    } catch (const std::exception& error) {
      ComplainOfPrinter(error.what());
    }
  });
  const int status = Run(output, recorder, written);
  // It may have been ended by a signal.
  return status == EXIT_SUCCESS ? script.Status() : status;
}

}  // namespace

void BeginPrinter() {
  log::HoldStandardDescriptors();
  commandline::EndOnFaults("vantrel-printer");
  printer::EndWatch::Block();
  // A reader that has gone and a file that may not grow are told by the call that meets them.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

void ComplainOfPrinter(const std::string& error) {
  std::cerr << "vantrel-printer: " << error << '\n';
}

int RunPrinter(const PrinterOptions& options, PrinterWindows* windows) {
  try {
    if (!options.replay.empty()) return Replay(options, windows);
    return options.through.empty() ? Serve(options, windows) : PassThrough(options, windows);
  } catch (const std::exception& error) {
    ComplainOfPrinter(error.what());
    return EXIT_FAILURE;
  }
}

}  // namespace vantrel::app
