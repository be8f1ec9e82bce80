// The 48 buttons: names, captions, tags, order, and which command each one sends.

#include "console/command_table.h"

#include "tests/console/command_fixture.h"

#include <stdexcept>

namespace vantrel {
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

TEST(CommandTable, Holds48ButtonsInOrderWithTheirCaptionsAndTags) {
  std::vector<Button> buttons;
  for (const ConsoleCommand& command : Commands())
    buttons.push_back(
        {std::string(command.button), std::string(command.caption), std::string(command.tag)});
  EXPECT_EQ(buttons.size(), 48U);
  EXPECT_THAT(buttons, testing::ElementsAreArray(kButtons));
}

TEST(CommandTable, FindsACommandByItsCode) {
  EXPECT_EQ(CommandOf("52").button, "cmd52");
  EXPECT_EQ(CommandOf("4E").button, "Cmd4E");
}

TEST(CommandTable, HasNoCommandOfAnotherCode) {
  EXPECT_THROW(CommandOf("24"), std::out_of_range);
  EXPECT_THROW(CommandOf("5a"), std::out_of_range);
  EXPECT_THROW(CommandOf(""), std::out_of_range);
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
    if (is_one_of(" 35 36 37 38 39 3A 3B 3C 3D ")) dialogs.Answers(Answer::kNo);
    if (is_one_of(" 50 5B 91 ")) dialogs.Answers(Answer::kYes);
    if (is_one_of(" 5B ")) dialogs.Answers(Answer::kNo);
    if (is_one_of(" 91 ")) dialogs.Types("11");
    sub_forms.meanwhile = [this] { common.ControlDataString = "203120"; };
  }
};

TEST_F(CommandButtons, EachSendsTheCommandThatItsNameEndsIn) {
  for (const Button& button : kButtons) {
    const std::string code = button.name.substr(3);
    const std::size_t sent_before = Frames().size();
    AnswerFor(code);
    Press(button.name);
    // 4Ah sends nothing, 4Bh two frames.
    const std::size_t expected = code == "4A" ? 0 : code == "4B" ? 2 : 1;
    ASSERT_EQ(Frames().size(), sent_before + expected) << button.name;
    for (std::size_t i = sent_before; i < Frames().size(); ++i)
      EXPECT_EQ(Frames()[i].substr(0, 4), "02" + code);
  }
}

TEST_F(CommandButtons, EachOnAClosedPortShowsItsFrameAndGivesTheButtonsBack) {
  for (const Button& button : kButtons) {
    const std::string code = button.name.substr(3);
    if (code == "4A") continue;
    AnswerFor(code);
    port.Fails();
    EXPECT_THROW(Press(button.name), PortError) << button.name;
    EXPECT_EQ(display.Text(Field::TxtCommand), code);
    EXPECT_THAT(display.Text(Field::TxtSyntax), testing::StartsWith("02 " + code + " "));
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
    port.Waits([this] { transaction.Abandon(); });
    EXPECT_THROW(Press(button.name), ExchangeEnded) << button.name;
    EXPECT_EQ(Frames().size(), sent_before + 1) << button.name;
  }
}

}  // namespace
}  // namespace vantrel
