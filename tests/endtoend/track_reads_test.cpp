// SPDX-License-Identifier: MIT

// Track reads from the button to the line and back, and a fixed command with data in its reply and
// one without. What each command shows and sends is tested with its handler.

#include "tests/endtoend/fixed_command.h"

namespace vantrel::endtoend {
namespace {

TEST_P(FixedCommandTest, ShowsItsHelpSendsItsFrameAndShowsTheReply) { Check(); }

INSTANTIATE_TEST_SUITE_P(
    All, FixedCommandTest,
    testing::Values(FixedCommand{"Cmd21", "02210322",
                                 "         Send: STX 21h ETX BCC\r\n"
                                 "Response: STX 21h Status 'Read Data String' ETX BCC",
                                 "Please insert your card...",
                                 "Press '54h' to cancel this command/card waiting status...",
                                 "02 21 20 41 42 43 03 42 ", "First Track: ABC"},
                    FixedCommand{
                        "cmd52", "02520351",
                        "         Send: STX 52h ETX 51h\r\nResponse: STX 52h Status ETX BCC",
                        "Please add the cleaning fluid on the cleaning card...",
                        "and then insert it into the printer", "02 52 20 03 71 ",
                        "20h: Normal Status"}),
    [](const auto& tested) { return std::string(tested.param.button); });

class TrackReadReplyTest : public support::ConsoleTest {};

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
}  // namespace vantrel::endtoend
