#include "printer/device_link.h"
#include "printer/frm_printer.h"
#include "printer/printer_model.h"
#include "printer/printer_server.h"
#include "printer/window_file_chooser.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QSocketNotifier>

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

namespace {

constexpr int kUsageError = 2;
// In bits a second.
constexpr int kLowestSpeed = 50;
constexpr int kHighestSpeed = 4000000;

struct Options {
  bool headless = false;
  bool card = false;
  bool instant = false;
  QString link;
  vantrel::Series series = vantrel::Series::kQl7;
  int speed = 9600;
  bool pacing = true;
  bool case_parts = false;
};

// The options, or the status with which the program ends now.
struct Parsed {
  Options options;
  std::optional<int> end;
};

Parsed Parse(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      "A card printer in software. It answers on a pseudo-terminal as a printer on a serial line\n"
      "would; the first line that it prints is the device to open.");
  const QCommandLineOption help({"h", "help"}, "Tells these options and ends.");
  const QCommandLineOption version({"v", "version"}, "Tells the version and ends.");
  const QCommandLineOption headless("headless",
                                    "Shows no window and needs no display; serves until ended.");
  const QCommandLineOption link(
      "link",
      "Makes the symbolic link PATH to the device, and removes it at the end. "
      "A link that leads nowhere is replaced, anything else at PATH is an error.",
      "PATH");
  const QCommandLineOption card("card", "Starts with a card inserted at the front.");
  const QCommandLineOption instant("instant", "Lets every command's work take no time.");
  const QCommandLineOption series(
      "series", "Is a printer of this series, ql7 or ql8; ql7 if not told.", "SERIES", "ql7");
  const QCommandLineOption speed("speed", "Talks at BPS bits a second; 9600 if not told.", "BPS",
                                 "9600");
  const QCommandLineOption no_pacing("no-pacing",
                                     "Answers at once and at any speed; --instant does so too.");
  const QCommandLineOption case_parts("case-parts", "Has the case accessory parts fitted.");
  parser.addOptions(
      {help, version, headless, link, card, instant, series, speed, no_pacing, case_parts});
  if (!parser.parse(arguments) || !parser.positionalArguments().isEmpty()) {
    const QString error =
        parser.errorText().isEmpty()
            ? QString("Unexpected argument '%1'.").arg(parser.positionalArguments().first())
            : parser.errorText();
    std::cerr << "vantrel-printer: " << error.toStdString()
              << "\nTry 'vantrel-printer --help' for the options.\n";
    return {{}, kUsageError};
  }
  if (parser.isSet(help)) {
    std::cout << parser.helpText().toStdString();
    return {{}, EXIT_SUCCESS};
  }
  if (parser.isSet(version)) {
    std::cout << "vantrel-printer " VANTREL_VERSION "\n";
    return {{}, EXIT_SUCCESS};
  }
  if (parser.isSet(link) && parser.value(link).isEmpty()) {
    std::cerr << "vantrel-printer: --link needs the path of the link to make.\n";
    return {{}, kUsageError};
  }
  Options options{parser.isSet(headless), parser.isSet(card), parser.isSet(instant),
                  parser.value(link)};
  if (parser.value(series) == "ql8") {
    options.series = vantrel::Series::kQl8;
  } else if (parser.value(series) != "ql7") {
    std::cerr << "vantrel-printer: --series is ql7 or ql8.\n";
    return {{}, kUsageError};
  }
  bool is_number = false;
  options.speed = parser.value(speed).toInt(&is_number);
  if (!is_number || options.speed < kLowestSpeed || options.speed > kHighestSpeed) {
    std::cerr << "vantrel-printer: --speed needs a number from " << kLowestSpeed << " to "
              << kHighestSpeed << ".\n";
    return {{}, kUsageError};
  }
  options.pacing = !parser.isSet(no_pacing) && !options.instant;
  options.case_parts = parser.isSet(case_parts);
  return {options, {}};
}

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

int Serve(const Options& options) {
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
  std::optional<vantrel::DeviceLink> link;
  const auto set_link = [&link, &options, &server] {
    link.reset();
    if (!options.link.isEmpty() && !server.DevicePath().empty())
      link.emplace(options.link.toStdString(), server.DevicePath());
  };
  set_link();
  // A link that cannot be made again leaves the printer without one; nothing else depends on it.
  QObject::connect(&server, &vantrel::PrinterServer::DeviceChanged, &server, [&set_link] {
    try {
      set_link();
    } catch (const std::exception& error) {
      std::cerr << "vantrel-printer: " << error.what() << '\n';
    }
  });
  if (options.card) server.InsertCard();
  vantrel::WindowFileChooser files;
  std::unique_ptr<vantrel::FrmPrinter> form;
  if (!options.headless) {
    form = std::make_unique<vantrel::FrmPrinter>(model, server, files);
    form->show();
  }
  std::cout << server.DevicePath() << std::endl;
  return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  // Before any thread is made, so that every thread leaves these signals to EndWatch.
  const sigset_t ending_signals = EndingSignals();
  sigprocmask(SIG_BLOCK, &ending_signals, nullptr);

  // Help, errors and a printer without a window need no display, so the options are read first.
  auto application = std::make_unique<QCoreApplication>(argc, argv);
  const auto [options, end] = Parse(QCoreApplication::arguments());
  if (end) return *end;
  if (!options.headless) {
    if (!HasDisplay()) {
      std::cerr << "vantrel-printer: there is no display for the window; --headless needs none.\n";
      return EXIT_FAILURE;
    }
    application.reset();
    application = std::make_unique<QApplication>(argc, argv);
  }
  try {
    return Serve(options);
  } catch (const std::exception& error) {
    std::cerr << "vantrel-printer: " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
