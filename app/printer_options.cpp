#include "app/printer_options.h"

#include "printer/line_speed.h"

#include <QCommandLineParser>

#include <cstdlib>
#include <iostream>

namespace {

constexpr int kUsageError = 2;
using vantrel::kHighestSpeed;
using vantrel::kLowestSpeed;

constexpr const char* kStatusStringHelp =
    "\nThe data of the reply to 59h are eight digits:\n"
    "  1  place of the card: 0 outside, 1 front, 2 inside, 3 rear, 4 waiting to be pulled out\n"
    "  2  kind of the card: 0 no card in the printer, 1 ordinary, 2 cleaning\n"
    "  3  wait of a command: 0 none, 1 for a card, 2 for a card's removal\n"
    "  4  target card: 0 none, 1 present\n"
    "  5  buzzer, in the digits of 5Ah\n"
    "  6  colour of the LED, in the digits of 5Ah\n"
    "  7  LED, in the digits of 5Ah\n"
    "  8  cleaning button, as it is in force: 0 disabled, 1 enabled\n";

ParsedPrinterOptions UsageError(const QString& error) {
  std::cerr << "vantrel-printer: " << error.toStdString()
            << "\nTry 'vantrel-printer --help' for the options.\n";
  return {{}, kUsageError};
}

}  // namespace

ParsedPrinterOptions ParsePrinterOptions(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      "A card printer in software. It answers on a pseudo-terminal as a printer on a serial line\n"
      "would; the first line that it prints is the device to open. With --through it stands "
      "between\n"
      "a console and a real printer and shows what goes over the line.");
  const QCommandLineOption help({"h", "help"}, "Tells these options and ends.");
  const QCommandLineOption version({"v", "version"}, "Tells the version and ends.");
  const QCommandLineOption headless("headless",
                                    "Shows no window and needs no display; serves until ended.");
  const QCommandLineOption script(
      "script",
      "Takes commands from standard input, one a line, and answers each with one line; 'help' "
      "names them. Needs --headless. The printer ends with the input.");
  const QCommandLineOption through(
      "through",
      "Serves no printer but passes on every byte between the console and the real printer on "
      "DEVICE, and keeps a log of the line.",
      "DEVICE");
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
  parser.addOptions({help, version, headless, script, through, link, card, instant, series, speed,
                     no_pacing, case_parts});
  if (!parser.parse(arguments)) return UsageError(parser.errorText());
  if (!parser.positionalArguments().isEmpty())
    return UsageError(
        QString("Unexpected argument '%1'.").arg(parser.positionalArguments().first()));
  if (parser.isSet(help)) {
    std::cout << parser.helpText().toStdString() << kStatusStringHelp;
    return {{}, EXIT_SUCCESS};
  }
  if (parser.isSet(version)) {
    std::cout << "vantrel-printer " VANTREL_VERSION "\n";
    return {{}, EXIT_SUCCESS};
  }
  if (parser.isSet(link) && parser.value(link).isEmpty())
    return UsageError("--link needs the path of the link to make.");
  if (parser.isSet(through) && parser.value(through).isEmpty())
    return UsageError("--through needs the device of the printer.");
  if (parser.isSet(script) && !parser.isSet(headless))
    return UsageError("--script needs --headless.");
  for (const QCommandLineOption& option :
       {script, card, instant, series, speed, no_pacing, case_parts}) {
    if (parser.isSet(through) && parser.isSet(option))
      return UsageError(
          QString("--%1 has no meaning with --through: there the real printer answers.")
              .arg(option.names().first()));
  }
  PrinterOptions options;
  options.headless = parser.isSet(headless);
  options.script = parser.isSet(script);
  options.card = parser.isSet(card);
  options.instant = parser.isSet(instant);
  options.link = parser.value(link);
  options.through = parser.value(through);
  options.pacing = !parser.isSet(no_pacing) && !options.instant;
  options.case_parts = parser.isSet(case_parts);
  if (parser.value(series) == "ql8")
    options.series = vantrel::Series::kQl8;
  else if (parser.value(series) != "ql7")
    return UsageError("--series is ql7 or ql8.");
  bool is_number = false;
  options.speed = parser.value(speed).toInt(&is_number);
  if (!is_number || options.speed < kLowestSpeed || options.speed > kHighestSpeed)
    return UsageError(
        QString("--speed needs a number from %1 to %2.").arg(kLowestSpeed).arg(kHighestSpeed));
  return {options, {}};
}
