// SPDX-License-Identifier: MIT

#include "app/printer_table.h"

#include "printer/service/script_words.h"

#include <string>
#include <vector>

namespace vantrel::app {
namespace {

using commandline::Completion;
using commandline::NumberRange;
using commandline::Program;

constexpr const char* kStatusString =
    "The data of the reply to 59h are eight digits:\n"
    "  1  place of the card: 0 outside, 1 front, 2 inside, 3 rear, 4 waiting to be pulled out\n"
    "  2  kind of the card: 0 no card in the printer, 1 ordinary, 2 cleaning\n"
    "  3  wait of a command: 0 none, 1 for a card, 2 for a card's removal\n"
    "  4  target card: 0 none, 1 present\n"
    "  5  buzzer, in the digits of 5Ah\n"
    "  6  colour of the LED, in the digits of 5Ah\n"
    "  7  LED, in the digits of 5Ah\n"
    "  8  cleaning button, as it is in force: 0 disabled, 1 enabled\n";

std::vector<commandline::InputLine> LinesOfScript() {
  std::vector<commandline::InputLine> lines;
  lines.reserve(printer::ScriptLines().size());
  for (const printer::ScriptLine& line : printer::ScriptLines())
    lines.push_back({.usage = std::string(line.usage), .help = std::string(line.help)});
  return lines;
}

}  // namespace

Program MakePrinterProgram() {
  return {
      .name = "vantrel-printer",
      .version = VANTREL_VERSION,
      .summary = "a rewritable-card printer in software",
      .description =
          "A card printer in software. It answers on a pseudo-terminal as a printer on a serial "
          "line would; the first line that it prints is the device to open. With --through it "
          "stands between a console and a real printer and shows what goes over the line.",
      .synopsis =
          {"[OPTIONS]",
           "--replay FILE [--headless [--script [--json]]] [--instant] [--match code] "
           "[--link PATH | --tcp [ADDRESS:]PORT | --socket PATH] [--capture FILE] [--log FILE]",
           "--through DEVICE [--headless] [--link PATH | --tcp [ADDRESS:]PORT | --socket PATH] "
           "[--capture FILE] [--log FILE]"},
      .options =
          {{.name = "headless",
            .help = "Shows no window and needs no display. The printer serves until it is ended by "
                    "SIGINT, SIGTERM or SIGHUP."},
           {.name = "script",
            .help = "Takes commands from standard input, one a line, and answers each with one "
                    "line; 'help' names them. Needs --headless. The printer ends with the input, "
                    "with status "
                    "1 where a line was answered with an error."},
           {.name = "json",
            .help = "Answers each line of the script with one JSON object, the first line too; see "
                    "JSON. Needs --script."},
           {.name = "through",
            .value = {.name = "DEVICE", .completion = Completion::kFiles},
            .help = "Serves no printer but passes on every byte between the console and the real "
                    "printer on DEVICE, and keeps a log of the line. A device that another program "
                    "has locked is refused. tcp:HOST:PORT is a printer behind a serial server."},
           {.name = "tcp",
            .value = {.name = "[ADDRESS:]PORT"},
            .help = "Serves raw bytes on TCP in place of a pseudo-terminal, to one console at a "
                    "time; a further one is closed at once. The first line is ADDRESS:PORT. Port 0 "
                    "is any that is free. Without an address only this machine is served."},
           {.name = "socket",
            .value = {.name = "PATH", .completion = Completion::kFiles},
            .help = "Serves raw bytes on a Unix socket at PATH in place of a pseudo-terminal, to "
                    "one console at a time. A socket that nobody serves any more is replaced; "
                    "anything else at PATH is an error."},
           {.name = "replay",
            .value = {.name = "FILE", .completion = Completion::kFiles},
            .help = "Answers as the printer in the capture FILE did. The frame that came next then "
                    "must come next now, byte for byte; its answers follow with the gaps of then, "
                    "counted from first byte to first byte (gaps within a frame are not kept), "
                    "--instant without. Any other frame is answered 10h, or 15h where its block "
                    "check is bad, and told on standard error. The last line of standard output "
                    "is 'replayed 12 of 12 frames, 0 unexpected'; the status is 1 unless all were "
                    "played and nothing unexpected came. In a script 'wait end [MS]' waits until "
                    "all were played."},
           {.name = "match",
            .value = {.name = "HOW", .choices = {"bytes", "code"}},
            .help = "Tells how a frame matches that of the capture with --replay: byte for byte, "
                    "or by its command code, whatever its data.",
            .default_value = "bytes"},
           {.name = "link",
            .value = {.name = "PATH", .completion = Completion::kFiles},
            .help = "Makes the symbolic link PATH to the device, and removes it at the end. A link "
                    "that leads nowhere, or to this very device, or that a killed printer has "
                    "left, is replaced; anything else at PATH is an error."},
           {.name = "capture",
            .value = {.name = "FILE", .completion = Completion::kFiles},
            .help = "Writes what goes over the line to FILE as a pcapng capture, as it goes; "
                    "vantrel-log and network analysers read it. A regular file is emptied first. "
                    "A named pipe is written when a reader opens it."},
           {.name = "geometry",
            .value = {.name = "WIDTHxHEIGHT+X+Y"},
            .help = "Opens the window of that size at that place of the screen, both in pixels, "
                    "and keeps no settings."},
           {.name = "log",
            .value = {.name = "FILE", .completion = Completion::kFiles},
            .help = "Writes what goes over the line to FILE, as it goes: as comma-separated values "
                    "where FILE ends in .csv, else as text. A regular file is emptied first; "
                    "anything else is an error."},
           {.name = "log-limit",
            .value = {.name = "MB", .range = NumberRange{1, 1000000}},
            .help = "Ends the file of --log before it is larger than MB megabytes of 1000000 "
                    "bytes, and says so once."},
           {.name = "card", .help = "Starts with a card inserted at the front."},
           {.name = "instant",
            .help = "Lets every command's work, and the line, take no time. Otherwise a move of "
                    "the card takes 0.4 seconds, a read 0.7, a write 1.5, an erasure 1.5, a print "
                    "2.5, a reset 0.5 and cleaning 3."},
           {.name = "series",
            .value = {.name = "SERIES"},
            .help = "Is a printer of the series ql7 or ql8, which writes the third track alone.",
            .default_value = "ql7"},
           {.name = "speed",
            .value = {.name = "BPS"},
            .help = "Talks at BPS bits a second, 50 to 4000000.",
            .default_value = "9600"},
           {.name = "no-pacing",
            .help = "Answers at once, and any console, at any speed; --instant does so too."},
           {.name = "code-page",
            .value = {.name = "N", .choices = {"932", "936", "949", "950", "1252"}},
            .help = "Takes the text of 41h to be in code page N instead of that of the system's "
                    "language."},
           {.name = "case-parts",
            .help = "Has the case accessory parts fitted, which close the back."}},
      .input_lines = LinesOfScript(),
      .notes = kStatusString,
  };
}

}  // namespace vantrel::app
