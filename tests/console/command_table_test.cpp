// SPDX-License-Identifier: MIT

// The buttons: names, captions, tags, order, and the frame that each one sends.

#include "console/command_table.h"

#include "tests/console/command_fixture.h"

#include <string>
#include <utility>
#include <vector>

namespace vantrel::console {
namespace {

struct Button {
  std::string name;
  std::string caption;
  std::string tag;

  bool operator==(const Button&) const = default;
};

void PrintTo(const Button& button, std::ostream* stream) {
  *stream << button.name << " \"" << button.caption << "\" " << button.tag;
}

// The name `cmd52` and the spelling "Exteranl" are meant.
const std::vector<Button> kButtons = {
    {"Cmd21", "First Track Read 21", "1"},
    {"Cmd22", "Second Track Read 22", "1"},
    {"Cmd23", "Third Track Read 23", "1"},
    {"Cmd25", "First Track Read (status with no card) 25", "1"},
    {"Cmd26", "Second Track Read (status with no card) 26", "1"},
    {"Cmd27", "Third Track Read (status with no card) 27", "1"},
    {"Cmd29", "First Track Buffer Read 29", "1"},
    {"Cmd2A", "Second Track Buffer Read 2A", "1"},
    {"Cmd2B", "Third Track Buffer Read 2B", "1"},
    {"Cmd31", "Magnetic Stripe Write - Idle Command 31", "1"},
    {"Cmd32", "Magnetic Stripe Write - Idle (status with no card) 32", "1"},
    {"Cmd35", "First Track Data Set (Reverse 7-bit) 35", "1"},
    {"Cmd36", "Second Track Data Set (Reverse 7-bit) 36", "1"},
    {"Cmd37", "Third Track Data Set (Reverse 7-bit) 37", "1"},
    {"Cmd38", "First Track Data Set (7-bit) 38", "1"},
    {"Cmd39", "Second Track Data Set (7-bit) 39", "1"},
    {"Cmd3A", "Third Track Data Set (7-bit) 3A", "1"},
    {"Cmd3B", "First Track Data Set 3B", "1"},
    {"Cmd3C", "Second Track Data Set 3C", "1"},
    {"Cmd3D", "Third Track Data Set 3D", "1"},
    {"Cmd40", "Print expansion buffer clear 40", "1"},
    {"Cmd41", "Print Data Setting 41", "1"},
    {"Cmd42", "Internal Image Data 1 Expand 42", "1"},
    {"Cmd43", "External Image data Expand (Line Mode) 43", "1"},
    {"Cmd44", "2-Byte External Character Font register 44", "1"},
    {"Cmd45", "1Byte Exteranl Character Font register 45", "1"},
    {"Cmd46", "Erase + Print -> Discharge 46", "1"},
    {"Cmd47", "Print -> Discharge 47", "1"},
    {"Cmd48", "Erase -> Discharge 48", "1"},
    {"Cmd49", "Buffer Clear 49", "1"},
    {"Cmd4A", "Internal Image Data 2 expand 4A", "1"},
    {"Cmd4B", "BMP file register command to Internal Image Data 2 4B", "1"},
    {"Cmd4D", "External Image data Expand(BlockMode) 4D", "1"},
    {"Cmd4E", "Barcode data setting command 4E", "1"},
    {"Cmd50", "Card Discharge 50", "1"},
    {"Cmd51", "Card Rear Side Idle 51", "1"},
    {"cmd52", "Cleaning 52", "1"},
    {"Cmd53", "Card Front Side Idle 53", "1"},
    {"Cmd54", "Card Insertion Wait Status Cancel 54", "10"},
    {"Cmd55", "Card Removal Wait Status Cancel 55", "10"},
    {"Cmd58", "ROM Version Request 58", "1"},
    {"Cmd59", "Status Request 59", "1"},
    {"Cmd5A", "LED, Buzzer Control 5A", "1"},
    {"Cmd5B", "Cleaning button Enable/Disable 5B", "1"},
    {"Cmd5F", "Reset 5F", "20"},
    {"Cmd91", "Various Setting 91", "1"},
    {"Cmd95", "Card Transport Count Request 95", "1"},
    {"Cmd96", "Print Count Request 96", "1"},
};

TEST(CommandTable, HoldsItsButtonsInOrderWithTheirCaptionsAndTags) {
  std::vector<Button> buttons;
  for (const ConsoleCommand& command : Commands())
    buttons.push_back(
        {std::string(command.button), std::string(command.caption), std::string(command.tag)});
  EXPECT_THAT(buttons, testing::ElementsAreArray(kButtons));
}

class CommandButtons : public CommandFixture {
 protected:
  // Gives every question of the command an answer that sends something.
  void AnswerFor(const std::string& code) {
    const std::string asked = " " + code + " ";
    const auto is_one_of = [&asked](const std::string& codes) {
      return codes.find(asked) != std::string::npos;
    };
    if (is_one_of(" 31 32 46 47 48 ")) dialogs.Types("1");
    if (is_one_of(" 35 36 37 38 39 3A 3B 3C 3D ")) dialogs.Answers(dialogs::Answer::kNo);
    if (is_one_of(" 50 5B 91 ")) dialogs.Answers(dialogs::Answer::kYes);
    if (is_one_of(" 5B ")) dialogs.Answers(dialogs::Answer::kNo);
    if (is_one_of(" 91 ")) dialogs.Types("11");
    sub_forms.meanwhile = [this] {
      common.ControlDataString = "203120";
      common.DataString = "2,0,47,AB";
    };
  }
};

// STX, the code, the data that the answers give in ASCII, ETX, and the exclusive-or of all bytes
// from the code to ETX. 4Ah sends nothing; the two frames of 4Bh stand with their own tests.
const std::vector<std::pair<std::string, std::string>> kFrames = {
    {"Cmd21", "02210322"},
    {"Cmd22", "02220321"},
    {"Cmd23", "02230320"},
    {"Cmd25", "02250326"},
    {"Cmd26", "02260325"},
    {"Cmd27", "02270324"},
    {"Cmd29", "0229032A"},
    {"Cmd2A", "022A0329"},
    {"Cmd2B", "022B0328"},
    {"Cmd31", "0231310303"},
    {"Cmd32", "0232310300"},
    {"Cmd35", "0235547261636B2031204461746120202020446174653A2032302E31312E32360350"},
    {"Cmd36",
     "02364F7276656C2D4E6F7220546563686E6F6C6F6779204C74642E2054656C2035353530"
     "203031303020363431313233313233313233313233414141414141414141410337"},
    {"Cmd37", "0237547261636B203320446174612020202054696D653A2032313A30353A30330352"},
    {"Cmd38", "0238547261636B2031204461746120202020446174653A2032302E31312E3236035D"},
    {"Cmd39",
     "02394F7276656C2D4E6F7220546563686E6F6C6F6779204C74642E2054656C2035353530"
     "203031303020363431313233313233313233313233414141414141414141410338"},
    {"Cmd3A", "023A547261636B203320446174612020202054696D653A2032313A30353A3033035F"},
    {"Cmd3B",
     "023B545241434B3120444154412020202020444154453A2032302E31312E323620202020"
     "2054494D453A2032313A30353A30330374"},
    {"Cmd3C",
     "023C31323334353637383930313233343536373839303132333435363738393031323334"
     "353637030E"},
    {"Cmd3D",
     "023D32323232323232323232323232323232323232323232323232323232323232323232"
     "323232323232323232323232323232323232323232323232323232323232323232323232"
     "32323232323232323232323232323232323232323232323232323232323232323232033E"},
    {"Cmd40", "02400343"},
    {"Cmd41", "0241322C302C34372C4142036C"},
    {"Cmd42", "0242322C302C34372C4142036F"},
    {"Cmd43", "0243322C302C34372C4142036E"},
    {"Cmd44", "0244322C302C34372C41420369"},
    {"Cmd45", "0245322C302C34372C41420368"},
    {"Cmd46", "0246310374"},
    {"Cmd47", "0247310375"},
    {"Cmd48", "024831037A"},
    {"Cmd49", "0249034A"},
    {"Cmd4D", "024D322C302C34372C41420360"},
    {"Cmd4E", "024E322C302C34372C41420363"},
    {"Cmd50", "0250310362"},
    {"Cmd51", "02510352"},
    {"cmd52", "02520351"},
    {"Cmd53", "02530350"},
    {"Cmd54", "02540357"},
    {"Cmd55", "02550356"},
    {"Cmd58", "0258035B"},
    {"Cmd59", "0259035A"},
    {"Cmd5A", "025A2031200368"},
    {"Cmd5B", "025B300368"},
    {"Cmd5F", "025F035C"},
    {"Cmd91", "029131310392"},
    {"Cmd95", "02950396"},
    {"Cmd96", "02960395"},
};

TEST_F(CommandButtons, EachSendsItsFrame) {
  auto expected = kFrames.begin();
  for (const Button& button : kButtons) {
    const std::string code = button.name.substr(3);
    if (code == "4A" || code == "4B") continue;
    ASSERT_NE(expected, kFrames.end()) << button.name;
    const std::size_t sent_before = Frames().size();
    AnswerFor(code);
    Press(button.name);
    ASSERT_EQ(Frames().size(), sent_before + 1) << button.name;
    EXPECT_EQ(button.name, expected->first);
    EXPECT_EQ(Frames().back(), expected->second) << button.name;
    ++expected;
  }
  EXPECT_EQ(expected, kFrames.end());
}

TEST_F(CommandButtons, EachOnAClosedPortShowsItsFrameAndGivesTheButtonsBack) {
  port.Close();
  for (const Button& button : kButtons) {
    const std::string code = button.name.substr(3);
    if (code == "4A") continue;
    AnswerFor(code);
    EXPECT_THROW(Press(button.name), link::PortError) << button.name;
    EXPECT_EQ(display.Text(link::Field::TxtCommand), code);
    EXPECT_THAT(display.Text(link::Field::TxtSyntax), testing::StartsWith("02 " + code + " "));
    EXPECT_EQ(Panel1(), "") << button.name;
    EXPECT_EQ(Panel2(), "") << button.name;
    EXPECT_TRUE(display.ButtonsEnabled()) << button.name;
  }
  EXPECT_THAT(Frames(), testing::IsEmpty());
}

TEST_F(CommandButtons, EachLetsAnAbandonedExchangeThroughAndDoesNothingMore) {
  for (const Button& button : kButtons) {
    const std::string code = button.name.substr(3);
    if (code == "4A") continue;
    const std::size_t sent_before = Frames().size();
    AnswerFor(code);
    printer.Waits([this] { transaction.Abandon(); });
    EXPECT_THROW(Press(button.name), link::ExchangeEnded) << button.name;
    EXPECT_EQ(Frames().size(), sent_before + 1) << button.name;
  }
}

}  // namespace
}  // namespace vantrel::console
