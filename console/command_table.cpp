#include "console/command_table.h"

#include "console/command_handlers.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace vantrel {
namespace {

// Guidance that several commands share.
constexpr std::string_view kCancelWait =
    "Press '54h' to cancel this command/card waiting status...";
constexpr std::string_view kInsertCard = "Please insert your card...";
constexpr std::string_view kCardInside =
    "Read the magnetic stripe of the card inside the printer...";
constexpr std::string_view kTrackBuffer = "Waiting for the card or reading the buffer...";
constexpr std::string_view kPresetData =
    "Please preset the data by 35h - 3Dh before excuting this command";
constexpr std::string_view kReverseData =
    "Set JIS(7-bit) format data (01h,04h - 7Eh) in reverse direction, Max 69 Bytes";
constexpr std::string_view kForwardData =
    "Set JIS(7-bit) format data (01h,04h - 7Eh), Max 69 Bytes";
constexpr std::string_view kWriteData = "Send 31h or 32h to write the data";
constexpr std::string_view kOver320Dots =
    "Reject response => (starting address + image data) > 320 dots";
constexpr std::string_view kExpandFont =
    "Expand the registered font to print buffer by command 41h";
constexpr std::string_view kCleaningButton =
    "The cleaning button will take effect after receiving this coammnd";

using Handlers = CommandHandlers;

// Misspellings, odd blanks and block checks that a help text names wrongly are the texts' own.
constexpr ConsoleCommand kCommands[] = {
    {"Cmd21", "21", "First Track Read 21", "1", &Handlers::Cmd21_Click, "Send: STX 21h ETX BCC",
     "Response: STX 21h Status 'Read Data String' ETX BCC", kInsertCard, kCancelWait, 20000,
     "02210322"},
    {"Cmd22", "22", "Second Track Read 22", "1", &Handlers::Cmd22_Click, "Send: STX 22h ETX BCC",
     "Response: STX 22h Status 'Read Data String' ETX BCC", kInsertCard, kCancelWait, 20000,
     "02220321"},
    {"Cmd23", "23", "Third Track Read 23", "1", &Handlers::Cmd23_Click, "Send: STX 23h ETX BCC",
     " Response: STX 23h Status 'Read Data String' ETX BCC", kInsertCard, kCancelWait, 20000,
     "02230320"},
    {"Cmd25", "25", "First Track Read (status with no card) 25", "1", &Handlers::Cmd25_Click,
     "Send: STX 25h ETX BCC", "Response: STX 25h Status 'Read Data String' ETX BCC", kCardInside,
     "", 5000, ""},
    {"Cmd26", "26", "Second Track Read (status with no card) 26", "1", &Handlers::Cmd26_Click,
     "Send: STX 26h ETX BCC", "Response: STX 26h Status 'Read Data String' ETX BCC", kCardInside,
     "", 5000, ""},
    {"Cmd27", "27", "Third Track Read (status with no card) 27", "1", &Handlers::Cmd27_Click,
     "Send: STX 27h ETX BCC", "Response: STX 27h Status 'Read Data String' ETX BCC", kCardInside,
     "", 5000, ""},
    {"Cmd29", "29", "First Track Buffer Read 29", "1", &Handlers::Cmd29_Click,
     "Send: STX 29h ETX BCC", "Response: STX 29h Status 'Read Data String' ETX BCC", kTrackBuffer,
     "", 20000, ""},
    {"Cmd2A", "2A", "Second Track Buffer Read 2A", "1", &Handlers::Cmd2A_Click,
     "Send: STX 2Ah ETX BCC", "Response: STX 2Ah Status 'Read Data String' ETX BCC", kTrackBuffer,
     "", 20000, ""},
    {"Cmd2B", "2B", "Third Track Buffer Read 2B", "1", &Handlers::Cmd2B_Click,
     "Send: STX 2Bh ETX BCC", "Response: STX 2Bh Status 'Read Data String' ETX BCC", kTrackBuffer,
     "", 20000, ""},
    {"Cmd31", "31", "Magnetic Stripe Write - Idle Command 31", "1", &Handlers::Cmd31_Click,
     "Send: STX 31h Write track specification ETX BCC", "Response: STX 31h Status ETX BCC",
     kPresetData, kCancelWait, 20000, ""},
    {"Cmd32", "32", "Magnetic Stripe Write - Idle (status with no card) 32", "1",
     &Handlers::Cmd32_Click, "Send: STX 32h Write track specification ETX BCC",
     "Response: STX 32h Status ETX BCC", kPresetData, "", 20000, ""},
    {"Cmd35", "35", "First Track Data Set (Reverse 7-bit) 35", "1", &Handlers::Cmd35_Click,
     "Send: STX 35h 'Write Data String' ETX BCC", "Response: STX 35h Status ETX BCC", kReverseData,
     kWriteData, 5000, ""},
    {"Cmd36", "36", "Second Track Data Set (Reverse 7-bit) 36", "1", &Handlers::Cmd36_Click,
     "Send: STX 36h 'Write Data String' ETX BCC", "Response: STX 36h Status ETX BCC", kReverseData,
     kWriteData, 5000, ""},
    {"Cmd37", "37", "Third Track Data Set (Reverse 7-bit) 37", "1", &Handlers::Cmd37_Click,
     "Send: STX 37h 'Write Data String' ETX BCC", "Response: STX 37h Status ETX BCC", kReverseData,
     kWriteData, 5000, ""},
    {"Cmd38", "38", "First Track Data Set (7-bit) 38", "1", &Handlers::Cmd38_Click,
     "Send: STX 38h 'Write Data String' ETX BCC", "Response: STX 38h Status ETX BCC", kForwardData,
     kWriteData, 5000, ""},
    {"Cmd39", "39", "Second Track Data Set (7-bit) 39", "1", &Handlers::Cmd39_Click,
     "Send: STX 39h 'Write Data String' ETX BCC", "Response: STX 39h Status ETX BCC", kForwardData,
     kWriteData, 5000, ""},
    {"Cmd3A", "3A", "Third Track Data Set (7-bit) 3A", "1", &Handlers::Cmd3A_Click,
     "Send: STX 3Ah 'Write Data String' ETX BCC", "Response: STX 3Ah Status ETX BCC", kForwardData,
     kWriteData, 5000, ""},
    {"Cmd3B", "3B", "First Track Data Set 3B", "1", &Handlers::Cmd3B_Click,
     "Send: STX 3Bh 'Write data string' ETX BCC", "Response: STX 3Bh Status ETX BCC",
     "Set data(20h - 5Eh) for Track 1: Max 76 Bytes", kWriteData, 5000, ""},
    {"Cmd3C", "3C", "Second Track Data Set 3C", "1", &Handlers::Cmd3C_Click,
     "Send: STX 3Ch 'Write data string' ETX BCC", "Response: STX 3Ch Status ETX BCC",
     "Set data(30h - 3Eh) for Track 2: Max 37 Bytes", kWriteData, 5000, ""},
    {"Cmd3D", "3D", "Third Track Data Set 3D", "1", &Handlers::Cmd3D_Click,
     "Send: STX 3Dh Write data string ETX BCC", "Response: STX 3Dh Status ETX BCC",
     "Set data(30h - 3Eh) for Track 3: Max 104 Bytes", kWriteData, 5000, ""},
    {"Cmd40", "40", "Print expansion buffer clear 40", "1", &Handlers::Cmd40_Click,
     "Send: STX 40h ETX 43h", "Response: STX 40h Status ETX BCC",
     "Clear print expansion buffer set by 41h, 42h & 4Eh", "", 5000, "02400343"},
    {"Cmd41", "41", "Print Data Setting 41", "1", &Handlers::Cmd41_Click,
     "Send: STX 41h 'Print data string' ETX BCC", "Response: STX 41h Status ETX BCC",
     "Clear print expansion buffer by 41h & 42h",
     "Buffer overflow response = print data exceeds the printable range", 5000, ""},
    {"Cmd42", "42", "Internal Image Data 1 Expand 42", "1", &Handlers::Cmd42_Click,
     "Send: STX 42h Data arrangement, X Coordinate, Y coordinate, Expansion image specificaiton "
     "number ETX BCC",
     "Response: STX 42h Status ETX BCC", "Clear Image expansion buffer by 49h",
     "Reject response = no corresponded internal image", 5000, ""},
    {"Cmd43", "43", "External Image data Expand (Line Mode) 43", "1", &Handlers::Cmd43_Click,
     "Send: STX 43h X coordinate, Y coordinate, Expansion image data ETX BCC",
     "Response: STX 43h Status ETX BCC", "External image data expand command (Line Mode)",
     kOver320Dots, 5000, ""},
    {"Cmd44", "44", "2-Byte External Character Font register 44", "1", &Handlers::Cmd44_Click,
     "Send: STX 44h Font size specification, External character registration number, External font "
     "data ETX BCC",
     "Response: STX 44h Status ETX BCC", "Double byte external character font register command",
     kExpandFont, 5000, ""},
    {"Cmd45", "45", "1Byte Exteranl Character Font register 45", "1", &Handlers::Cmd45_Click,
     "Send: STX 45h Font size specification, External character registration number, External font "
     "data ETX BCC",
     "Response: STX 45h Status ETX BCC", "Single byte external character font register command",
     kExpandFont, 5000, ""},
    {"Cmd46", "46", "Erase + Print -> Discharge 46", "1", &Handlers::Cmd46_Click,
     "Send: STX 46h Discharge method specification ETX BCC", "Response: STX 46h Status ETX BCC",
     "Erase + Print -> Card Discharge", kCancelWait, 30000, ""},
    {"Cmd47", "47", "Print -> Discharge 47", "1", &Handlers::Cmd47_Click,
     "Send: STX 47h Discharge method specification ETX BCC", "Response: STX 47h Status ETX BCC",
     "Print -> Card Discharge", kCancelWait, 30000, ""},
    {"Cmd48", "48", "Erase -> Discharge 48", "1", &Handlers::Cmd48_Click,
     "Send: STX 48h Discharge method specification ETX BCC", "Response: STX 48h Status ETX BCC",
     "Erase -> discharge command", kCancelWait, 30000, ""},
    {"Cmd49", "49", "Buffer Clear 49", "1", &Handlers::Cmd49_Click, "Send: STX 49h ETX 4Ah",
     "Response: STX 49h Status ETX BCC", "Clear image register buffer and print expansion buffer",
     "Command 40h + clear image data set by 43h & 4Dh", 5000, "0249034A"},
    {"Cmd4A", "4A", "Internal Image Data 2 expand 4A", "1", &Handlers::Cmd4A_Click,
     "STX 4Ah Data arrangement specification, X Coordinate, Y Coordinate, Expansion image number, "
     "Expansion starting dot, Expanion ending dot ETX BCC",
     "", "", "", 0, ""},
    {"Cmd4B", "4B", "BMP file register command to Internal Image Data 2 4B", "1",
     &Handlers::Cmd4B_Click,
     "Send: STX 4Bh Register image specification number or continuation mark(+), Text of BMP data "
     "ETX BCC",
     "Response: STX 4Bh Status ETX BCC", "BMP file registering command to internal image data 2",
     "Maximum 16 images: Image No = 0 -> F  ", 5000, ""},
    {"Cmd4D", "4D", "External Image data Expand(BlockMode) 4D", "1", &Handlers::Cmd4D_Click,
     "Send: STX 4Dh X Coordinate, Y Coordinate, Image data length, Expansion Image data ETX BCC",
     "Response: STX 43h Status ETX BCC", "External image data expand command (Block Mode)",
     kOver320Dots, 5000, ""},
    {"Cmd4E", "4E", "Barcode data setting command 4E", "1", &Handlers::Cmd4E_Click,
     "Send: STX 4Eh 'BarCode Control Header String' 'Barcode Data String' ETX BCC",
     "Response: STX 4Eh Status ETX BCC", "Barcode Data Setting Command", "", 5000, ""},
    {"Cmd50", "50", "Card Discharge 50", "1", &Handlers::Cmd50_Click,
     "Send: STX 50h 'Discharge method specification' ETX BCC", "Response: STX 50h Status ETX BCC",
     "", "", 5000, ""},
    {"Cmd51", "51", "Card Rear Side Idle 51", "1", &Handlers::Cmd51_Click, "Send: STX 51h ETX 50h",
     "Response: STX 51h Status ETX BCC", "", kCancelWait, 5000, "02510352"},
    {"cmd52", "52", "Cleaning 52", "1", &Handlers::cmd52_Click, "Send: STX 52h ETX 51h",
     "Response: STX 52h Status ETX BCC", "Please add the cleaning fluid on the cleaning card...",
     "and then insert it into the printer", 60000, "02520351"},
    {"Cmd53", "53", "Card Front Side Idle 53", "1", &Handlers::Cmd53_Click, "Send: STX 53h ETX 50h",
     "Response: STX 53h Status ETX BCC", "", kCancelWait, 5000, "02530350"},
    {"Cmd54", "54", "Card Insertion Wait Status Cancel 54", "10", &Handlers::Cmd54_Click,
     "Send: STX 54h ETX 57h", "Response: STX 54h Status ETX BCC", "", "", 5000, "02540357"},
    {"Cmd55", "55", "Card Removal Wait Status Cancel 55", "10", &Handlers::Cmd55_Click,
     "Send: STX 55h ETX 56h", "Response: STX 55h Status ETX BCC", "", "", 5000, "02550356"},
    {"Cmd58", "58", "ROM Version Request 58", "1", &Handlers::Cmd58_Click, "Send: STX 58h ETX 5Bh",
     "Response: STX 58h Status ROM information ETX BCC", "", "", 5000, "0258035B"},
    {"Cmd59", "59", "Status Request 59", "1", &Handlers::Cmd59_Click, "Send: STX 59h ETX 5Ah",
     "Response: STX 59h Status Sensor status data string ETX BCC", "", "", 5000, "0259035A"},
    {"Cmd5A", "5A", "LED, Buzzer Control 5A", "1", &Handlers::Cmd5A_Click,
     "Send: STX 5Ah Control data string ETX BCC", "Response: STX 5Ah Status ETX BCC", "", "", 5000,
     ""},
    {"Cmd5B", "5B", "Cleaning button Enable/Disable 5B", "1", &Handlers::Cmd5B_Click,
     "Send: STX 5Bh Enable/Disable parameter ETX BCC", "Response: STX 5Bh Status ETX BCC",
     kCleaningButton, "and switch off & on the power button", 5000, ""},
    {"Cmd5F", "5F", "Reset 5F", "20", &Handlers::Cmd5F_Click, "Send: STX 5Fh ETX 5Ch",
     "Response: STX 5Fh Status ETX BCC", "Reset the printer now...", "", 5000, "025F035C"},
    {"Cmd91", "91", "Various Setting 91", "1", &Handlers::Cmd91_Click,
     "Send: STX 91h Setting type Setting parameter ETX BCC", "Response: STX 91h Status ETX BCC",
     kCleaningButton, "", 5000, ""},
    {"Cmd95", "95", "Card Transport Count Request 95", "1", &Handlers::Cmd95_Click,
     "Send: STX 95h ETX BCC", "Response: STX 95h Status Transport count data ETX BCC", "", "", 5000,
     "02950396"},
    {"Cmd96", "96", "Print Count Request 96", "1", &Handlers::Cmd96_Click, "Send: STX 96h ETX BCC",
     "Response: STX 96h Status Print Count data ETX BCC", "", "", 5000, ""},
};
static_assert(std::size(kCommands) == 48);

}  // namespace

std::span<const ConsoleCommand> Commands() { return kCommands; }

const ConsoleCommand& CommandOf(std::string_view code) {
  const auto* found =
      std::find_if(std::begin(kCommands), std::end(kCommands),
                   [code](const ConsoleCommand& command) { return command.code == code; });
  if (found == std::end(kCommands))
    throw std::out_of_range("Subscript out of range: no command " + std::string(code));
  return *found;
}

}  // namespace vantrel
