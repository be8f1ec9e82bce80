// SPDX-License-Identifier: MIT

#include "tests/reliability/console_commands.h"

#include <stdexcept>

namespace vantrel::reliability {
namespace {

using enum dialogs::Answer;

constexpr const char* kCancelWait = "Press '54h' to cancel this command/card waiting status...";
constexpr const char* kReverseData =
    "Set JIS(7-bit) format data (01h,04h - 7Eh) in reverse direction, Max 69 Bytes";
constexpr const char* kForwardData = "Set JIS(7-bit) format data (01h,04h - 7Eh), Max 69 Bytes";
constexpr const char* kWriteData = "Send 31h or 32h to write the data";
constexpr const char* kOver320Dots =
    "Reject response => (starting address + image data) > 320 dots";
constexpr const char* kExpandFont = "Expand the registered font to print buffer by command 41h";
constexpr const char* kCleaningButton =
    "The cleaning button will take effect after receiving this coammnd";

BoxAnswer Answer(dialogs::Answer answer) { return {.answer = answer}; }
BoxAnswer Type(const char* text) { return {.is_typed = true, .text = text}; }

}  // namespace

// Block checks are the exclusive-or of all bytes from the command code to ETX, worked out by hand.
std::span<const ConsoleCommand> ConsoleCommands() {
  static const std::vector<ConsoleCommand> kCommands = {
      {.button = "Cmd21",
       .hints = "         Send: STX 21h ETX BCC\r\n"
                "Response: STX 21h Status 'Read Data String' ETX BCC",
       .panel1 = "Please insert your card...",
       .panel2 = kCancelWait,
       .frames = {"02210322"},
       .time_limit = 20000,
       .reply = "0602212041420301",
       .shown = "02 21 20 41 42 03 01 ",
       .label = "First Track: ",
       .meaning = "First Track: AB"},
      {.button = "Cmd22",
       .hints = "         Send: STX 22h ETX BCC\r\n"
                "Response: STX 22h Status 'Read Data String' ETX BCC",
       .panel1 = "Please insert your card...",
       .panel2 = kCancelWait,
       .frames = {"02220321"},
       .time_limit = 20000,
       .reply = "0602222031320302",
       .shown = "02 22 20 31 32 03 02 ",
       .label = "Second Track: ",
       .meaning = "Second Track: 12"},
      {.button = "Cmd23",
       .hints = "         Send: STX 23h ETX BCC\r\n"
                " Response: STX 23h Status 'Read Data String' ETX BCC",
       .panel1 = "Please insert your card...",
       .panel2 = kCancelWait,
       .frames = {"02230320"},
       .time_limit = 20000,
       .reply = "0602232037370300",
       .shown = "02 23 20 37 37 03 00 ",
       .label = "Third Track: ",
       .meaning = "Third Track: 77"},
      {.button = "Cmd25",
       .hints = "         Send: STX 25h ETX BCC\r\n"
                "Response: STX 25h Status 'Read Data String' ETX BCC",
       .panel1 = "Read the magnetic stripe of the card inside the printer...",
       .frames = {"02250326"},
       .reply = "0602252041420305",
       .shown = "02 25 20 41 42 03 05 ",
       .label = "First Track: ",
       .meaning = "First Track: AB"},
      {.button = "Cmd26",
       .hints = "         Send: STX 26h ETX BCC\r\n"
                "Response: STX 26h Status 'Read Data String' ETX BCC",
       .panel1 = "Read the magnetic stripe of the card inside the printer...",
       .frames = {"02260325"},
       .reply = "0602262031320306",
       .shown = "02 26 20 31 32 03 06 ",
       .label = "Second Track: ",
       .meaning = "Second Track: 12"},
      {.button = "Cmd27",
       .hints = "         Send: STX 27h ETX BCC\r\n"
                "Response: STX 27h Status 'Read Data String' ETX BCC",
       .panel1 = "Read the magnetic stripe of the card inside the printer...",
       .frames = {"02270324"},
       .reply = "0602272037370304",
       .shown = "02 27 20 37 37 03 04 ",
       .label = "Third Track: ",
       .meaning = "Third Track: 77"},
      {.button = "Cmd29",
       .hints = "         Send: STX 29h ETX BCC\r\n"
                "Response: STX 29h Status 'Read Data String' ETX BCC",
       .panel1 = "Waiting for the card or reading the buffer...",
       .frames = {"0229032A"},
       .time_limit = 20000,
       .reply = "0602292041420309",
       .shown = "02 29 20 41 42 03 09 ",
       .label = "First Track Buffer: ",
       .meaning = "First Track Buffer: AB"},
      {.button = "Cmd2A",
       .hints = "         Send: STX 2Ah ETX BCC\r\n"
                "Response: STX 2Ah Status 'Read Data String' ETX BCC",
       .panel1 = "Waiting for the card or reading the buffer...",
       .frames = {"022A0329"},
       .time_limit = 20000,
       .reply = "06022A203132030A",
       .shown = "02 2A 20 31 32 03 0A ",
       .label = "Second Track Buffer: ",
       .meaning = "Second Track Buffer: 12"},
      {.button = "Cmd2B",
       .hints = "         Send: STX 2Bh ETX BCC\r\n"
                "Response: STX 2Bh Status 'Read Data String' ETX BCC",
       .panel1 = "Waiting for the card or reading the buffer...",
       .frames = {"022B0328"},
       .time_limit = 20000,
       .reply = "06022B2037370308",
       .shown = "02 2B 20 37 37 03 08 ",
       .label = "Third Track Buffer: ",
       .meaning = "Third Track Buffer: 77"},
      {.button = "Cmd31",
       .hints = "Send: STX 31h Write track specification ETX BCC\r\n"
                "Response: STX 31h Status ETX BCC",
       .panel1 = "Please preset the data by 35h - 3Dh before excuting this command",
       .panel2 = kCancelWait,
       .boxes = {Type("2")},
       .frames = {"0231320300"},
       .time_limit = 20000,
       .reply = "060231200312",
       .shown = "02 31 20 03 12 "},
      {.button = "Cmd32",
       .hints = "Send: STX 32h Write track specification ETX BCC\r\n"
                "Response: STX 32h Status ETX BCC",
       .panel1 = "Please preset the data by 35h - 3Dh before excuting this command",
       .boxes = {Type("2")},
       .frames = {"0232320303"},
       .time_limit = 20000,
       .reply = "060232200311",
       .shown = "02 32 20 03 11 "},
      {.button = "Cmd35",
       .hints = "         Send: STX 35h 'Write Data String' ETX BCC\r\n"
                "Response: STX 35h Status ETX BCC",
       .panel1 = kReverseData,
       .panel2 = kWriteData,
       .boxes = {Answer(kYes), Type("12")},
       .frames = {"023531320335"},
       .reply = "060235200316",
       .shown = "02 35 20 03 16 "},
      {.button = "Cmd36",
       .hints = "         Send: STX 36h 'Write Data String' ETX BCC\r\n"
                "Response: STX 36h Status ETX BCC",
       .panel1 = kReverseData,
       .panel2 = kWriteData,
       .boxes = {Answer(kYes), Type("12")},
       .frames = {"023631320336"},
       .reply = "060236200315",
       .shown = "02 36 20 03 15 "},
      {.button = "Cmd37",
       .hints = "         Send: STX 37h 'Write Data String' ETX BCC\r\n"
                "Response: STX 37h Status ETX BCC",
       .panel1 = kReverseData,
       .panel2 = kWriteData,
       .boxes = {Answer(kYes), Type("12")},
       .frames = {"023731320337"},
       .reply = "060237200314",
       .shown = "02 37 20 03 14 "},
      {.button = "Cmd38",
       .hints = "         Send: STX 38h 'Write Data String' ETX BCC\r\n"
                "Response: STX 38h Status ETX BCC",
       .panel1 = kForwardData,
       .panel2 = kWriteData,
       .boxes = {Answer(kYes), Type("12")},
       .frames = {"023831320338"},
       .reply = "06023820031B",
       .shown = "02 38 20 03 1B "},
      {.button = "Cmd39",
       .hints = "         Send: STX 39h 'Write Data String' ETX BCC\r\n"
                "Response: STX 39h Status ETX BCC",
       .panel1 = kForwardData,
       .panel2 = kWriteData,
       .boxes = {Answer(kYes), Type("12")},
       .frames = {"023931320339"},
       .reply = "06023920031A",
       .shown = "02 39 20 03 1A "},
      {.button = "Cmd3A",
       .hints = "         Send: STX 3Ah 'Write Data String' ETX BCC\r\n"
                "Response: STX 3Ah Status ETX BCC",
       .panel1 = kForwardData,
       .panel2 = kWriteData,
       .boxes = {Answer(kYes), Type("12")},
       .frames = {"023A3132033A"},
       .reply = "06023A200319",
       .shown = "02 3A 20 03 19 "},
      {.button = "Cmd3B",
       .hints = "         Send: STX 3Bh 'Write data string' ETX BCC\r\n"
                "Response: STX 3Bh Status ETX BCC",
       .panel1 = "Set data(20h - 5Eh) for Track 1: Max 76 Bytes",
       .panel2 = kWriteData,
       .boxes = {Answer(kYes), Type("12")},
       .frames = {"023B3132033B"},
       .reply = "06023B200318",
       .shown = "02 3B 20 03 18 "},
      {.button = "Cmd3C",
       .hints = "         Send: STX 3Ch 'Write data string' ETX BCC\r\n"
                "Response: STX 3Ch Status ETX BCC",
       .panel1 = "Set data(30h - 3Eh) for Track 2: Max 37 Bytes",
       .panel2 = kWriteData,
       .boxes = {Answer(kYes), Type("12")},
       .frames = {"023C3132033C"},
       .reply = "06023C20031F",
       .shown = "02 3C 20 03 1F "},
      {.button = "Cmd3D",
       .hints = "         Send: STX 3Dh Write data string ETX BCC\r\n"
                "Response: STX 3Dh Status ETX BCC",
       .panel1 = "Set data(30h - 3Eh) for Track 3: Max 104 Bytes",
       .panel2 = kWriteData,
       .boxes = {Answer(kYes), Type("12")},
       .frames = {"023D3132033D"},
       .reply = "06023D20031E",
       .shown = "02 3D 20 03 1E "},
      {.button = "Cmd40",
       .hints = "         Send: STX 40h ETX 43h\r\n"
                "Response: STX 40h Status ETX BCC",
       .panel1 = "Clear print expansion buffer set by 41h, 42h & 4Eh",
       .frames = {"02400343"},
       .reply = "060240200363",
       .shown = "02 40 20 03 63 "},
      {.button = "Cmd41",
       .hints = "         Send: STX 41h 'Print data string' ETX BCC\r\n"
                "Response: STX 41h Status ETX BCC",
       .panel1 = "Clear print expansion buffer by 41h & 42h",
       .panel2 = "Buffer overflow response = print data exceeds the printable range",
       .frames = {"0241322C302C34372C4142036C"},
       .reply = "060241200362",
       .shown = "02 41 20 03 62 "},
      {.button = "Cmd42",
       .hints = "         Send: STX 42h Data arrangement, X Coordinate, Y coordinate, Expansion "
                "image specificaiton number ETX BCC\r\n"
                "Response: STX 42h Status ETX BCC",
       .panel1 = "Clear Image expansion buffer by 49h",
       .panel2 = "Reject response = no corresponded internal image",
       .frames = {"0242322C302C34372C4142036F"},
       .reply = "060242200361",
       .shown = "02 42 20 03 61 "},
      {.button = "Cmd43",
       .hints =
           "         Send: STX 43h X coordinate, Y coordinate, Expansion image data ETX BCC\r\n"
           "Response: STX 43h Status ETX BCC",
       .panel1 = "External image data expand command (Line Mode)",
       .panel2 = kOver320Dots,
       .frames = {"0243322C302C34372C4142036E"},
       .reply = "060243200360",
       .shown = "02 43 20 03 60 "},
      {.button = "Cmd44",
       .hints = "         Send: STX 44h Font size specification, External character registration "
                "number, External font data ETX BCC\r\n"
                "Response: STX 44h Status ETX BCC",
       .panel1 = "Double byte external character font register command",
       .panel2 = kExpandFont,
       .frames = {"0244322C302C34372C41420369"},
       .reply = "060244200367",
       .shown = "02 44 20 03 67 ",
       .panel1_after = kExpandFont,
       .panel2_after = "24 dot Double byte -> ESC G; 16 dot Double byte -> ESC I"},
      {.button = "Cmd45",
       .hints = "         Send: STX 45h Font size specification, External character registration "
                "number, External font data ETX BCC\r\n"
                "Response: STX 45h Status ETX BCC",
       .panel1 = "Single byte external character font register command",
       .panel2 = kExpandFont,
       .frames = {"0245322C302C34372C41420368"},
       .reply = "060245200366",
       .shown = "02 45 20 03 66 ",
       .panel1_after = "Single byte external character font register command",
       .panel2_after = kExpandFont},
      {.button = "Cmd46",
       .hints = "         Send: STX 46h Discharge method specification ETX BCC\r\n"
                "Response: STX 46h Status ETX BCC",
       .panel1 = "Erase + Print -> Card Discharge",
       .panel2 = kCancelWait,
       .boxes = {Type("1")},
       .frames = {"0246310374"},
       .time_limit = 30000,
       .reply = "060246200365",
       .shown = "02 46 20 03 65 "},
      {.button = "Cmd47",
       .hints = "         Send: STX 47h Discharge method specification ETX BCC\r\n"
                "Response: STX 47h Status ETX BCC",
       .panel1 = "Print -> Card Discharge",
       .panel2 = kCancelWait,
       .boxes = {Type("1")},
       .frames = {"0247310375"},
       .time_limit = 30000,
       .reply = "060247200364",
       .shown = "02 47 20 03 64 "},
      {.button = "Cmd48",
       .hints = "         Send: STX 48h Discharge method specification ETX BCC\r\n"
                "Response: STX 48h Status ETX BCC",
       .panel1 = "Erase -> discharge command",
       .panel2 = kCancelWait,
       .boxes = {Type("1")},
       .frames = {"024831037A"},
       .time_limit = 30000,
       .reply = "06024820036B",
       .shown = "02 48 20 03 6B "},
      {.button = "Cmd49",
       .hints = "         Send: STX 49h ETX 4Ah\r\n"
                "Response: STX 49h Status ETX BCC",
       .panel1 = "Clear image register buffer and print expansion buffer",
       .panel2 = "Command 40h + clear image data set by 43h & 4Dh",
       .frames = {"0249034A"},
       .reply = "06024920036A",
       .shown = "02 49 20 03 6A "},
      {.button = "Cmd4A",
       .hints = "STX 4Ah Data arrangement specification, X Coordinate, Y Coordinate, Expansion "
                "image number, Expansion starting dot, Expanion ending dot ETX BCC",
       .panel1 = kOldPanel1,
       .panel2 = kOldPanel2,
       .reply = "06024A200369",
       .shown = "02 4A 20 03 69 ",
       .panel1_after = kOldPanel1,
       .panel2_after = kOldPanel2},
      {.button = "Cmd4B",
       .hints = "         Send: STX 4Bh Register image specification number or continuation "
                "mark(+), Text of BMP data ETX BCC\r\n"
                "Response: STX 4Bh Status ETX BCC",
       .panel1 = "BMP file registering command to internal image data 2",
       .panel2 = "Maximum 16 images: Image No = 0 -> F  ",
       .frames = {"024B302C343234443145314430303030303030303030303033453030303030303238303030303030"
                  "43423030303030303038303130303030303130303031303030303030303030304530314330303030"
                  "43343045303030304334304530303030303030303030303030303030303030304646464646463030"
                  "30303030303030303030303030303030303030303030303030303030303746464646464630303030"
                  "30303030303030303030303030303030303030303030303030303030303030303030303030303030"
                  "30303030314646464646464643303030303030303030303030303030303030303030303030303030"
                  "30303030303030303030303030303030303030313746464646464646464645303030303030303030"
                  "30303030303030303030303030303030303030303030303030303030303030303030303146463830"
                  "46464646035F",
                  "024B2B2C464646433030303030303030303030303030303030303030303030303030303030303030"
                  "30303030303030303046464646433130383031464646464643303030303030303030303030303030"
                  "30303030303030303030303030303030303030303030303746464646463834343234323046464646"
                  "46463830303030303030303030303030303030303030303030303030303030303030303030314646"
                  "46464646453230303031303030313746464643303030303030303030303030303030303030303030"
                  "30303030303030303030303146464646464646463830313234343132313030374646464330303030"
                  "30303030303030303030303030303030303030303030303030303346464646464641383030343830"
                  "30303430383439304646464530303030303030303030303030303030303030303030303030303030"
                  "303346460348"},
       .reply = "06024B200368",
       .shown = "02 4B 20 03 68 "},
      {.button = "Cmd4D",
       .hints = "         Send: STX 4Dh X Coordinate, Y Coordinate, Image data length, Expansion "
                "Image data ETX BCC\r\n"
                "Response: STX 43h Status ETX BCC",
       .panel1 = "External image data expand command (Block Mode)",
       .panel2 = kOver320Dots,
       .frames = {"024D322C302C34372C41420360"},
       .reply = "06024D20036E",
       .shown = "02 4D 20 03 6E "},
      {.button = "Cmd4E",
       .hints = "         Send: STX 4Eh 'BarCode Control Header String' 'Barcode Data String' ETX "
                "BCC\r\n"
                "Response: STX 4Eh Status ETX BCC",
       .panel1 = "Barcode Data Setting Command",
       .panel2 = kOldPanel2,
       .frames = {"024E322C302C34372C41420363"},
       .reply = "06024E20036D",
       .shown = "02 4E 20 03 6D "},
      {.button = "Cmd50",
       .hints = "         Send: STX 50h 'Discharge method specification' ETX BCC\r\n"
                "Response: STX 50h Status ETX BCC",
       .boxes = {Answer(kYes)},
       .frames = {"0250310362"},
       .reply = "060250200373",
       .shown = "02 50 20 03 73 "},
      {.button = "Cmd51",
       .hints = "         Send: STX 51h ETX 50h\r\n"
                "Response: STX 51h Status ETX BCC",
       .panel2 = kCancelWait,
       .frames = {"02510352"},
       .reply = "060251200372",
       .shown = "02 51 20 03 72 "},
      {.button = "cmd52",
       .hints = "         Send: STX 52h ETX 51h\r\n"
                "Response: STX 52h Status ETX BCC",
       .panel1 = "Please add the cleaning fluid on the cleaning card...",
       .panel2 = "and then insert it into the printer",
       .frames = {"02520351"},
       .time_limit = 60000,
       .reply = "060252200371",
       .shown = "02 52 20 03 71 "},
      {.button = "Cmd53",
       .hints = "         Send: STX 53h ETX 50h\r\n"
                "Response: STX 53h Status ETX BCC",
       .panel2 = kCancelWait,
       .frames = {"02530350"},
       .reply = "060253200370",
       .shown = "02 53 20 03 70 "},
      {.button = "Cmd54",
       .hints = "         Send: STX 54h ETX 57h\r\n"
                "Response: STX 54h Status ETX BCC",
       .frames = {"02540357"},
       .reply = "060254200377",
       .shown = "02 54 20 03 77 "},
      {.button = "Cmd55",
       .hints = "         Send: STX 55h ETX 56h\r\n"
                "Response: STX 55h Status ETX BCC",
       .frames = {"02550356"},
       .reply = "060255200376",
       .shown = "02 55 20 03 76 "},
      {.button = "Cmd58",
       .hints = "         Send: STX 58h ETX 5Bh\r\n"
                "Response: STX 58h Status ROM information ETX BCC",
       .frames = {"0258035B"},
       .reply = "0602582056312E30310333",
       .shown = "02 58 20 56 31 2E 30 31 03 33 ",
       .label = "ROM Version: ",
       .meaning = "ROM Version: V1.01"},
      {.button = "Cmd59",
       .hints = "         Send: STX 59h ETX 5Ah\r\n"
                "Response: STX 59h Status Sensor status data string ETX BCC",
       .frames = {"0259035A"},
       .reply = "060259203031037B",
       .shown = "02 59 20 30 31 03 7B ",
       .label = "Status Request: ",
       .meaning = "Status Request: 01"},
      {.button = "Cmd5A",
       .hints = "         Send: STX 5Ah Control data string ETX BCC\r\n"
                "Response: STX 5Ah Status ETX BCC",
       .frames = {"025A2031200368"},
       .reply = "06025A200379",
       .shown = "02 5A 20 03 79 "},
      {.button = "Cmd5B",
       .hints = "         Send: STX 5Bh Enable/Disable parameter ETX BCC\r\n"
                "Response: STX 5Bh Status ETX BCC",
       .panel1 = kCleaningButton,
       .panel2 = "and switch off & on the power button",
       .boxes = {Answer(kYes), Answer(kYes)},
       .boxes_after = {Answer(kOk)},
       .frames = {"025B310369"},
       .reply = "06025B200378",
       .shown = "02 5B 20 03 78 "},
      {.button = "Cmd5F",
       .hints = "         Send: STX 5Fh ETX 5Ch\r\n"
                "Response: STX 5Fh Status ETX BCC",
       .panel1 = "Reset the printer now...",
       .frames = {"025F035C"},
       .reply = "06025F20037C",
       .shown = "02 5F 20 03 7C "},
      {.button = "Cmd91",
       .hints = "         Send: STX 91h Setting type Setting parameter ETX BCC\r\n"
                "Response: STX 91h Status ETX BCC",
       .panel1 = kCleaningButton,
       .boxes = {Answer(kYes), Type("11")},
       .frames = {"029131310392"},
       .reply = "0602912003B2",
       .shown = "02 91 20 03 B2 "},
      {.button = "Cmd95",
       .hints = "         Send: STX 95h ETX BCC\r\n"
                "Response: STX 95h Status Transport count data ETX BCC",
       .frames = {"02950396"},
       .reply = "060295203030313203B5",
       .shown = "02 95 20 30 30 31 32 03 B5 ",
       .label = "Transport Count: ",
       .meaning = "Transport Count: 0012"},
      {.button = "Cmd96",
       .hints = "         Send: STX 96h ETX BCC\r\n"
                "Response: STX 96h Status Print Count data ETX BCC",
       .frames = {"02960395"},
       .reply = "060296203030313203B6",
       .shown = "02 96 20 30 30 31 32 03 B6 ",
       .label = "Print Count: ",
       .meaning = "Print Count: 0012"},
  };
  return kCommands;
}

const ConsoleCommand& CommandOf(const std::string& code) {
  for (const ConsoleCommand& command : ConsoleCommands())
    if (command.Code() == code) return command;
  throw std::logic_error("no command " + code);
}

}  // namespace vantrel::reliability
