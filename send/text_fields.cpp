// SPDX-License-Identifier: MIT

// Data fields that hold text: 35h to 3Dh, 41h, 42h, 4Ah and 91h, and the letters of 5Ah.

#include "console/sample_data.h"
#include "editors/control_settings.h"
#include "link/common.h"
#include "link/frame.h"
#include "printdata/print_buffer.h"
#include "protocol/fields.h"
#include "send/data_fields.h"

#include <algorithm>

namespace vantrel::send {
namespace {

using commandline::Parsed;
using commandline::WrongUse;

bool IsFrameByte(unsigned char byte) { return byte == 0x02 || byte == 0x03; }

// Two characters in an escape: its byte in hex text.
std::string EscapedByte(const std::string& text, std::size_t position) {
  const std::string digits = text.substr(position, 2);
  const auto bytes = protocol::HexBytesOf(digits, 1);
  if (!bytes) throw WrongUse("In TEXT, \\x needs two hex digits after it.");
  const std::uint8_t byte = bytes->front();
  if (IsFrameByte(byte)) throw WrongUse("TEXT cannot hold the bytes 02h and 03h.");
  return link::HexOf(byte);
}

// Text that is sent as it stands. The bytes that begin and end a frame cannot be in it.
std::string PlainText(const std::string& text, link::CodePage page) {
  if (std::any_of(text.begin(), text.end(), IsFrameByte))
    throw WrongUse("TEXT cannot hold the bytes 02h and 03h.");
  return link::StrToHex(text, page);
}

// Print text with its escapes, in hex text.
std::string EscapedText(const std::string& text, link::CodePage page) {
  std::string hex;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t backslash = std::min(text.find('\\', start), text.size());
    hex += PlainText(text.substr(start, backslash - start), page);
    if (backslash == text.size()) break;
    if (backslash + 1 == text.size()) throw WrongUse("TEXT ends inside an escape.");
    start = backslash + 2;
    switch (const char escape = text[backslash + 1]) {
      case 'n':
        hex += "0D0A";
        break;
      case 'e':
        hex += "1B";
        break;
      case '\\':
        hex += "5C";
        break;
      case 'x':
        hex += EscapedByte(text, start);
        start += 2;
        break;
      default:
        throw WrongUse(std::string("TEXT has no escape \\") + escape +
                       "; there are \\n, \\e, \\\\ and \\xHH.");
    }
  }
  return hex;
}

// Direction and place of 41h, 42h and 4Ah, checked as the console does.
printdata::PrintSetting Place(const Parsed& parsed) {
  printdata::PrintSetting setting{parsed.Value("direction"), parsed.Value("x"), parsed.Value("y")};
  using printdata::Axis;
  for (const auto& [axis, text] :
       {std::pair(Axis::kX, setting.x_coordinate), std::pair(Axis::kY, setting.y_coordinate)})
    if (const auto error = printdata::CheckCoordinate(axis, text, setting.direction))
      throw WrongUse(error->message + ".");
  return setting;
}

}  // namespace

DataFields TrackText(const Parsed& parsed, const Means& means) {
  const std::string& text = parsed.Parameters().front();
  const std::string_view range_text = console::TrackDataRange(parsed.Command()->name);
  if (text.empty()) throw WrongUse("TEXT is empty.");
  if (!console::CharacterRange::Parse(range_text).Takes(text))
    throw WrongUse("TEXT has characters other than " + std::string(range_text) +
                   (range_text.starts_with("01h") ? " without 02h and 03h." : "."));
  return {link::StrToHex(text, means.page)};
}

DataFields PrintText(const Parsed& parsed, const Means& means) {
  return {HexOfAscii(printdata::ComposePrintHeader(Place(parsed))) +
          EscapedText(parsed.Parameters().front(), means.page)};
}

DataFields InternalImage(const Parsed& parsed, const Means&) {
  return {HexOfAscii(printdata::ComposeImageExpansion(Place(parsed), parsed.Parameters().front()))};
}

DataFields RegisteredImage(const Parsed& parsed, const Means&) {
  const std::vector<std::string>& parameters = parsed.Parameters();
  if (std::stoi(parameters[1]) > std::stoi(parameters[2]))
    throw WrongUse("LAST is a number from FIRST to 479, not '" + parameters[2] + "'.");
  return {HexOfAscii(printdata::ComposePrintHeader(Place(parsed)) + RegisterDigit(parameters[0]) +
                     "," + parameters[1] + "," + parameters[2])};
}

DataFields Indicators(const Parsed& parsed, const Means&) {
  using editors::Control;
  // The words in the order of the form's buttons.
  const std::vector<std::string> leds = {"keep",     "off",       "on",
                                         "flashing", "one-cycle", "three-cycles"};
  const std::vector<std::string> colours = {"green", "orange", "red"};
  const std::vector<std::string> buzzers = {"keep",    "off",       "on",
                                            "buzzing", "one-cycle", "three-cycles"};
  editors::ControlSettings settings;
  const auto choose = [&](Control control, const char* option,
                          const std::vector<std::string>& words) {
    const auto word = std::find(words.begin(), words.end(), parsed.Value(option));
    settings.Choose(control, static_cast<int>(word - words.begin()));
  };
  choose(Control::kLedOperation, "led", leds);
  choose(Control::kLedColor, "colour", colours);
  choose(Control::kBuzzer, "buzzer", buzzers);
  return {settings.ControlData()};
}

DataFields StoredSetting(const Parsed& parsed, const Means& means) {
  return {PlainText(parsed.Parameters().front(), means.page)};
}

}  // namespace vantrel::send
