// SPDX-License-Identifier: MIT

// Magnetic stripe: 35h to 3Dh load a track's data into the printer, 31h and 32h write it onto the
// card.

#include "console/command_handlers.h"
#include "link/common.h"
#include "link/frame.h"
#include "link/typed_number.h"

namespace vantrel::console {
namespace {

using Sample = std::string (*)(const SystemTime&, const CharacterRange&);

std::string SampleDateData(const SystemTime& now, const CharacterRange& range) {
  return "Track 1 Data    Date: " + SampleTime(now.short_date(), range);
}

std::string SampleContactData(const SystemTime&, const CharacterRange&) {
  return "Orvel-Nor Technology Ltd. Tel 5550 0100 641123123123123AAAAAAAAAA";
}

std::string SampleTimeData(const SystemTime& now, const CharacterRange& range) {
  return "Track 3 Data    Time: " + SampleTime(now.long_time(), range);
}

std::string SampleDateAndTimeData(const SystemTime& now, const CharacterRange& range) {
  return "TRACK1 DATA     DATE: " + SampleTime(now.short_date(), range) +
         "     TIME: " + SampleTime(now.long_time(), range);
}

std::string SampleDigits(const SystemTime&, const CharacterRange&) {
  return "1234567890123456789012345678901234567";
}

std::string SampleTwos(const SystemTime&, const CharacterRange&) { return std::string(104, '2'); }

}  // namespace

// What the data of a track may hold, and a sample of it.
struct TrackData {
  const char* title;
  std::string_view range_text;
  Sample sample;
};

namespace {

constexpr TrackData kFirstTrack7Bit = {"Track 1", "01h - 7Eh", SampleDateData};
constexpr TrackData kSecondTrack7Bit = {"Track 2", "01h - 7Eh", SampleContactData};
constexpr TrackData kThirdTrack7Bit = {"Track 3", "01h - 7Eh", SampleTimeData};
constexpr TrackData kFirstTrack = {"Track 1", "20h - 5Eh", SampleDateAndTimeData};
constexpr TrackData kSecondTrack = {"Track 2", "30h - 3Eh", SampleDigits};
constexpr TrackData kThirdTrack = {"Track 3", "30h - 3Eh", SampleTwos};

}  // namespace

std::string_view TrackDataRange(std::string_view code) {
  if (code == "3B") return kFirstTrack.range_text;
  if (code == "3C") return kSecondTrack.range_text;
  if (code == "3D") return kThirdTrack.range_text;
  return kFirstTrack7Bit.range_text;
}

void CommandHandlers::SetTrackData(const ConsoleCommand& command, const TrackData& track) {
  ShowHelp(command);
  const std::string sample = track.sample(system_time_, CharacterRange::Parse(track.range_text));
  Send(command, InputMagneticData(track, sample));
}

std::string CommandHandlers::InputMagneticData(const TrackData& track,
                                               const std::string& default_data) {
  const std::string title = track.title;
  const dialogs::Answer answer = dialogs_.MsgBox(
      "Do you want to input the data?", dialogs::Buttons::kYesNo, title + " - Magnetic Stripe ");
  if (answer != dialogs::Answer::kYes) return link::StrToHex(default_data, page_);

  const CharacterRange range = CharacterRange::Parse(track.range_text);
  std::string input;
  do {
    input =
        dialogs_.InputBox("Please input the data :-\r\n\r\n" + display_.Text(link::Field::Panel1),
                          title + " - Magnetic Stripe");
  } while (!range.Takes(input));
  // Blanks alone count as nothing typed, but only after they have passed the range.
  const bool is_blank = input.find_first_not_of(' ') == std::string::npos;
  return link::StrToHex(is_blank ? default_data : input, page_);
}

void CommandHandlers::WriteTracks(const ConsoleCommand& command) {
  std::optional<std::int16_t> choice;
  do {
    choice = link::TypedInteger(
        dialogs_.InputBox("QL-7 Series: support reading & writing all 3\r\n"
                          "QL-8 Series: support reading all 3 track & writing only track 3\r\n"
                          "\r\n"
                          "Please input the Number of your choice:-\r\n"
                          "Press '1': Enable magnetic writing to track 1\r\n"
                          "Press '2': Enable magnetic writing to track 2\r\n"
                          "Press '3': Enable magnetic writing to track 1 and 2\r\n"
                          "Press '4': Enable magnetic writing to track 3\r\n"
                          "Press '5': Enable magnetic writing to track 1 and 3\r\n"
                          "Press '6': Enable magnetic writing to track 2 and 3\r\n"
                          "Press '7': Enable magnetic writing to track 1, 2 and 3\r\n",
                          "Write Track specifying parameters", "2"));
  } while (!choice || *choice < 0);
  if (*choice == 0) return;
  if (*choice == 1) display_.SetText(link::Field::Panel1, "Write Data to Track 1");
  // The first digit alone travels; the printer judges it.
  Send(command, link::StrToHex(std::to_string(*choice).substr(0, 1), page_));
}

void CommandHandlers::Cmd31_Click(const ConsoleCommand& command) {
  // The send line is not set in here; that is meant.
  display_.SetText(link::Field::LblHints,
                   std::string(command.send) + "\r\n" + std::string(command.response));
  ShowPanels(command);
  WriteTracks(command);
}

void CommandHandlers::Cmd32_Click(const ConsoleCommand& command) {
  // The panels come first and the send line is not set in; both are meant.
  ShowPanels(command);
  display_.SetText(link::Field::LblHints,
                   std::string(command.send) + "\r\n" + std::string(command.response));
  WriteTracks(command);
}

void CommandHandlers::Cmd35_Click(const ConsoleCommand& command) {
  SetTrackData(command, kFirstTrack7Bit);
}
void CommandHandlers::Cmd36_Click(const ConsoleCommand& command) {
  SetTrackData(command, kSecondTrack7Bit);
}
void CommandHandlers::Cmd37_Click(const ConsoleCommand& command) {
  SetTrackData(command, kThirdTrack7Bit);
}
void CommandHandlers::Cmd38_Click(const ConsoleCommand& command) {
  SetTrackData(command, kFirstTrack7Bit);
}
void CommandHandlers::Cmd39_Click(const ConsoleCommand& command) {
  SetTrackData(command, kSecondTrack7Bit);
}
void CommandHandlers::Cmd3A_Click(const ConsoleCommand& command) {
  SetTrackData(command, kThirdTrack7Bit);
}
void CommandHandlers::Cmd3B_Click(const ConsoleCommand& command) {
  SetTrackData(command, kFirstTrack);
}
void CommandHandlers::Cmd3C_Click(const ConsoleCommand& command) {
  SetTrackData(command, kSecondTrack);
}
void CommandHandlers::Cmd3D_Click(const ConsoleCommand& command) {
  SetTrackData(command, kThirdTrack);
}

}  // namespace vantrel::console
