// SPDX-License-Identifier: MIT

// 31h and 32h: writing the preset tracks onto the card.

#include "tests/console/command_fixture.h"

namespace vantrel::console {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kTitle = "Write Track specifying parameters";
constexpr const char* kPreset = "Please preset the data by 35h - 3Dh before excuting this command";
constexpr const char* kCancel = "Press '54h' to cancel this command/card waiting status...";
constexpr const char* kHints31 =
    "Send: STX 31h Write track specification ETX BCC\r\nResponse: STX 31h Status ETX BCC";
constexpr const char* kHints32 =
    "Send: STX 32h Write track specification ETX BCC\r\nResponse: STX 32h Status ETX BCC";
constexpr const char* kPrompt =
    "QL-7 Series: support reading & writing all 3\r\n"
    "QL-8 Series: support reading all 3 track & writing only track 3\r\n"
    "\r\n"
    "Please input the Number of your choice:-\r\n"
    "Press '1': Enable magnetic writing to track 1\r\n"
    "Press '2': Enable magnetic writing to track 2\r\n"
    "Press '3': Enable magnetic writing to track 1 and 2\r\n"
    "Press '4': Enable magnetic writing to track 3\r\n"
    "Press '5': Enable magnetic writing to track 1 and 3\r\n"
    "Press '6': Enable magnetic writing to track 2 and 3\r\n"
    "Press '7': Enable magnetic writing to track 1, 2 and 3\r\n";

class MagneticWrite : public CommandFixture {};

TEST_F(MagneticWrite, Cmd31WithoutNineLeadingBlanksBecauseThatIsMeant) {
  dialogs.Types("2");
  Press("Cmd31");
  EXPECT_THAT(BeforeExchange(),
              ElementsAre(std::string("LblHints = ") + kHints31, std::string("Panel1 = ") + kPreset,
                          std::string("Panel2 = ") + kCancel, std::string("input: ") + kTitle));
  EXPECT_THAT(printer.Exchanges(),
              ElementsAre(Exchange{"0231320300", 20000, kHints31, kPreset, kCancel, false}));
  EXPECT_EQ(Hints(), std::string(kHints31) + "\r\n20h: Normal Status");
  EXPECT_EQ(Panel1(), "");
  EXPECT_EQ(Panel2(), "");
}

TEST_F(MagneticWrite, Cmd32SetsItsPanelsBeforeTheHintsBecauseThatIsMeant) {
  dialogs.Types("2");
  Press("Cmd32");
  EXPECT_THAT(BeforeExchange(), ElementsAre(std::string("Panel1 = ") + kPreset,
                                            "Panel2 = ", std::string("LblHints = ") + kHints32,
                                            std::string("input: ") + kTitle));
  EXPECT_THAT(printer.Exchanges(),
              ElementsAre(Exchange{"0232320303", 20000, kHints32, kPreset, "", false}));
  EXPECT_EQ(Hints(), std::string(kHints32) + "\r\n20h: Normal Status");
  EXPECT_EQ(Panel1(), "");
  EXPECT_EQ(Panel2(), "");
}

TEST_F(MagneticWrite, Cmd32NeverShowsTheCancelHintAndLeavesPanel2Empty) {
  dialogs.Types("7", [this] { EXPECT_EQ(Panel2(), ""); });
  Press("Cmd32");
  EXPECT_THAT(log.Lines(), Each(Not(HasSubstr("Press '54h'"))));
  EXPECT_EQ(Panel2(), "");
}

TEST_F(MagneticWrite, BothAskWithTheSamePromptAndTheDefault2) {
  dialogs.Types("0");
  Press("Cmd31");
  EXPECT_EQ(dialogs.Last().prompt, kPrompt);
  EXPECT_EQ(dialogs.Last().title, kTitle);
  EXPECT_EQ(dialogs.Last().default_text, "2");
  dialogs.Types("0");
  Press("Cmd32");
  EXPECT_EQ(dialogs.Last().prompt, kPrompt);
  EXPECT_EQ(dialogs.Last().title, kTitle);
  EXPECT_EQ(dialogs.Last().default_text, "2");
}

TEST_F(MagneticWrite, Choice1ShowsWriteDataToTrack1WhileItWaits) {
  dialogs.Types("1");
  Press("Cmd31");
  dialogs.Types("1");
  Press("Cmd32");
  EXPECT_THAT(
      printer.Exchanges(),
      ElementsAre(Exchange{"0231310303", 20000, kHints31, "Write Data to Track 1", kCancel, false},
                  Exchange{"0232310300", 20000, kHints32, "Write Data to Track 1", "", false}));
}

// A choice 1 that was typed with a fraction is a choice 1; 12 sends "1" but is none.
TEST_F(MagneticWrite, OnlyTheChoice1ShowsWriteDataToTrack1) {
  for (const char* reply : {"1.2", "12"}) {
    dialogs.Types(reply);
    Press("Cmd31");
  }
  EXPECT_THAT(
      printer.Exchanges(),
      ElementsAre(Exchange{"0231310303", 20000, kHints31, "Write Data to Track 1", kCancel, false},
                  Exchange{"0231310303", 20000, kHints31, kPreset, kCancel, false}));
}

TEST_F(MagneticWrite, EachChoiceTravelsAsItsDigit) {
  for (const char* reply : {"1", "2", "3", "4", "5", "6", "7"}) {
    dialogs.Types(reply);
    Press("Cmd31");
    dialogs.Types(reply);
    Press("Cmd32");
  }
  EXPECT_THAT(Frames(),
              ElementsAre("0231310303", "0232310300", "0231320300", "0232320303", "0231330301",
                          "0232330302", "0231340306", "0232340305", "0231350307", "0232350304",
                          "0231360304", "0232360307", "0231370305", "0232370306"));
}

TEST_F(MagneticWrite, Cmd31WithMinus3AsksAgainTheSame) {
  dialogs.Types("-3");
  dialogs.CancelsInput();
  Press("Cmd31");
  EXPECT_THAT(PromptsOf(kTitle), ElementsAre(kPrompt, kPrompt));
  EXPECT_EQ(dialogs.Last().default_text, "2");
  ExpectNothingSent();
}

TEST_F(MagneticWrite, Cmd31With0AnEmptyReplyALetterOrCancelSendsNothing) {
  for (const char* reply : {"0", "", "x"}) {
    dialogs.Types(reply);
    Press("Cmd31");
    // The guidance stays as it was set.
    EXPECT_EQ(Hints(), kHints31) << reply;
    EXPECT_EQ(Panel1(), kPreset) << reply;
    EXPECT_EQ(Panel2(), kCancel) << reply;
  }
  ExpectNothingSent();
}

TEST_F(MagneticWrite, Cmd32Cancelled) {
  dialogs.CancelsInput();
  Press("Cmd32");
  EXPECT_EQ(Hints(), kHints32);
  EXPECT_EQ(Panel1(), kPreset);
  EXPECT_EQ(Panel2(), "");
  ExpectNothingSent();
}

TEST_F(MagneticWrite, Cmd31With7Sends37hAndWaits20000) {
  dialogs.Types("7");
  Press("Cmd31");
  EXPECT_THAT(Frames(), ElementsAre("0231370305"));
  EXPECT_EQ(printer.Exchanges().back().time_limit, 20000);
}

TEST_F(MagneticWrite, Cmd31With10Sends31h) {
  dialogs.Types("10");
  Press("Cmd31");
  EXPECT_THAT(Frames(), ElementsAre("0231310303"));
}

}  // namespace
}  // namespace vantrel::console
