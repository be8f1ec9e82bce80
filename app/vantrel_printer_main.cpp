#include "app/printer_options.h"
#include "printer/device_link.h"
#include "printer/fault.h"
#include "printer/frm_printer.h"
#include "printer/frm_through.h"
#include "printer/line_recorder.h"
#include "printer/printer_model.h"
#include "printer/printer_script.h"
#include "printer/printer_server.h"
#include "printer/through_server.h"
#include "printer/window_file_chooser.h"

#include <QApplication>
#include <QFile>
#include <QSocketNotifier>

#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

namespace {

bool HasDisplay() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

sigset_t EndingSignals() {
  sigset_t ending_signals;
  sigemptyset(&ending_signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&ending_signals, signal);
  return ending_signals;
}

// Ends the event loop with status 0 when the program is asked to end.
class EndWatch {
 public:
  EndWatch() : notifier_(signalfd(-1, &ending_signals_, SFD_CLOEXEC), QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] {
      notifier_.setEnabled(false);
      QCoreApplication::exit(EXIT_SUCCESS);
    });
  }
  ~EndWatch() { close(static_cast<int>(notifier_.socket())); }
  EndWatch(const EndWatch&) = delete;
  EndWatch& operator=(const EndWatch&) = delete;

 private:
  const sigset_t ending_signals_ = EndingSignals();
  QSocketNotifier notifier_;
};

// Hands standard input to a script and writes the answers to standard output.
class ScriptConsole {
 public:
  explicit ScriptConsole(vantrel::PrinterScript& script)
      : script_(script), input_(STDIN_FILENO, QSocketNotifier::Read) {
    QObject::connect(
        &script, &vantrel::PrinterScript::Answered, &input_,
        [](const QString& answer) { std::cout << answer.toLocal8Bit().constData() << std::endl; });
    QObject::connect(&script, &vantrel::PrinterScript::Finished, &input_,
                     [] { QCoreApplication::exit(EXIT_SUCCESS); });
    QObject::connect(&input_, &QSocketNotifier::activated, &input_, [this] { Read(); });
  }

 private:
  void Read() {
    std::array<char, 4096> part{};
    const ssize_t count = read(STDIN_FILENO, part.data(), part.size());
    if (count > 0) {
      script_.Feed({part.data(), static_cast<std::size_t>(count)});
    } else if (count == 0 || errno != EINTR) {
      input_.setEnabled(false);
      script_.End();
    }
  }

  vantrel::PrinterScript& script_;
  QSocketNotifier input_;
};

// The link to the device, if one is asked for.
std::unique_ptr<vantrel::DeviceLink> MakeLink(const PrinterOptions& options,
                                              const std::string& device) {
  if (options.link.isEmpty()) return nullptr;
  return std::make_unique<vantrel::DeviceLink>(options.link.toStdString(), device);
}

// Makes the link and tells the device to open.
std::unique_ptr<vantrel::DeviceLink> Announce(const PrinterOptions& options,
                                              const std::string& device) {
  auto link = MakeLink(options, device);
  std::cout << device << std::endl;
  return link;
}

void Complain(const std::string& error) { std::cerr << "vantrel-printer: " << error << '\n'; }

// Each line of the log to standard output, when it is complete.
void PrintLog(vantrel::LineRecorder& recorder) {
  QObject::connect(&recorder, &vantrel::LineRecorder::Recorded, &recorder,
                   [&recorder, printed = std::size_t{0}]() mutable {
                     const vantrel::LineLog& log = recorder.Log();
                     for (printed = std::max(printed, log.First()); printed < log.Settled();
                          ++printed)
                       std::cout << vantrel::TextLineOf(log.At(printed)) << '\n';
                     std::cout.flush();
                   });
}

int PassThrough(const PrinterOptions& options) {
  const EndWatch end_watch;
  vantrel::LineRecorder recorder;
  vantrel::ThroughServer server(QFile::encodeName(options.through).toStdString(), recorder);
  vantrel::WindowFileChooser files;
  std::unique_ptr<vantrel::FrmThrough> form;
  if (options.headless) {
    PrintLog(recorder);
  } else {
    form = std::make_unique<vantrel::FrmThrough>(QString::fromStdString(server.DevicePath()),
                                                 options.through, recorder, files);
    form->show();
  }
  bool gone = false;
  QObject::connect(&server, &vantrel::ThroughServer::Ended, &server, [&](const QString& reason) {
    gone = true;
    Complain(reason.toLocal8Bit().toStdString());
    // A window stays, so that its log can be saved.
    if (form)
      form->TellEnd(reason);
    else
      QCoreApplication::exit(EXIT_FAILURE);
  });
  const auto link = Announce(options, server.DevicePath());
  const int status = QCoreApplication::exec();
  return gone ? EXIT_FAILURE : status;
}

int Serve(const PrinterOptions& options) {
  const EndWatch end_watch;
  vantrel::PrinterModel model;
  model.SetInstantWork(options.instant);
  model.SetSeries(options.series);
  model.SetCaseParts(options.case_parts);
  model.SetSpeed(options.speed);
  model.SetPacing(options.pacing);
  model.SetTrack(0, "VANTREL SAMPLE CARD");
  model.SetTrack(1, "0123456789");
  model.SetTrack(2, "9876543210");
  vantrel::PrinterServer server(model);
  if (options.card) server.InsertCard();
  vantrel::WindowFileChooser files;
  std::unique_ptr<vantrel::FrmPrinter> form;
  if (!options.headless) {
    form = std::make_unique<vantrel::FrmPrinter>(model, server, files);
    form->show();
  }
  vantrel::LineRecorder recorder;
  vantrel::PrinterScript script(model, server, recorder);
  script.SetFaultSetter([&model](const std::string& text, std::string& error) {
    try {
      if (text == "clear")
        model.SetFault(std::nullopt);
      else
        model.SetFault(vantrel::ParseFault(text));
      return true;
    } catch (const std::invalid_argument& refusal) {
      error = refusal.what();
      return false;
    }
  });
  std::optional<ScriptConsole> console;
  if (options.script) {
    recorder.RecordLineOf(server);
    console.emplace(script);
  }
  auto link = Announce(options, server.DevicePath());
  // The device may go and come back under another name. A link that cannot be made again leaves the
  // printer without one; nothing else depends on it.
  QObject::connect(&server, &vantrel::PrinterServer::DeviceChanged, &server, [&] {
    link.reset();
    if (server.DevicePath().empty()) return;
    try {
      link = MakeLink(options, server.DevicePath());
    } catch (const std::exception& error) {
      Complain(error.what());
    }
  });
  return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  // Before any thread is made, so that every thread leaves these signals to EndWatch.
  const sigset_t ending_signals = EndingSignals();
  sigprocmask(SIG_BLOCK, &ending_signals, nullptr);

  // Help, errors and a printer without a window need no display, so the options are read first.
  auto application = std::make_unique<QCoreApplication>(argc, argv);
  const auto [options, end] = ParsePrinterOptions(QCoreApplication::arguments());
  if (end) return *end;
  if (!options.headless) {
    if (!HasDisplay()) {
      Complain("there is no display for the window; --headless needs none.");
      return EXIT_FAILURE;
    }
    application.reset();
    application = std::make_unique<QApplication>(argc, argv);
  }
  try {
    return options.through.isEmpty() ? Serve(options) : PassThrough(options);
  } catch (const std::exception& error) {
    Complain(error.what());
    return EXIT_FAILURE;
  }
}
