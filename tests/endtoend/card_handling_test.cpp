// Card transport, cleaning and maintenance: exact bytes on the line, help before and after the
// reply, guidance during and after the wait, and every question of 5Bh and 91h.

#include "tests/endtoend/fixed_command.h"

namespace vantrel {
namespace {

class CardHandlingTest : public FixedCommandTest {};

TEST_P(CardHandlingTest, SendsItsFrameAndShowsTheReply) { Check(); }

constexpr const char* kCancel = "Press '54h' to cancel this command/card waiting status...";
constexpr const char* kNormal = "20h: Normal Status";

INSTANTIATE_TEST_SUITE_P(
    All, CardHandlingTest,
    testing::Values(
        // The help of 51h names the block check 50h, the frame carries 52h; both are meant.
        FixedCommand{"Cmd51", "02510352",
                     "         Send: STX 51h ETX 50h\r\nResponse: STX 51h Status ETX BCC", "",
                     kCancel, "02 51 20 03 72 ", kNormal},
        FixedCommand{"cmd52", "02520351",
                     "         Send: STX 52h ETX 51h\r\nResponse: STX 52h Status ETX BCC",
                     "Please add the cleaning fluid on the cleaning card...",
                     "and then insert it into the printer", "02 52 20 03 71 ", kNormal},
        FixedCommand{"Cmd53", "02530350",
                     "         Send: STX 53h ETX 50h\r\nResponse: STX 53h Status ETX BCC", "",
                     kCancel, "02 53 20 03 70 ", kNormal},
        FixedCommand{"Cmd54", "02540357",
                     "         Send: STX 54h ETX 57h\r\nResponse: STX 54h Status ETX BCC", "", "",
                     "02 54 20 03 77 ", kNormal},
        FixedCommand{"Cmd55", "02550356",
                     "         Send: STX 55h ETX 56h\r\nResponse: STX 55h Status ETX BCC", "", "",
                     "02 55 20 03 76 ", kNormal},
        FixedCommand{"Cmd58", "0258035B",
                     "         Send: STX 58h ETX 5Bh\r\n"
                     "Response: STX 58h Status ROM information ETX BCC",
                     "", "", "02 58 20 31 2E 30 03 54 ", "ROM Version: 1.0"},
        FixedCommand{"Cmd59", "0259035A",
                     "         Send: STX 59h ETX 5Ah\r\n"
                     "Response: STX 59h Status Sensor status data string ETX BCC",
                     "", "", "02 59 20 30 31 03 7B ", "Status Request: 01"},
        FixedCommand{"Cmd5F", "025F035C",
                     "         Send: STX 5Fh ETX 5Ch\r\nResponse: STX 5Fh Status ETX BCC",
                     "Reset the printer now...", "", "02 5F 20 03 7C ", kNormal},
        FixedCommand{"Cmd95", "02950396",
                     "         Send: STX 95h ETX BCC\r\n"
                     "Response: STX 95h Status Transport count data ETX BCC",
                     "", "", "02 95 20 31 32 03 B5 ", "Transport Count: 12"},
        FixedCommand{"Cmd96", "02960395",
                     "         Send: STX 96h ETX BCC\r\n"
                     "Response: STX 96h Status Print Count data ETX BCC",
                     "", "", "02 96 20 37 03 82 ", "Print Count: 7"}),
    [](const auto& tested) { return std::string(tested.param.button); });

class MaintenanceTest : public ConsoleTest {};

constexpr const char* k5BWarning =
    "The volatile memory writing life is approximately one million times.\r\n"
    "The expected life will be reached by frequent use of 5Bh command which can cause problems in "
    "the operation of the rewrite card R/W.\r\n"
    "Will you continuously proceed this command?";

TEST_F(MaintenanceTest, A5BhDeclinedAtTheWarningLeavesEverythingUntouched) {
  Load();
  dialogs_.Answers(Answer::kNo);
  Press("Cmd5B");
  EXPECT_EQ(dialogs_.Last().title, "Warning Message");
  EXPECT_EQ(dialogs_.Last().prompt, k5BWarning);
  EXPECT_EQ(dialogs_.Last().buttons, Buttons::kYesNo);
  EXPECT_TRUE(Frames().empty());
  EXPECT_EQ(Text("LblHints"), "");
}

TEST_F(MaintenanceTest, A5BhThatEnablesSends31hAndRemindsOfTheRestart) {
  Load();
  AnswerAll();
  dialogs_.Answers(Answer::kYes);
  dialogs_.Answers(Answer::kYes, [this] {
    EXPECT_EQ(Text("StatusBarFrmMain_1"),
              "The cleaning button will take effect after receiving this coammnd");
    EXPECT_EQ(Text("StatusBarFrmMain_2"), "and switch off & on the power button");
  });
  dialogs_.Answers(Answer::kOk);
  Press("Cmd5B");
  EXPECT_EQ(Frames(), std::vector<std::string>{"025B310369"});
  EXPECT_EQ(dialogs_.All()[1].title, "Please select");
  EXPECT_EQ(dialogs_.All()[1].prompt,
            "Press 'Yes' to enable the cleaning button OR\r\n"
            "Press 'NO' to disable the cleaning button");
  EXPECT_EQ(dialogs_.Last().title, "Reset Printer");
  EXPECT_EQ(dialogs_.Last().prompt,
            "Please turn off the power and restart the printer to initialize the new setting!");
  EXPECT_EQ(dialogs_.Last().icon, Icon::kExclamation);
}

TEST_F(MaintenanceTest, A5BhThatDisablesSends30hAndShowsNothingMore) {
  Load();
  AnswerAll();
  dialogs_.Answers(Answer::kYes);
  dialogs_.Answers(Answer::kNo);
  Press("Cmd5B");
  EXPECT_EQ(Frames(), std::vector<std::string>{"025B300368"});
}

TEST_F(MaintenanceTest, A91hSendsWhatWasTyped) {
  Load();
  AnswerAll();
  dialogs_.Answers(Answer::kYes);
  dialogs_.Types("21");
  Press("Cmd91");
  EXPECT_EQ(dialogs_.Last().title, "91h Command");
  EXPECT_EQ(dialogs_.Last().prompt, "Input the paremeter");
  EXPECT_EQ(dialogs_.Last().default_text, "");
  EXPECT_EQ(Frames(), std::vector<std::string>{"029132310391"});
}

TEST_F(MaintenanceTest, A91hWithTheNumber2SendsNothing) {
  Load();
  dialogs_.Answers(Answer::kYes);
  dialogs_.Types(" 2");
  Press("Cmd91");
  EXPECT_TRUE(Frames().empty());
}

TEST_F(MaintenanceTest, A91hWithNothingTypedSendsAnEmptyField) {
  Load();
  AnswerAll();
  dialogs_.Answers(Answer::kYes);
  dialogs_.CancelsInput();
  Press("Cmd91");
  EXPECT_EQ(Frames(), std::vector<std::string>{"02910392"});
}

}  // namespace
}  // namespace vantrel
