// The nine track reads: exact bytes on the line, help before and after the reply, guidance during
// and after the wait.

#include "tests/endtoend/fixed_command.h"

namespace vantrel {
namespace {

class TrackReadTest : public FixedCommandTest {};

TEST_P(TrackReadTest, SendsItsFrameAndShowsTheTrack) { Check(); }

constexpr const char* kInsert = "Please insert your card...";
constexpr const char* kCancel = "Press '54h' to cancel this command/card waiting status...";
constexpr const char* kInside = "Read the magnetic stripe of the card inside the printer...";
constexpr const char* kBuffer = "Waiting for the card or reading the buffer...";

INSTANTIATE_TEST_SUITE_P(
    All, TrackReadTest,
    testing::Values(
        FixedCommand{"Cmd21", "02210322",
                     "         Send: STX 21h ETX BCC\r\n"
                     "Response: STX 21h Status 'Read Data String' ETX BCC",
                     kInsert, kCancel, "02 21 20 41 42 43 03 42 ", "First Track: ABC"},
        FixedCommand{"Cmd22", "02220321",
                     "         Send: STX 22h ETX BCC\r\n"
                     "Response: STX 22h Status 'Read Data String' ETX BCC",
                     kInsert, kCancel, "02 22 20 41 42 43 03 41 ", "Second Track: ABC"},
        // The leading blank of this response line is meant.
        FixedCommand{"Cmd23", "02230320",
                     "         Send: STX 23h ETX BCC\r\n"
                     " Response: STX 23h Status 'Read Data String' ETX BCC",
                     kInsert, kCancel, "02 23 20 41 42 43 03 40 ", "Third Track: ABC"},
        FixedCommand{"Cmd25", "02250326",
                     "         Send: STX 25h ETX BCC\r\n"
                     "Response: STX 25h Status 'Read Data String' ETX BCC",
                     kInside, "", "02 25 20 41 42 43 03 46 ", "First Track: ABC"},
        FixedCommand{"Cmd26", "02260325",
                     "         Send: STX 26h ETX BCC\r\n"
                     "Response: STX 26h Status 'Read Data String' ETX BCC",
                     kInside, "", "02 26 20 41 42 43 03 45 ", "Second Track: ABC"},
        FixedCommand{"Cmd27", "02270324",
                     "         Send: STX 27h ETX BCC\r\n"
                     "Response: STX 27h Status 'Read Data String' ETX BCC",
                     kInside, "", "02 27 20 41 42 43 03 44 ", "Third Track: ABC"},
        FixedCommand{"Cmd29", "0229032A",
                     "         Send: STX 29h ETX BCC\r\n"
                     "Response: STX 29h Status 'Read Data String' ETX BCC",
                     kBuffer, "", "02 29 20 41 42 43 03 4A ", "First Track Buffer: ABC"},
        FixedCommand{"Cmd2A", "022A0329",
                     "         Send: STX 2Ah ETX BCC\r\n"
                     "Response: STX 2Ah Status 'Read Data String' ETX BCC",
                     kBuffer, "", "02 2A 20 41 42 43 03 49 ", "Second Track Buffer: ABC"},
        FixedCommand{"Cmd2B", "022B0328",
                     "         Send: STX 2Bh ETX BCC\r\n"
                     "Response: STX 2Bh Status 'Read Data String' ETX BCC",
                     kBuffer, "", "02 2B 20 41 42 43 03 48 ", "Third Track Buffer: ABC"}),
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
