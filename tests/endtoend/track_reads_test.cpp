// The nine track reads: exact bytes on the line, help before and after the reply, guidance during
// and after the wait.

#include "tests/support/console_fixture.h"

#include <ostream>

namespace vantrel {
namespace {

struct TrackRead {
  const char* button;
  const char* frame;
  const char* help;
  const char* panel1;
  const char* panel2;
  const char* reply;  // with the data "ABC"
  const char* label;
};

void PrintTo(const TrackRead& row, std::ostream* out) { *out << row.button; }

class TrackReadTest : public ConsoleTest, public testing::WithParamInterface<TrackRead> {};

TEST_P(TrackReadTest, SendsItsFrameAndShowsTheTrack) {
  const TrackRead& row = GetParam();
  Load();
  peer_.OnFrame([&](const std::string&) {
    EXPECT_EQ(Text("LblHints"), row.help);
    EXPECT_EQ(Text("StatusBarFrmMain_1"), row.panel1);
    EXPECT_EQ(Text("StatusBarFrmMain_2"), row.panel2);
    peer_.Send(std::string("06") + row.reply);
  });
  Press(row.button);
  EXPECT_EQ(Frames(), std::vector<std::string>{row.frame});
  EXPECT_EQ(Text("TxtResponse"), row.reply);
  EXPECT_EQ(Text("LblHints"), std::string(row.help) + "\r\n" + row.label + "ABC");
  EXPECT_EQ(Text("StatusBarFrmMain_1"), "");
  EXPECT_EQ(Text("StatusBarFrmMain_2"), "");
}

constexpr const char* kInsert = "Please insert your card...";
constexpr const char* kCancel = "Press '54h' to cancel this command/card waiting status...";
constexpr const char* kInside = "Read the magnetic stripe of the card inside the printer...";
constexpr const char* kBuffer = "Waiting for the card or reading the buffer...";

INSTANTIATE_TEST_SUITE_P(
    All, TrackReadTest,
    testing::Values(TrackRead{"Cmd21", "02210322",
                              "         Send: STX 21h ETX BCC\r\n"
                              "Response: STX 21h Status 'Read Data String' ETX BCC",
                              kInsert, kCancel, "02 21 20 41 42 43 03 42 ", "First Track: "},
                    TrackRead{"Cmd22", "02220321",
                              "         Send: STX 22h ETX BCC\r\n"
                              "Response: STX 22h Status 'Read Data String' ETX BCC",
                              kInsert, kCancel, "02 22 20 41 42 43 03 41 ", "Second Track: "},
                    // The leading blank of this response line is meant.
                    TrackRead{"Cmd23", "02230320",
                              "         Send: STX 23h ETX BCC\r\n"
                              " Response: STX 23h Status 'Read Data String' ETX BCC",
                              kInsert, kCancel, "02 23 20 41 42 43 03 40 ", "Third Track: "},
                    TrackRead{"Cmd25", "02250326",
                              "         Send: STX 25h ETX BCC\r\n"
                              "Response: STX 25h Status 'Read Data String' ETX BCC",
                              kInside, "", "02 25 20 41 42 43 03 46 ", "First Track: "},
                    TrackRead{"Cmd26", "02260325",
                              "         Send: STX 26h ETX BCC\r\n"
                              "Response: STX 26h Status 'Read Data String' ETX BCC",
                              kInside, "", "02 26 20 41 42 43 03 45 ", "Second Track: "},
                    TrackRead{"Cmd27", "02270324",
                              "         Send: STX 27h ETX BCC\r\n"
                              "Response: STX 27h Status 'Read Data String' ETX BCC",
                              kInside, "", "02 27 20 41 42 43 03 44 ", "Third Track: "},
                    TrackRead{"Cmd29", "0229032A",
                              "         Send: STX 29h ETX BCC\r\n"
                              "Response: STX 29h Status 'Read Data String' ETX BCC",
                              kBuffer, "", "02 29 20 41 42 43 03 4A ", "First Track Buffer: "},
                    TrackRead{"Cmd2A", "022A0329",
                              "         Send: STX 2Ah ETX BCC\r\n"
                              "Response: STX 2Ah Status 'Read Data String' ETX BCC",
                              kBuffer, "", "02 2A 20 41 42 43 03 49 ", "Second Track Buffer: "},
                    TrackRead{"Cmd2B", "022B0328",
                              "         Send: STX 2Bh ETX BCC\r\n"
                              "Response: STX 2Bh Status 'Read Data String' ETX BCC",
                              kBuffer, "", "02 2B 20 41 42 43 03 48 ", "Third Track Buffer: "}),
    [](const auto& tested) { return std::string(tested.param.button); });

class TrackReadReplyTest : public ConsoleTest {};

TEST_F(TrackReadReplyTest, A25hAnsweredWithStatus22hNamesNoTargetedCardAfterTheLabel) {
  Load();
  peer_.OnFrame([&](const std::string&) { peer_.Send("06 02 25 22 03 04"); });
  Press("Cmd25");
  EXPECT_EQ(Text("LblHints"),
            "         Send: STX 25h ETX BCC\r\n"
            "Response: STX 25h Status 'Read Data String' ETX BCC\r\n"
            "First Track: 22h: No targeted Card");
}

TEST_F(TrackReadReplyTest, AResendRequestGetsTheFrameAgain) {
  Load();
  peer_.OnFrame(
      [&](const std::string&) { peer_.Send(Frames().size() < 3 ? "15" : "06 02 21 20 41 03 43"); });
  Press("Cmd21");
  EXPECT_EQ(Frames(), (std::vector<std::string>{"02210322", "02210322", "02210322"}));
  EXPECT_EQ(Text("TxtResponse"), "02 21 20 41 03 43 ");
}

}  // namespace
}  // namespace vantrel
