// SPDX-License-Identifier: MIT

#include "tour/command_reference.h"

#include "commandline/parse.h"
#include "console/command_family.h"
#include "console/command_table.h"
#include "link/frame.h"
#include "printer/model/printer_model.h"
#include "protocol/command_table.h"
#include "protocol/frame_words.h"
#include "protocol/status.h"
#include "send/job.h"
#include "send/table.h"
#include "tour/command_examples.h"
#include "tour/printer_words.h"

#include <stdlib.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace vantrel::tour {
namespace {

using console::ConsoleCommand;

// A flashing LED never comes to an end.
constexpr protocol::Moment kLongestWork{60'000};
// A longer frame shows its beginning alone.
constexpr std::size_t kShownBytes = 24;

// The row of a code, or one with the code alone.
CommandExample ExampleOf(std::string_view code) {
  for (const CommandExample& example : CommandExamples())
    if (example.code == code) return example;
  return {.code = code};
}

// A picture of 16 by 16 dots, for the time that this lives.
class Logo {
 public:
  Logo() {
    std::string folder = std::filesystem::temp_directory_path() / "vantrel-logo-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr)
      throw std::runtime_error("There is no folder for a picture.");
    folder_ = folder;
    // A monochrome BMP: its header, black and white, and sixteen lines of four bytes.
    const link::Bytes header = link::BytesOf(
        "424D7E000000000000003E000000280000001000000010000000010001000000000040000000C40E0000C40E00"
        "00"
        "000000000000000000000000FFFFFF00");
    std::ofstream file(Path(), std::ios::binary);
    file.write(reinterpret_cast<const char*>(header.data()),
               static_cast<std::streamsize>(header.size()));
    for (int line = 0; line < 16; ++line)
      file << (line % 8 < 4 ? std::string("\x0F\x0F\0\0", 4) : std::string("\xF0\xF0\0\0", 4));
  }
  ~Logo() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  Logo(const Logo&) = delete;
  Logo& operator=(const Logo&) = delete;

  std::string Path() const { return folder_ / "logo.bmp"; }

 private:
  std::filesystem::path folder_;
};

std::vector<std::string> Frames(const CommandExample& example, const Logo& logo) {
  std::vector<std::string> words{std::string(example.code)};
  for (const std::string_view parameter : example.parameters)
    words.push_back(parameter == "logo.bmp" ? logo.Path() : std::string(parameter));
  return send::Compose(commandline::Parse(send::SendTable(), words), {}).frames;
}

// A printer with a card, which has been registered an image of 16 lines.
class ExamplePrinter {
 public:
  ExamplePrinter(printer::Fonts& fonts, const CommandExample& example, const Logo& logo)
      : model_(fonts, link::CodePage::kWestern) {
    model_.OnSend([this](const link::Bytes& chunk) {
      sent_.insert(sent_.end(), chunk.begin(), chunk.end());
    });
    if (example.code == "52") model_.SetCardKind(printer::CardKind::kCleaning);
    constexpr std::array<std::string_view, 3> kTracks{"MEMBER 0042", "0042", "0042"};
    for (std::size_t track = 0; track < kTracks.size(); ++track)
      model_.SetTrack(track, kTracks.at(track));
    model_.InsertCard(now_);
    for (const char* load : {"3B", "3C", "3D"}) Answer(link::ComposeFrame(load, "30303432"));
    if (example.code == "4A")
      for (const std::string& frame : Frames({"4B", "", {"0", "logo.bmp"}}, logo)) Answer(frame);
  }

  // All that the printer sends for a frame.
  link::Bytes Answer(const std::string& frame) {
    sent_.clear();
    model_.Receive(link::BytesOf(frame), now_);
    const protocol::Moment end = now_ + kLongestWork;
    while (model_.NextAdvance() && *model_.NextAdvance() <= end) {
      now_ = std::max(now_, *model_.NextAdvance());
      model_.Advance(now_);
    }
    return sent_;
  }

 private:
  printer::PrinterModel model_;
  protocol::Moment now_{0};
  link::Bytes sent_;
};

std::string Shown(const link::Bytes& bytes) {
  const std::size_t shown = std::min(bytes.size(), kShownBytes);
  std::string text;
  for (std::size_t i = 0; i < shown; ++i) text += (i == 0 ? "" : " ") + link::HexOf(bytes[i]);
  if (shown < bytes.size()) text += " ... " + link::HexOf(bytes.back());
  return text;
}

// Two lines: an arrow with the bytes, and what they mean.
std::string Told(std::string_view arrow, protocol::Direction direction, const link::Bytes& bytes) {
  std::string meaning = protocol::MeaningInWords(direction, bytes);
  return std::string("    ") + std::string(arrow) + " " + Shown(bytes) + "\n       " + meaning +
         "\n";
}

std::string Example(const CommandExample& example, printer::Fonts& fonts, const Logo& logo) {
  std::string text = "    vantrel-send " + std::string(example.code);
  for (const std::string_view parameter : example.parameters) {
    const bool quoted = parameter.find_first_of(" \\") != std::string_view::npos;
    text += quoted ? " '" + std::string(parameter) + "'" : " " + std::string(parameter);
  }
  text += "\n\n";
  ExamplePrinter printer(fonts, example, logo);
  for (const std::string& frame : Frames(example, logo)) {
    text += Told("->", protocol::Direction::kFromConsole, link::BytesOf(frame));
    const link::Bytes answer = printer.Answer(frame);
    if (answer.empty()) throw std::logic_error(std::string(example.code) + "h is not answered.");
    text += Told("<-", protocol::Direction::kFromPrinter, {answer.front()});
    if (answer.size() > 1)
      text += Told("<-", protocol::Direction::kFromPrinter, {answer.begin() + 1, answer.end()});
  }
  return text;
}

std::string Seconds(std::chrono::milliseconds time) {
  const auto tenths = time.count() / 100;
  std::string text = std::to_string(tenths / 10);
  if (tenths % 10 != 0) text += "." + std::to_string(tenths % 10);
  return text + " s";
}

std::string NeedInWords(printer::Need need) {
  switch (need) {
    case printer::Need::kNothing:
      return "Needs no card.";
    case printer::Need::kTargetCard:
      return "Needs a target card, else the reply is 22h.";
    case printer::Need::kCardOrWait:
      return "Waits for a card where there is no target card.";
    case printer::Need::kBufferOrCard:
      return "Waits for a card where no card has passed and there is no target card.";
    case printer::Need::kCleaningCard:
      return "Waits for a cleaning card; discharges an ordinary one.";
  }
  return {};
}

std::string InThePrinter(const CommandExample& example, const printer::CommandRow& row) {
  const PrinterWords& words = PrinterWordsOf(example.code);
  std::string text = NeedInWords(row.need) + " " + std::string(words.does);
  if (row.duration != printer::kNoTime) text += " Takes " + Seconds(row.duration) + ".";
  text += " Answers 20h";
  if (!example.statuses.empty()) text += "; " + std::string(example.statuses);
  text += ".";
  if (!words.rejects.empty()) text += " Rejects it with 10h " + std::string(words.rejects) + ".";
  return text;
}

// A text of the console without the words and blanks that it begins with.
std::string AfterColon(std::string_view text) {
  const std::size_t colon = text.find(':');
  return std::string(colon == std::string_view::npos ? text : text.substr(colon + 2));
}

std::string Code(const std::string& text) { return "`" + text + "`"; }

std::string Section(const ConsoleCommand& console, printer::Fonts& fonts, const Logo& logo) {
  const CommandExample example = ExampleOf(console.code);
  const commandline::Command* const send =
      commandline::FindCommand(send::SendTable(), example.code);
  const auto code = static_cast<std::uint8_t>(link::HexPair(example.code, 0));
  const protocol::CommandEntry* const entry = protocol::FindEntry(code);
  const printer::CommandRow* const row = printer::FindCommand(code);
  if (send == nullptr || entry == nullptr || row == nullptr)
    throw std::logic_error(std::string(example.code) + "h is not known everywhere.");

  std::string text = "### " + std::string(example.code) + "h, " + std::string(entry->name) +
                     "\n\n" + send->summary + ".\n\n| | |\n|---|---|\n";
  const auto line = [&](const std::string& name, const std::string& value) {
    text += "| " + name + " | " + value + " |\n";
  };
  line("Button", "\"" + std::string(console.caption) + "\"");
  line("The console asks", std::string(example.asks));
  line("Frame, as the console tells it", Code(AfterColon(console.send)));
  // One command is told and never sent.
  if (!console.response.empty()) {
    line("Reply, as the console tells it", Code(AfterColon(console.response)));
    line("The console waits", "up to " + Seconds(std::chrono::milliseconds(console.time_limit)));
  }
  line("The software printer", InThePrinter(example, *row));
  line("From a shell", Code("vantrel-send " + commandline::SynopsisOf(*send)));
  return text + "\n" + Example(example, fonts, logo) + "\n";
}

constexpr std::string_view kStart = R"(# Commands

Every command of the printer: what it does, what goes over the line, and how each of the programs deals with it. This page is
made by the programs themselves; do not edit it, see CONTRIBUTING.md.

A frame is STX (02h), the command's code, its data, ETX (03h) and the block check (BCC), the exclusive-or of all between STX
and itself. The printer answers 06h and, when its work is done, a frame with the command's code, a status and data. 15h asks for
the frame again, 10h rejects it. The lines of the console's help are shown as they stand there, with what they say of a block
check.

In the examples, `->` is what the console or `vantrel-send` sends and `<-` what the software printer answers, with a card in it
that holds "MEMBER 0042" on its first track and "0042" on the others, and "0042" loaded for all three.

## If this happens

| what you see | what it means and what helps |
|---|---|
| "Time up!" at once after a command that needs no card | Nothing that can be read came back. Is the printer on, is the cable in, is this the port? At another speed than the printer's nothing can be read either: try the other speeds. |
| "Time up!" after 20, 30 or 60 seconds | The command waited for a card. Put one in, or end the wait with 54h. |
| 15h again and again | The printer does not receive what was sent: wrong speed or parity, or a disturbed line. |
| Odd bytes under "Response", or "Unknown Control Character code" | Most often the wrong speed: "Setting" - "Baud Rate", or `--speed`. Else another program that talks on the line. |
| 10h | The printer does not know the command, or does not take its data: too long, characters out of range, 46h to 48h with "2" while case accessory parts are fitted, a track that the series does not write. |
| "Permission denied" | You are not in the group that may use the port, on Debian `dialout`: `sudo adduser USER dialout`, then log in again. |
| "Device or resource busy", "in use" | Another program has the port; end it. |
| Nothing is printed | 41h, 42h, 43h, 4Dh, 4Ah and 4Eh only fill the print expansion buffer: 46h or 47h puts it on the card. 40h, 49h, 5Fh and the power switch empty it. |
| A reply with status 22h | There is no target card: what was discharged with "1" or went out at the back is none any more. |

)";

std::string Statuses() {
  std::string text =
      "## Statuses\n\nA real printer, and a fault of the software one, may answer any command with "
      "any of "
      "them.\n\n| status | meaning |\n|---|---|\n";
  for (const protocol::StatusEntry& status : protocol::AllStatuses())
    text += "| " + link::HexOf(status.status) + "h | " + std::string(status.meaning) + " |\n";
  return text + "\n";
}

}  // namespace

std::string CommandReference(printer::Fonts& fonts) {
  const Logo logo;
  std::string text = std::string(kStart) + Statuses();
  std::string family;
  for (const ConsoleCommand& command : console::Commands()) {
    const std::string own(
        console::kFamilyNames.at(static_cast<std::size_t>(console::FamilyOf(command.code))));
    if (own != family) text += "## " + own + "\n\n";
    family = own;
    text += Section(command, fonts, logo);
  }
  text.pop_back();
  return text;
}

}  // namespace vantrel::tour
