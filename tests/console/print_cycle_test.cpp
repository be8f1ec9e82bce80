// SPDX-License-Identifier: MIT

// 40h, 46h to 4Bh and 50h: clearing buffers, the erase and print cycle, the sample image.

#include "tests/console/command_fixture.h"

namespace vantrel::console {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

class BufferClears : public CommandFixture, public testing::WithParamInterface<FixedCommand> {};

TEST_P(BufferClears, SendTheirFixedFrames) { ExpectFixedCommand(GetParam()); }

// The block checks written in equal the computed ones: 40h ^ 03h = 43h, 49h ^ 03h = 4Ah.
INSTANTIATE_TEST_SUITE_P(
    All, BufferClears,
    testing::Values(
        FixedCommand{"Cmd40", "         Send: STX 40h ETX 43h\r\nResponse: STX 40h Status ETX BCC",
                     "Clear print expansion buffer set by 41h, 42h & 4Eh", "", "02400343", 5000,
                     "060240200363", "20h: Normal Status"},
        FixedCommand{"Cmd49", "         Send: STX 49h ETX 4Ah\r\nResponse: STX 49h Status ETX BCC",
                     "Clear image register buffer and print expansion buffer",
                     "Command 40h + clear image data set by 43h & 4Dh", "0249034A", 5000,
                     "06024920036A", "20h: Normal Status"}),
    NameBy<&FixedCommand::button>());

struct Discharge {
  const char* button;
  const char* hints;
  const char* panel1;
  const char* frame_by_0;
  const char* frame_by_1;
  const char* frame_by_2;

