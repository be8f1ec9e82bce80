// SPDX-License-Identifier: MIT

// 51h to 5Fh and 91h to 96h: moving the card, cleaning, asking and setting the printer.

#include "tests/console/command_fixture.h"

namespace vantrel::console {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CardHandling : public CommandFixture, public testing::WithParamInterface<FixedCommand> {};

TEST_P(CardHandling, SendsItsFrameAndShowsTheReply) { ExpectFixedCommand(GetParam()); }

constexpr const char* kCancel = "Press '54h' to cancel this command/card waiting status...";
constexpr const char* kNormal = "20h: Normal Status";

// Block checks are the exclusive-or of command and ETX, in a reply of command, status, data and
// ETX. 95h carries its own written in, 96h has it computed.
INSTANTIATE_TEST_SUITE_P(
    Moves, CardHandling,
    testing::Values(
        // The send line names the block check 50h, the frame carries 52h; that is meant.
        FixedCommand{"Cmd51", "         Send: STX 51h ETX 50h\r\nResponse: STX 51h Status ETX BCC",
                     "", kCancel, "02510352", 5000, "060251200372", kNormal},
        FixedCommand{"cmd52", "         Send: STX 52h ETX 51h\r\nResponse: STX 52h Status ETX BCC",
                     "Please add the cleaning fluid on the cleaning card...",
                     "and then insert it into the printer", "02520351", 60000, "060252200371",
                     kNormal},
        FixedCommand{"Cmd53", "         Send: STX 53h ETX 50h\r\nResponse: STX 53h Status ETX BCC",
                     "", kCancel, "02530350", 5000, "060253200370", kNormal},
        FixedCommand{"Cmd54", "         Send: STX 54h ETX 57h\r\nResponse: STX 54h Status ETX BCC",
                     "", "", "02540357", 5000, "060254200377", kNormal},
        FixedCommand{"Cmd55", "         Send: STX 55h ETX 56h\r\nResponse: STX 55h Status ETX BCC",
                     "", "", "02550356", 5000, "060255200376", kNormal},
        FixedCommand{"Cmd5F", "         Send: STX 5Fh ETX 5Ch\r\nResponse: STX 5Fh Status ETX BCC",
                     "Reset the printer now...", "", "025F035C", 5000, "06025F20037C", kNormal}),
    NameBy<&FixedCommand::button>());

INSTANTIATE_TEST_SUITE_P(
    Requests, CardHandling,
    testing::Values(FixedCommand{"Cmd58",
                                 "         Send: STX 58h ETX 5Bh\r\n"
                                 "Response: STX 58h Status ROM information ETX BCC",
                                 "", "", "0258035B", 5000, "06025820514C2D382056312E3031031B",
                                 "ROM Version: QL-8 V1.01"},
                    FixedCommand{"Cmd59",
                                 "         Send: STX 59h ETX 5Ah\r\n"
                                 "Response: STX 59h Status Sensor status data string ETX BCC",
                                 "", "", "0259035A", 5000, "06025920303130034B",
                                 "Status Request: 010"},
                    FixedCommand{"Cmd95",
                                 "         Send: STX 95h ETX BCC\r\n"
                                 "Response: STX 95h Status Transport count data ETX BCC",
                                 "", "", "02950396", 5000, "0602952030303031323303B6",
                                 "Transport Count: 000123"},
                    FixedCommand{"Cmd96",
                                 "         Send: STX 96h ETX BCC\r\n"
                                 "Response: STX 96h Status Print Count data ETX BCC",
                                 "", "", "02960395", 5000, "0602962030303030343503B4",
                                 "Print Count: 000045"}),
    NameBy<&FixedCommand::button>());

constexpr const char* kHints5B =
    "         Send: STX 5Bh Enable/Disable parameter ETX BCC\r\n"
    "Response: STX 5Bh Status ETX BCC";
constexpr const char* kHints91 =
    "         Send: STX 91h Setting type Setting parameter ETX BCC\r\n"
    "Response: STX 91h Status ETX BCC";
constexpr const char* kCleaning =
    "The cleaning button will take effect after receiving this coammnd";
constexpr const char* kSwitchOff = "and switch off & on the power button";

class Settings : public CommandFixture {
 protected:
  void ExpectUntouched() const {
    ExpectNothingSent();
    EXPECT_THAT(log.Lines(), ElementsAre("box: Warning Message"));
    EXPECT_EQ(Hints(), "old hints");
    EXPECT_EQ(Panel1(), "old panel 1");
    EXPECT_EQ(Panel2(), "old panel 2");
  }
  // Answers the warning of 91h with Yes, types this and presses the button.
  void Set91(const std::string& typed) {
    dialogs.Answers(dialogs::Answer::kYes);
    dialogs.Types(typed);
    Press("Cmd91");
  }
};

TEST_F(Settings, Cmd5BNoAtTheWarningLeavesEverythingUntouched) {
  dialogs.Answers(dialogs::Answer::kNo, [this] { EXPECT_EQ(Hints(), "old hints"); });
  Press("Cmd5B");
  EXPECT_EQ(dialogs.Last().prompt,
            "The volatile memory writing life is approximately one million times.\r\n"
            "The expected life will be reached by frequent use of 5Bh command which can cause "
            "problems in the operation of the rewrite card R/W.\r\n"
            "Will you continuously proceed this command?");
  EXPECT_EQ(dialogs.Last().buttons, dialogs::Buttons::kYesNo);
  EXPECT_EQ(dialogs.Last().icon, dialogs::Icon::kNone);
  ExpectUntouched();
}

TEST_F(Settings, Cmd5BYesThenYesSends31hAndShowsResetPrinter) {
  dialogs.Answers(dialogs::Answer::kYes);
  dialogs.Answers(dialogs::Answer::kYes);
  dialogs.Answers(dialogs::Answer::kOk, [this] {
    // Shown after the exchange.
    EXPECT_THAT(Frames(), ElementsAre("025B310369"));
    EXPECT_EQ(Response(), "02 5B 20 03 78 ");
    EXPECT_EQ(Panel1(), "");
  });
  Press("Cmd5B");
  EXPECT_THAT(BeforeExchange(),
              ElementsAre("box: Warning Message", std::string("LblHints = ") + kHints5B,
                          std::string("Panel1 = ") + kCleaning,
                          std::string("Panel2 = ") + kSwitchOff, "box: Please select"));
  ASSERT_EQ(dialogs.All().size(), 3U);
  const support::ScriptedDialogs::Shown& choice = dialogs.All()[1];
  EXPECT_EQ(choice.prompt,
            "Press 'Yes' to enable the cleaning button OR\r\n"
            "Press 'NO' to disable the cleaning button");
  EXPECT_EQ(choice.buttons, dialogs::Buttons::kYesNo);
  EXPECT_EQ(choice.icon, dialogs::Icon::kNone);
  EXPECT_THAT(printer.Exchanges(),
              ElementsAre(Exchange{"025B310369", 5000, kHints5B, kCleaning, kSwitchOff, false}));
  EXPECT_EQ(Hints(), std::string(kHints5B) + "\r\n20h: Normal Status");
  EXPECT_EQ(dialogs.Last().title, "Reset Printer");
  EXPECT_EQ(dialogs.Last().prompt,
            "Please turn off the power and restart the printer to initialize the new setting!");
  EXPECT_EQ(dialogs.Last().buttons, dialogs::Buttons::kOk);
  EXPECT_EQ(dialogs.Last().icon, dialogs::Icon::kExclamation);
}

TEST_F(Settings, Cmd5BYesThenNoSends30hAndShowsNothingMore) {
  dialogs.Answers(dialogs::Answer::kYes);
  dialogs.Answers(dialogs::Answer::kNo);
  Press("Cmd5B");
  EXPECT_THAT(printer.Exchanges(),
              ElementsAre(Exchange{"025B300368", 5000, kHints5B, kCleaning, kSwitchOff, false}));
  EXPECT_EQ(dialogs.Last().title, "Please select");
}

TEST_F(Settings, Cmd5BRemindsOfTheRestartWhateverTheReplyWas) {
  dialogs.Answers(dialogs::Answer::kYes);
  dialogs.Answers(dialogs::Answer::kYes);
  dialogs.Answers(dialogs::Answer::kOk);
  printer.StaysSilent();
  Press("Cmd5B");
  EXPECT_EQ(Response(), "Time up! ");
  EXPECT_EQ(dialogs.Last().title, "Reset Printer");
}

TEST_F(Settings, Cmd5BOnAPortThatFailsShowsNoReminder) {
  dialogs.Answers(dialogs::Answer::kYes);
  dialogs.Answers(dialogs::Answer::kYes);
  port.FailNextWrite();
  EXPECT_THROW(Press("Cmd5B"), link::PortError);
  EXPECT_EQ(dialogs.Last().title, "Please select");
}

TEST_F(Settings, Cmd91NoAtTheWarningLeavesEverythingUntouched) {
  dialogs.Answers(dialogs::Answer::kNo);
  Press("Cmd91");
  EXPECT_EQ(dialogs.Last().prompt,
            "The volatile memory writing life is approximately one million times.\r\n"
            "The expected life will be reached by frequent use of 91h command which can cause "
            "problems in the operation of the rewrite card R/W.\r\n"
            "Will you continuously proceed this command?");
  EXPECT_EQ(dialogs.Last().buttons, dialogs::Buttons::kYesNo);
  ExpectUntouched();
}

TEST_F(Settings, Cmd91WithReply21SendsItAsTyped) {
  Set91("21");
  // The hint about the cleaning button is 5Bh's; that is meant.
  EXPECT_THAT(BeforeExchange(),
              ElementsAre("box: Warning Message", std::string("LblHints = ") + kHints91,
                          std::string("Panel1 = ") + kCleaning, "Panel2 = ", "input: 91h Command"));
  EXPECT_EQ(dialogs.Last().prompt, "Input the paremeter");
  EXPECT_EQ(dialogs.Last().default_text, "");
  EXPECT_THAT(printer.Exchanges(),
              ElementsAre(Exchange{"029132310391", 5000, kHints91, kCleaning, "", false}));
  EXPECT_EQ(Hints(), std::string(kHints91) + "\r\n20h: Normal Status");
  EXPECT_EQ(Panel1(), "");
}

TEST_F(Settings, Cmd91WithTheNumber2SendsNothing) {
  for (const char* typed : {"2", " 2", "+2", "2.0", " 2 ", "2e0"}) {
    Set91(typed);
    EXPECT_THAT(Frames(), IsEmpty()) << typed;
    EXPECT_EQ(Hints(), kHints91) << typed;
    EXPECT_EQ(Panel1(), kCleaning) << typed;
    EXPECT_EQ(Panel2(), "") << typed;
  }
  ExpectNothingSent();
}

TEST_F(Settings, Cmd91SendsAnyOtherTextAsTyped) {
  Set91("2x");
  Set91("");
  Set91("2 1");
  Set91("-2");
  Set91("\u00E9");
  EXPECT_THAT(Frames(), ElementsAre("0291327803D8", "02910392", "029132203103B1", "02912D32038D",
                                    "0291E9037B"));
}

class CardHandlingEdges : public CommandFixture {};

TEST_F(CardHandlingEdges, Cmd52WaitsUpTo60000) {
  printer.StaysSilent();
  Press("cmd52");
  EXPECT_EQ(Response(), "Time up! ");
  EXPECT_GE(clock.Now(), 60000);
  EXPECT_LE(clock.Now(), 60010);
}

TEST_F(CardHandlingEdges, Cmd95EndsIn96hAndCmd96In95h) {
  Press("Cmd95");
  Press("Cmd96");
  EXPECT_THAT(Frames(), ElementsAre("02950396", "02960395"));
}

}  // namespace
}  // namespace vantrel::console
