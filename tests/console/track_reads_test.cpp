// SPDX-License-Identifier: MIT

// 21h to 2Bh: reading the card's tracks and the track buffers. Every reply carries the status 20h
// and the track data "ABC"; block checks are the exclusive-or of the bytes after STX, by hand
// (21h^20h^41h^42h^43h^03h = 42h).

#include "tests/console/command_fixture.h"

namespace vantrel::console {
namespace {

using testing::ElementsAre;

constexpr const char* kInsertCard = "Please insert your card...";
constexpr const char* kCancel = "Press '54h' to cancel this command/card waiting status...";
constexpr const char* kInside = "Read the magnetic stripe of the card inside the printer...";
constexpr const char* kBuffer = "Waiting for the card or reading the buffer...";

class TrackReads : public CommandFixture, public testing::WithParamInterface<FixedCommand> {};

TEST_P(TrackReads, SendsItsFrameAndShowsTheTrack) { ExpectFixedCommand(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    All, TrackReads,
    testing::Values(
        FixedCommand{"Cmd21",
                     "         Send: STX 21h ETX BCC\r\n"
                     "Response: STX 21h Status 'Read Data String' ETX BCC",
                     kInsertCard, kCancel, "02210322", 20000, "060221204142430342",
                     "First Track: ABC"},
        FixedCommand{"Cmd22",
                     "         Send: STX 22h ETX BCC\r\n"
                     "Response: STX 22h Status 'Read Data String' ETX BCC",
                     kInsertCard, kCancel, "02220321", 20000, "060222204142430341",
                     "Second Track: ABC"},
        // The blank before this response line is meant.
        FixedCommand{"Cmd23",
                     "         Send: STX 23h ETX BCC\r\n"
                     " Response: STX 23h Status 'Read Data String' ETX BCC",
                     kInsertCard, kCancel, "02230320", 20000, "060223204142430340",
                     "Third Track: ABC"},
        FixedCommand{"Cmd25",
                     "         Send: STX 25h ETX BCC\r\n"
                     "Response: STX 25h Status 'Read Data String' ETX BCC",
                     kInside, "", "02250326", 5000, "060225204142430346", "First Track: ABC"},
        FixedCommand{"Cmd26",
                     "         Send: STX 26h ETX BCC\r\n"
                     "Response: STX 26h Status 'Read Data String' ETX BCC",
                     kInside, "", "02260325", 5000, "060226204142430345", "Second Track: ABC"},
        FixedCommand{"Cmd27",
                     "         Send: STX 27h ETX BCC\r\n"
                     "Response: STX 27h Status 'Read Data String' ETX BCC",
                     kInside, "", "02270324", 5000, "060227204142430344", "Third Track: ABC"},
        FixedCommand{"Cmd29",
                     "         Send: STX 29h ETX BCC\r\n"
                     "Response: STX 29h Status 'Read Data String' ETX BCC",
                     kBuffer, "", "0229032A", 20000, "06022920414243034A",
                     "First Track Buffer: ABC"},
        FixedCommand{"Cmd2A",
                     "         Send: STX 2Ah ETX BCC\r\n"
                     "Response: STX 2Ah Status 'Read Data String' ETX BCC",
                     kBuffer, "", "022A0329", 20000, "06022A204142430349",
                     "Second Track Buffer: ABC"},
        FixedCommand{"Cmd2B",
                     "         Send: STX 2Bh ETX BCC\r\n"
                     "Response: STX 2Bh Status 'Read Data String' ETX BCC",
                     kBuffer, "", "022B0328", 20000, "06022B204142430348",
                     "Third Track Buffer: ABC"}),
    NameBy<&FixedCommand::button>());

class TrackReadEdges : public CommandFixture {
 protected:
  const std::string hints21 =
      "         Send: STX 21h ETX BCC\r\n"
      "Response: STX 21h Status 'Read Data String' ETX BCC";
};

TEST_F(TrackReadEdges, Cmd21WithNoCardWithin20SecondsReadsTimeUp) {
  printer.StaysSilent();
  Press("Cmd21");
  EXPECT_EQ(Response(), "Time up! ");
  EXPECT_EQ(Hints(), hints21);
  EXPECT_EQ(Panel1(), "");
  EXPECT_EQ(Panel2(), "");
  // The limit runs out during a pass of the wait, which still ends.
  EXPECT_GE(clock.Now(), 20000);
  EXPECT_LE(clock.Now(), 20010);
}

TEST_F(TrackReadEdges, Cmd21ShowsItsFrameWhileItWaits) {
  printer.Waits([this] {
    EXPECT_EQ(display.Text(link::Field::TxtCommand), "21");
    EXPECT_EQ(display.Text(link::Field::TxtSyntax), "02 21 03 22 ");
    EXPECT_EQ(Response(), "");
    EXPECT_FALSE(display.ButtonsEnabled());
  });
  Press("Cmd21");
}

TEST_F(TrackReadEdges, Cmd25WithStatus22hShowsTheLabelAndTheStatus) {
  // 25h ^ 22h ^ 03h = 04h.
  printer.Replies("060225220304");
  Press("Cmd25");
  EXPECT_EQ(Hints(),
            "         Send: STX 25h ETX BCC\r\n"
            "Response: STX 25h Status 'Read Data String' ETX BCC\r\n"
            "First Track: 22h: No targeted Card");
  EXPECT_EQ(Response(), "02 25 22 03 04 ");
}

TEST_F(TrackReadEdges, Cmd21WithStatus20hAndAbcShowsTheTrack) {
  printer.Replies("060221204142430342");
  Press("Cmd21");
  EXPECT_EQ(Hints(), hints21 + "\r\nFirst Track: ABC");
  EXPECT_EQ(Response(), "02 21 20 41 42 43 03 42 ");
}

TEST_F(TrackReadEdges, Cmd21RejectedShowsNoStatusText) {
  printer.Replies("10");
  Press("Cmd21");
  EXPECT_EQ(Response(), "&H10: Reject Response");
  EXPECT_EQ(Hints(), hints21);
}

TEST_F(TrackReadEdges, Cmd54StaysClickableAndEndsCmd21AfterItsOwnTimeLimit) {
  printer.Waits([this] {
    EXPECT_EQ(Panel1(), "Please insert your card...");
    Press("Cmd54");
    // The nested command is over: its reply stands there, the buttons are back.
    EXPECT_EQ(Response(), "02 54 20 03 77 ");
    EXPECT_TRUE(display.ButtonsEnabled());
    EXPECT_EQ(Panel2(), "");
  });
  // 54h ^ 20h ^ 03h = 77h.
  printer.Replies("060254200377");
  Press("Cmd21");
  EXPECT_THAT(Frames(), ElementsAre("02210322", "02540357"));
  EXPECT_EQ(Response(), "Time up! 02 54 20 03 77 ");
  EXPECT_EQ(Hints(),
            "         Send: STX 54h ETX 57h\r\n"
            "Response: STX 54h Status ETX BCC\r\n"
            "20h: Normal Status");
  // 54h was started at once, and its limit of 5000 ms took the place of 21h's 20000.
  EXPECT_GE(clock.Now(), 5000);
  EXPECT_LE(clock.Now(), 5020);
}

TEST_F(TrackReadEdges, Cmd54RejectedEndsCmd21AtOnce) {
  printer.Waits([this] { Press("Cmd54"); });
  printer.Replies("10");
  Press("Cmd21");
  EXPECT_EQ(Response(), "&H10: Reject Response");
  EXPECT_LE(clock.Now(), 30);
}

TEST_F(TrackReadEdges, Cmd54WithoutAReplyMakesCmd21ReadTimeUpTwice) {
  printer.Waits([this] { Press("Cmd54"); });
  printer.StaysSilent();
  Press("Cmd21");
  EXPECT_EQ(Response(), "Time up! Time up! ");
}

TEST_F(TrackReadEdges, Cmd21OnAClosedPortShowsItsFrameAndEmptiesThePanels) {
  port.FailNextWrite();
  EXPECT_THROW(Press("Cmd21"), link::PortError);
  EXPECT_EQ(display.Text(link::Field::TxtCommand), "21");
  EXPECT_EQ(display.Text(link::Field::TxtSyntax), "02 21 03 22 ");
  EXPECT_EQ(Hints(), hints21);
  EXPECT_EQ(Panel1(), "");
  EXPECT_EQ(Panel2(), "");
  EXPECT_TRUE(display.ButtonsEnabled());
}

}  // namespace
}  // namespace vantrel::console
