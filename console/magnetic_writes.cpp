// Magnetic stripe: 35h to 3Dh load a track's data into the printer, 31h and 32h write it onto the
// card.

#include "console/command_handlers.h"
#include "link/common.h"
#include "link/frame.h"
#include "link/typed_number.h"

#include <stdexcept>

namespace vantrel {
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

struct DataSet {
  std::string_view code;
  const char* title;
  std::string_view range_text;
  Sample sample;
};

constexpr DataSet kDataSets[] = {
    {"35", "Track 1", "01h - 7Eh", SampleDateData},
    {"36", "Track 2", "01h - 7Eh", SampleContactData},
    {"37", "Track 3", "01h - 7Eh", SampleTimeData},
    {"38", "Track 1", "01h - 7Eh", SampleDateData},
    {"39", "Track 2", "01h - 7Eh", SampleContactData},
    {"3A", "Track 3", "01h - 7Eh", SampleTimeData},
    {"3B", "Track 1", "20h - 5Eh", SampleDateAndTimeData},
    {"3C", "Track 2", "30h - 3Eh", SampleDigits},
    {"3D", "Track 3", "30h - 3Eh", SampleTwos},
};

const DataSet& DataSetOf(std::string_view code) {
  for (const DataSet& data_set : kDataSets)
    if (data_set.code == code) return data_set;
  throw std::out_of_range("Subscript out of range: no data set command " + std::string(code));
}

}  // namespace

void CommandHandlers::SetTrackData(std::string_view code) {
  const ConsoleCommand& command = CommandOf(code);
  const DataSet& data_set = DataSetOf(code);
  ShowHelp(command);
  const std::string sample =
      data_set.sample(system_time_, CharacterRange::Parse(data_set.range_text));
  Send(command, InputMagneticData(data_set.title, data_set.range_text, sample));
}

std::string CommandHandlers::InputMagneticData(const std::string& title,
                                               std::string_view range_text,
                                               const std::string& default_data) {
  const Answer answer = dialogs_.MsgBox("Do you want to input the data?", Buttons::kYesNo,
                                        title + " - Magnetic Stripe ");
  if (answer != Answer::kYes) return StrToHex(default_data, page_);

  const CharacterRange range = CharacterRange::Parse(range_text);
  std::string input;
  do {
    input = dialogs_.InputBox("Please input the data :-\r\n\r\n" + display_.Text(Field::Panel1),
                              title + " - Magnetic Stripe");
  } while (!range.Takes(input));
  // Blanks alone count as nothing typed, but only after they have passed the range.
  const bool is_blank = input.find_first_not_of(' ') == std::string::npos;
  return StrToHex(is_blank ? default_data : input, page_);
}

void CommandHandlers::WriteTracks(const ConsoleCommand& command) {
  std::optional<std::int16_t> choice;
  do {
    choice = TypedInteger(
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
  if (*choice == 1) display_.SetText(Field::Panel1, "Write Data to Track 1");
  // The first digit alone travels; the printer judges it.
  Send(command, StrToHex(std::to_string(*choice).substr(0, 1), page_));
}

void CommandHandlers::Cmd31_Click() {
  const ConsoleCommand& command = CommandOf("31");
  // The send line is not set in here; that is meant.
  display_.SetText(Field::LblHints,
                   std::string(command.send) + "\r\n" + std::string(command.response));
  ShowPanels(command);
  WriteTracks(command);
}

void CommandHandlers::Cmd32_Click() {
  const ConsoleCommand& command = CommandOf("32");
  // The panels come first and the send line is not set in; both are meant.
  ShowPanels(command);
  display_.SetText(Field::LblHints,
                   std::string(command.send) + "\r\n" + std::string(command.response));
  WriteTracks(command);
}

void CommandHandlers::Cmd35_Click() { SetTrackData("35"); }
void CommandHandlers::Cmd36_Click() { SetTrackData("36"); }
void CommandHandlers::Cmd37_Click() { SetTrackData("37"); }
void CommandHandlers::Cmd38_Click() { SetTrackData("38"); }
void CommandHandlers::Cmd39_Click() { SetTrackData("39"); }
void CommandHandlers::Cmd3A_Click() { SetTrackData("3A"); }
void CommandHandlers::Cmd3B_Click() { SetTrackData("3B"); }
void CommandHandlers::Cmd3C_Click() { SetTrackData("3C"); }
void CommandHandlers::Cmd3D_Click() { SetTrackData("3D"); }

}  // namespace vantrel
