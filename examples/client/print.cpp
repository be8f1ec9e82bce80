// SPDX-License-Identifier: MIT

// Prints a name in double size on the card, and tells what was sent and what came back:
// print DEVICE NAME
#include "line.h"

#include <vantrel/link/code_page.h>
#include <vantrel/link/frame.h>
#include <vantrel/link/status_text.h>
#include <vantrel/printdata/esc_sequence.h>
#include <vantrel/printdata/print_buffer.h>
#include <vantrel/protocol/control.h>
#include <vantrel/protocol/frame_words.h>

#include <exception>
#include <iostream>
#include <string>

namespace {

using namespace vantrel;

// Sends a command with its data, in UTF-8, and tells both ways in words. Returns whether the
// printer's status is the normal one.
bool Send(Line& line, const char* command, const std::string& data) {
  const std::string frame =
      link::ComposeFrame(command, link::StrToHex(data, link::CodePage::kWestern));
  std::cout << protocol::MeaningInWords(protocol::Direction::kFromConsole, link::BytesOf(frame))
            << '\n';
  const std::string reply = line.Exchange(frame);
  std::cout << "  " << link::StatusText(link::ReplyStatus(reply)) << '\n';
  return link::ReplyStatus(reply) == 0x20;
}

}  // namespace

int main(int argc, char** argv) try {
  const std::string name = argc > 2 ? argv[2] : "Ada Lovelace";
  // Lying text, 20 dots from the left and 250 from the bottom of a card of 480 by 320 dots.
  const printdata::PrintSetting setting{"1", "20", "250"};
  const std::string y = setting.y_coordinate;
  if (const auto error = printdata::CheckCoordinate(printdata::Axis::kY, y, setting.direction)) {
    std::cerr << "print: " << error->message << '\n';
    return 2;
  }
  Line line(argc > 1 ? argv[1] : "/dev/ttyS0");
  // ESC E: double height and double width for what follows it.
  const std::string text =
      "\x1B"
      "E22" +
      name;
  const bool printed = Send(line, "40", "") &&
                       Send(line, "41", printdata::ComposePrintHeader(setting) + text) &&
                       Send(line, "46", "1");
  return printed ? 0 : 1;
} catch (const std::exception& error) {
  std::cerr << "print: " << error.what() << '\n';
  return 1;
}