  friend void PrintTo(const Discharge& discharge, std::ostream* stream) {
    *stream << discharge.button;
  }
};

class Discharges : public CommandFixture, public testing::WithParamInterface<Discharge> {};

constexpr const char* kCancel = "Press '54h' to cancel this command/card waiting status...";
// The two sentences of a choice have nothing between them, and 47h and 48h speak of erase + print
// as well; both are meant.
constexpr const char* kMethodPrompt =
    "'0': Card after erase + print is stopped at front idling position and held.Card becomes a "
    "process target card.\r\n\r\n"
    "'1': Card after erase + print is discharged.Cards waits to be pulled out and is not a process "
    "target card.\r\n\r\n"
    "'2': Card after erase + print is discharged to back side.Cannot be used with case accessory "
    "parts. Reject response is issued.";

TEST_P(Discharges, AskForTheMethodAndSendIt) {
  const std::string hints = GetParam().hints;
  const std::string panel1 = GetParam().panel1;
  dialogs.Types("2");
  Press(GetParam().button);
  EXPECT_THAT(BeforeExchange(),
              ElementsAre("LblHints = " + hints, "Panel1 = " + panel1,
                          std::string("Panel2 = ") + kCancel, "input: Discharge method"));
  EXPECT_EQ(dialogs.Last().prompt, kMethodPrompt);
  EXPECT_EQ(dialogs.Last().default_text, "1");
  EXPECT_THAT(printer.Exchanges(),
              ElementsAre(Exchange{GetParam().frame_by_2, 30000, hints, panel1, kCancel, false}));
  EXPECT_EQ(Hints(), hints + "\r\n20h: Normal Status");
  EXPECT_EQ(Panel1(), "");
  EXPECT_EQ(Panel2(), "");
}

TEST_P(Discharges, SendTheDefaultLeftAsItIs) {
  dialogs.Types("1");
  Press(GetParam().button);
  EXPECT_THAT(Frames(), ElementsAre(GetParam().frame_by_1));
}

TEST_P(Discharges, SendMethod0AfterCancel) {
  dialogs.CancelsInput();
  Press(GetParam().button);
  EXPECT_THAT(Frames(), ElementsAre(GetParam().frame_by_0));
}

TEST_P(Discharges, AskAgainAfter3AndMinus1) {
  dialogs.Types("3");
  dialogs.Types("-1");
  dialogs.Types("0");
  Press(GetParam().button);
  EXPECT_THAT(PromptsOf("Discharge method"),
              ElementsAre(kMethodPrompt, kMethodPrompt, kMethodPrompt));
  EXPECT_EQ(dialogs.Last().default_text, "1");
  EXPECT_THAT(Frames(), ElementsAre(GetParam().frame_by_0));
}

// 46h ^ 32h ^ 03h = 77h, and so on.
INSTANTIATE_TEST_SUITE_P(
    All, Discharges,
    testing::Values(Discharge{"Cmd46",
                              "         Send: STX 46h Discharge method specification ETX BCC\r\n"
                              "Response: STX 46h Status ETX BCC",
                              "Erase + Print -> Card Discharge", "0246300375", "0246310374",
                              "0246320377"},
                    Discharge{"Cmd47",
                              "         Send: STX 47h Discharge method specification ETX BCC\r\n"
                              "Response: STX 47h Status ETX BCC",
                              "Print -> Card Discharge", "0247300374", "0247310375", "0247320376"},
                    Discharge{"Cmd48",
                              "         Send: STX 48h Discharge method specification ETX BCC\r\n"
                              "Response: STX 48h Status ETX BCC",
                              "Erase -> discharge command", "024830037B", "024831037A",
                              "0248320379"}),
    NameBy<&Discharge::button>());

class PrintCycleEdges : public CommandFixture {
 protected:
  void ExpectBothPanels(const std::string& text) const {
    EXPECT_EQ(Panel1(), text);
    EXPECT_EQ(Panel2(), text);
  }
};

constexpr const char* kHints50 =
    "         Send: STX 50h 'Discharge method specification' ETX BCC\r\n"
    "Response: STX 50h Status ETX BCC";

TEST_F(PrintCycleEdges, Cmd50YesSends31hAndNoSends30h) {
  dialogs.Answers(dialogs::Answer::kYes, [this] {
    EXPECT_EQ(Hints(), kHints50);
    ExpectBothPanels("");
  });
  Press("Cmd50");
  EXPECT_THAT(BeforeExchange(), ElementsAre(std::string("LblHints = ") + kHints50, "Panel1 = ",
                                            "Panel2 = ", "box: Card Discharge Method"));
  EXPECT_EQ(dialogs.Last().prompt,
            "Press 'Y' to discharge the card completely => Non-Target Card\r\n"
            "Press 'N' to discharge the card at front side => Target Card\r\n"
            "Press 'Cancel' to cancel this command");
  EXPECT_EQ(dialogs.Last().buttons, dialogs::Buttons::kYesNoCancel);
  EXPECT_EQ(dialogs.Last().icon, dialogs::Icon::kNone);
  dialogs.Answers(dialogs::Answer::kNo);
  Press("Cmd50");
  EXPECT_THAT(printer.Exchanges(),
              ElementsAre(Exchange{"0250310362", 5000, kHints50, "", "", false},
                          Exchange{"0250300363", 5000, kHints50, "", "", false}));
  EXPECT_EQ(Hints(), std::string(kHints50) + "\r\n20h: Normal Status");
}

TEST_F(PrintCycleEdges, Cmd50CancelSendsNothingAndLeavesBothPanelsEmpty) {
  dialogs.Answers(dialogs::Answer::kCancel);
  Press("Cmd50");
  ExpectNothingSent();
  EXPECT_EQ(Hints(), kHints50);
  ExpectBothPanels("");
}

TEST_F(PrintCycleEdges, Cmd4ASendsNothingAndKeepsThePanels) {
  Press("Cmd4A");
  EXPECT_THAT(log.Lines(),
              ElementsAre("LblHints = STX 4Ah Data arrangement specification, X Coordinate, Y "
                          "Coordinate, Expansion image number, Expansion starting dot, Expanion "
                          "ending dot ETX BCC"));
  EXPECT_EQ(Panel1(), "old panel 1");
  EXPECT_EQ(Panel2(), "old panel 2");
}

TEST_F(PrintCycleEdges, Cmd46WithReply2Waits30000) {
  dialogs.Types("2");
  printer.StaysSilent();
  Press("Cmd46");
  EXPECT_THAT(Frames(), ElementsAre("0246320377"));
  EXPECT_EQ(Response(), "Time up! ");
  EXPECT_GE(clock.Now(), 30000);
  EXPECT_LE(clock.Now(), 30010);
}

TEST_F(PrintCycleEdges, Cmd46OnAPortThatFailsShowsNothingMore) {
  dialogs.Types("2");
  port.FailNextWrite();
  EXPECT_THROW(Press("Cmd46"), link::PortError);
  EXPECT_TRUE(display.ButtonsEnabled());
  ExpectBothPanels("");
}

class SampleImage : public CommandFixture {
 protected:
  const std::string hints =
      "         Send: STX 4Bh Register image specification number or continuation mark(+), Text of "
      "BMP data ETX BCC\r\nResponse: STX 4Bh Status ETX BCC";
  // STX, 4Bh, "0," or "+,", 320 characters that spell 160 bytes of the file, ETX and the block
  // check: the ASCII codes of the characters, put into hex text by another program.
  const std::string first_frame =
      "024B302C343234443145314430303030303030303030303033453030303030303238303030303030"
      "43423030303030303038303130303030303130303031303030303030303030304530314330303030"
      "43343045303030304334304530303030303030303030303030303030303030304646464646463030"
      "30303030303030303030303030303030303030303030303030303030303746464646464630303030"
      "30303030303030303030303030303030303030303030303030303030303030303030303030303030"
      "30303030314646464646464643303030303030303030303030303030303030303030303030303030"
      "30303030303030303030303030303030303030313746464646464646464645303030303030303030"
      "30303030303030303030303030303030303030303030303030303030303030303030303146463830"
      "46464646035F";
  const std::string second_frame =
      "024B2B2C464646433030303030303030303030303030303030303030303030303030303030303030"
      "30303030303030303046464646433130383031464646464643303030303030303030303030303030"
      "30303030303030303030303030303030303030303030303746464646463834343234323046464646"
      "46463830303030303030303030303030303030303030303030303030303030303030303030314646"
      "46464646453230303031303030313746464643303030303030303030303030303030303030303030"
      "30303030303030303030303146464646464646463830313234343132313030374646464330303030"
      "30303030303030303030303030303030303030303030303030303346464646464641383030343830"
      "30303430383439304646464530303030303030303030303030303030303030303030303030303030"
      "303346460348";
};

TEST_F(SampleImage, Cmd4BSendsExactlyTwoFramesOf322Characters) {
  Press("Cmd4B");
  EXPECT_THAT(Frames(), ElementsAre(first_frame, second_frame));
  // 644 hex digits of data between STX, 4Bh and ETX, block check.
  EXPECT_THAT(Frames(), Each(SizeIs(4 + 644 + 4)));
  EXPECT_THAT(Frames()[1], testing::StartsWith("024B2B2C"));
}

TEST_F(SampleImage, Cmd4BWaitsForItsSecondFrameWithBothPanelsEmpty) {
  // 4Bh ^ 20h ^ 03h = 68h and 4Bh ^ 4Ch ^ 03h = 04h.
  printer.Replies("06024B200368");
  printer.Replies("06024B4C0304");
  Press("Cmd4B");
  EXPECT_THAT(BeforeExchange(),
              ElementsAre("LblHints = " + hints,
                          "Panel1 = BMP file registering command to internal image data 2",
                          "Panel2 = Maximum 16 images: Image No = 0 -> F  "));
  EXPECT_THAT(
      printer.Exchanges(),
      ElementsAre(Exchange{first_frame, 5000, hints,
                           "BMP file registering command to internal image data 2",
                           "Maximum 16 images: Image No = 0 -> F  ", false},
                  Exchange{second_frame, 5000, hints + "\r\n20h: Normal Status", "", "", false}));
  // Both replies end up under the hints.
  EXPECT_EQ(Hints(), hints +
                         "\r\n20h: Normal Status"
                         "\r\n4Ch: Non-Compatible BMP file data");
  EXPECT_EQ(Response(), "02 4B 4C 03 04 ");
}

TEST_F(SampleImage, Cmd4BSendsItsSecondFrameWhateverTheFirstReplyWas) {
  printer.Replies("10");
  Press("Cmd4B");
  printer.StaysSilent();
  Press("Cmd4B");
  EXPECT_THAT(Frames(), ElementsAre(first_frame, second_frame, first_frame, second_frame));
}

TEST_F(SampleImage, Cmd4BSendsNoSecondFrameWhenThePortFailsInTheFirst) {
  port.FailNextWrite();
  EXPECT_THROW(Press("Cmd4B"), link::PortError);
  EXPECT_THAT(Frames(), testing::IsEmpty());
  EXPECT_EQ(Hints(), hints);
}

TEST_F(SampleImage, Cmd4BSendsNoSecondFrameWhenThePrinterVanishesDuringTheFirst) {
  printer.Waits([this] { transaction.OnLost(link::DeviceGone("/dev/ttyTEST", "")); });
  EXPECT_THROW(Press("Cmd4B"), link::PortError);
  EXPECT_THAT(Frames(), ElementsAre(first_frame));
  EXPECT_TRUE(display.ButtonsEnabled());
}

}  // namespace
}  // namespace vantrel::console
