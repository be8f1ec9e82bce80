// SPDX-License-Identifier: MIT

#include "send/table.h"

#include "commandline/this_program.h"
#include "editors/image_editor.h"
#include "printdata/print_buffer.h"
#include "protocol/line_speed.h"

#include <algorithm>

namespace vantrel::send {
namespace {

using commandline::Command;
using commandline::Completion;
using commandline::NumberRange;
using commandline::Option;
using commandline::Parameter;
using commandline::Value;

constexpr int kLongestWait = 3'600'000;  // milliseconds
constexpr int kLongestFrame = 65536;
constexpr int kMostRounds = 1'000'000'000;

Value Number(const std::string& name, int lowest, int highest) {
  return {.name = name, .range = NumberRange{lowest, highest}};
}

Value File(const std::string& name = "FILE") {
  return {.name = name, .completion = Completion::kFiles};
}

Value Choice(const std::string& name, std::vector<std::string> choices) {
  return {.name = name, .choices = std::move(choices)};
}

// Where print data and images of 41h, 42h and 4Ah lie.
std::vector<Option> Placing() {
  using printdata::Axis;
  const int longest = printdata::LastCoordinate(Axis::kY, true);
  return {{.name = "direction",
           .value = Choice("N", {"0", "1", "2", "3"}),
           .help = "The card's direction: 0 and 2 are vertical, 1 and 3 horizontal; 0 and 1 "
                   "overwrite",
           .default_value = "2"},
          {.name = "x",
           .value = Number("DOTS", 0, longest),
           .help = "X in dots from the left bottom; to 319 in the vertical directions.",
           .default_value = "0"},
          {.name = "y",
           .value = Number("DOTS", 0, longest),
           .help = "Y in dots from the left bottom; to 319 in the horizontal directions.",
           .default_value = "47"}};
}

std::vector<Option> Picturing() {
  return {
      {.name = "picture",
       .value = File(),
       .help = "Sends the picture FILE instead of HEX: PNG or, with the package vantrel, what Qt "
               "reads. It is never scaled or cut, and what is transparent stays clear."},
      {.name = "threshold",
       .value = Number("GREY", 0, 256),
       .help = "What is darker than GREY is black.",
       .default_value = "128"},
      {.name = "dither", .help = "Diffuses the error of each dot, at that threshold."},
      {.name = "invert", .help = "Turns black and white about; clear stays clear."}};
}

std::vector<Option> ImagePlacing(bool is_block_mode) {
  std::vector<Option> options = {{.name = "x",
                                  .value = Number("LINE", 0, editors::kLastImageLine),
                                  .help = "The first line.",
                                  .default_value = "0"},
                                 {.name = "y",
                                  .value = Number("BYTE", 0, editors::kLastImageByte),
                                  .help = "The first byte of each line.",
                                  .default_value = "0"}};
  if (is_block_mode)
    options.push_back({.name = "line-bytes",
                       .value = Number("N", 1, editors::kLastImageByte + 1),
                       .help = "The bytes of each line of HEX; 5 if not told, or what fits."});
  for (Option& option : Picturing()) options.push_back(std::move(option));
  options.push_back({.name = "frame-bytes",
                     .value = Number("N", kShortestFrame, kLongestFrame),
                     .help = "A picture's frames have at most N bytes from STX to block check.",
                     .default_value = std::to_string(kConsoleFrame)});
  return options;
}

std::vector<Option> CharacterOptions() {
  std::vector<Option> options = {{.name = "size",
                                  .value = Choice("DOTS", {"24", "16"}),
                                  .help = "The character's height.",
                                  .default_value = "24"}};
  for (Option& option : Picturing()) options.push_back(std::move(option));
  return options;
}

std::vector<Option> BarcodeOptions() {
  const int last = printdata::LastCoordinate(printdata::Axis::kX, true);
  return {
      {.name = "type",
       .value = Choice("TYPE", {"code128", "code39", "itf", "codabar"}),
       .help = "The kind of barcode.",
       .default_value = "code128"},
      {.name = "text-below", .help = "Has DATA written under the bars."},
      {.name = "top",
       .value = Number("DOTS", 0, last),
       .help = "Where the bars begin.",
       .default_value = "0"},
      {.name = "bottom",
       .value = Number("DOTS", 0, last),
       .help = "Where the bars end, not before --top.",
       .default_value = "47"},
      {.name = "set",
       .value = Choice("SET", {"A", "B", "C"}),
       .help = "The code set in which a Code 128 begins. A character that the set lacks brings a "
               "code change before it.",
       .default_value = "A"},
      {.name = "start",
       .value = Choice("LETTER", {"A", "B", "C", "D"}),
       .help = "The start character of a CODABAR.",
       .default_value = "A"},
      {.name = "stop",
       .value = Choice("LETTER", {"A", "B", "C", "D"}),
       .help = "The stop character of a CODABAR.",
       .default_value = "A"}};
}

std::vector<Option> IndicatorOptions() {
  return {{.name = "buzzer",
           .value = Choice("HOW", {"off", "on", "buzzing", "one-cycle", "three-cycles", "keep"}),
           .help = "What the buzzer is to do.",
           .default_value = "keep"},
          {.name = "led",
           .value = Choice("HOW", {"off", "on", "flashing", "one-cycle", "three-cycles", "keep"}),
           .help = "What the LED is to do.",
           .default_value = "keep"},
          {.name = "colour",
           .value = Choice("COLOUR", {"green", "red", "orange"}),
           .help = "The colour of the LED.",
           .default_value = "green"}};
}

Parameter Text(const std::string& help) { return {.value = {.name = "TEXT"}, .help = help}; }

Parameter Register() {
  return {.value = {.name = "REGISTER"}, .help = "The register's digit, 0 to F."};
}

Parameter HexDots(const std::string& help) {
  return {.value = {.name = "HEX"}, .help = help, .optional = true};
}

// "35", "Data of the first track ..." and so on.
std::vector<Command> TrackCommands() {
  const std::string tracks[] = {"first", "second", "third"};
  struct Group {
    const char* codes[3];
    std::string before;
    std::string after;
    std::vector<Parameter> parameters;
  };
  const std::vector<Group> groups = {
      {{"21", "22", "23"}, "Waits for a card and reads its ", " track", {}},
      {{"25", "26", "27"}, "Reads the ", " track of a card that is in the printer", {}},
      {{"29", "2A", "2B"}, "Reads the buffer of the ", " track", {}},
      {{"35", "36", "37"},
       "Loads data for the ",
       " track, 7 bits, in reverse direction",
       {Text("Characters 01h and 04h to 7Eh; the printer takes 69.")}},
      {{"38", "39", "3A"},
       "Loads data for the ",
       " track, 7 bits",
       {Text("Characters 01h and 04h to 7Eh; the printer takes 69.")}},
  };
  std::vector<Command> commands;
  for (const Group& group : groups)
    for (int i = 0; i < 3; ++i)
      commands.push_back({.name = group.codes[i],
                          .summary = group.before + tracks[i] + group.after,
                          .parameters = group.parameters});
  return commands;
}

std::vector<Command> PrinterCommands() {
  std::vector<Command> commands = TrackCommands();
  const auto add = [&](const char* name, const char* summary, std::vector<Option> options = {},
                       std::vector<Parameter> parameters = {}) {
    commands.push_back({.name = name,
                        .summary = summary,
                        .options = std::move(options),
                        .parameters = std::move(parameters)});
  };
  const Parameter tracks{.value = Number("TRACKS", 1, 7),
                         .help =
                             "The sum of 1 for the first track, 2 for the second and 4 for the "
                             "third."};
  const Parameter method{.value = Number("METHOD", 0, 2),
                         .help =
                             "0 holds the card at the front, 1 discharges it, 2 discharges it "
                             "to the back."};
  const std::string escapes =
      "The text to print. \\n is the end of a line, \\e begins an ESC sequence, \\xHH is a byte, "
      "\\\\ a backslash.";
  add("31", "Waits for a card and writes what is loaded onto its tracks", {}, {tracks});
  add("32", "Writes what is loaded onto the tracks of a card that is in the printer", {}, {tracks});
  add("3B", "Loads data for the first track", {}, {Text("Characters 20h to 5Eh; 76 fit.")});
  add("3C", "Loads data for the second track", {}, {Text("Characters 30h to 3Eh; 37 fit.")});
  add("3D", "Loads data for the third track", {}, {Text("Characters 30h to 3Eh; 104 fit.")});
  add("40", "Clears the print expansion buffer");
  add("41", "Sets print data", Placing(), {Text(escapes)});
  add("42", "Expands an image that the printer holds", Placing(),
      {{.value = Number("IMAGE", 0, 1999)}});
  add("43", "Expands an image, a line a frame", ImagePlacing(false),
      {HexDots("The bytes of one line; the top dot of a byte is its lowest bit.")});
  add("44", "Registers a two-byte character", CharacterOptions(),
      {Register(), HexDots("The bytes of its columns: 72 for 24 dots, 32 for 16.")});
  add("45", "Registers a one-byte character", CharacterOptions(),
      {Register(), HexDots("The bytes of its columns: 36 for 24 dots, 16 for 16.")});
  add("46", "Erases and prints a card and discharges it", {}, {method});
  add("47", "Prints a card and discharges it", {}, {method});
  add("48", "Erases a card and discharges it", {}, {method});
  add("49", "Clears the image buffer and the print expansion buffer");
  add("4A", "Expands part of a registered image", Placing(),
      {Register(),
       {.value = Number("FIRST", 0, 479), .help = "The first of its dots."},
       {.value = Number("LAST", 0, 479), .help = "The last one, not before FIRST."}});
  add("4B", "Registers a BMP file as an image", {},
      {Register(),
       {.value = File(), .help = "An uncompressed one-bit BMP of at most 480 dots a side."}});
  add("4D", "Expands an image, several lines a frame", ImagePlacing(true),
      {HexDots("The bytes of whole lines; the top dot of a byte is its lowest bit.")});
  add("4E", "Sets a barcode", BarcodeOptions(),
      {{.value = {.name = "DATA"}, .help = "The characters of the barcode."}});
  add("50", "Discharges the card", {},
      {{.value = Choice("HOW", {"0", "1"}), .help = "0 holds it at the front, 1 lets it go"}});
  add("51", "Moves the card to the rear");
  add("52", "Cleans with a cleaning card");
  add("53", "Moves the card to the front");
  add("54", "Ends the wait for a card");
  add("55", "Ends the wait for a card's removal");
  add("58", "Asks for the ROM version");
  add("59", "Asks for the state of the sensors");
  add("5A", "Sets LED and buzzer", IndicatorOptions());
  add("5B", "Disables or enables the cleaning button; wears the printer's memory", {},
      {{.value = Choice("HOW", {"0", "1"}), .help = "0 disables, 1 enables"}});
  add("5F", "Resets the printer");
  add("91", "Stores a setting; wears the printer's memory", {}, {Text("The setting.")});
  add("95", "Asks for the count of transports");
  add("96", "Asks for the count of prints");
  std::sort(commands.begin(), commands.end(),
            [](const Command& one, const Command& other) { return one.name < other.name; });
  return commands;
}

// What the program takes for all lines and each line for itself.
std::vector<Option> LineOptions() {
  return {{.name = "time-limit",
           .value = Number("MS", 1, kLongestWait),
           .help = "Waits at most MS milliseconds for a reply, instead of the command's own time."},
          {.name = "expect",
           .value = {.name = "STATUS[,STATUS...]"},
           .help = "Takes these statuses of the printer alone as success."},
          {.name = "data",
           .value = {.name = "HEX"},
           .help = "Sends the bytes HEX as the command's whole data field, in place of its "
                   "parameters and options.",
           .replaces_parameters = true}};
}

std::vector<Option> ProgramOptions() {
  std::vector<Option> options = {
      {.name = "port",
       .value = File("DEVICE"),
       .help = "The printer's device, or tcp:HOST:PORT; COM 1 if not told."},
      {.name = "speed",
       .value = Number("BPS", protocol::kLowestSpeed, protocol::kHighestSpeed),
       .help = "The bits a second on a serial line.",
       .default_value = "9600"}};
  for (Option& option : LineOptions()) options.push_back(std::move(option));
  const std::vector<Option> rest = {
      {.name = "json", .help = "Answers with one JSON object a line."},
      {.name = "quiet", .help = "Writes the data of replies alone, as they are."},
      {.name = "dry-run", .help = "Writes the frames and opens nothing."},
      {.name = "keep-going", .help = "With -: goes on after a failure."},
      {.name = "repeat",
       .value = Number("N", 1, kMostRounds),
       .help = "Does the command, or with - the whole list, N times; stops at a failure."},
      {.name = "until-failure", .help = "Does it again and again until it fails."},
      {.name = "wear", .help = "Lets 5B and 91 be among many commands, which wears the memory."},
      {.name = "from",
       .value = Number("LINE", 1, kMostRounds),
       .help = "With -: begins at line LINE; a JSON report is then continued."},
      {.name = "report",
       .value = File(),
       .help = "Writes every exchange to FILE: JSON, one object a line, or JUnit where FILE ends "
               "in .xml."},
      {.name = "capture",
       .value = File(),
       .help = "Writes what goes over the line to FILE as a pcapng capture, as it goes."},
  };
  options.insert(options.end(), rest.begin(), rest.end());
  return options;
}

commandline::Program MakeSendTable() {
  commandline::Program program{
      .name = "vantrel-send",
      .version = VANTREL_VERSION,
      .summary = "every command of a card printer from a shell",
      .description =
          "Sends a command to a card printer, waits for the reply and tells it. 'help "
          "COMMAND' tells more of one command.",
      .synopsis = {"[OPTIONS] COMMAND [PARAMETERS]", "[OPTIONS] -", "help [COMMAND]"},
      .options = ProgramOptions(),
      .commands = PrinterCommands(),
      .commands_ignore_case = true,
      .notes =
          "Exit status: 0 the reply has status 20h, 1 another status or any failure of many\n"
          "commands, 2 wrong use, 3 time up, 4 rejected or an unknown control character,\n"
          "5 the port failed, 130 ended by a signal.\n"};
  program.commands.push_back(
      {.name = "-", .summary = "Reads commands from standard input, one a line"});
  program.commands.push_back({.name = "help",
                              .summary = "Tells the options, or a command's parameters",
                              .parameters = {{.value = {.name = "COMMAND"}, .optional = true}}});
  return program;
}

}  // namespace

const commandline::Program& SendTable() {
  static const commandline::Program kTable = MakeSendTable();
  return kTable;
}

const commandline::Program& LineTable() {
  static const commandline::Program kTable{.name = "vantrel-send",
                                           .options = LineOptions(),
                                           .commands = PrinterCommands(),
                                           .commands_ignore_case = true};
  return kTable;
}

}  // namespace vantrel::send

namespace vantrel::commandline {

const Program& ThisProgram() { return send::SendTable(); }

}  // namespace vantrel::commandline
