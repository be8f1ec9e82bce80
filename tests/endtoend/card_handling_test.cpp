// SPDX-License-Identifier: MIT

// Maintenance from the button to the line: every question of 5Bh and 91h.

#include "tests/support/console_fixture.h"

namespace vantrel::endtoend {
namespace {

class MaintenanceTest : public support::ConsoleTest {};

constexpr const char* k5BWarning =
    "The volatile memory writing life is approximately one million times.\r\n"
    "The expected life will be reached by frequent use of 5Bh command which can cause problems in "
    "the operation of the rewrite card R/W.\r\n"
    "Will you continuously proceed this command?";

TEST_F(MaintenanceTest, A5BhDeclinedAtTheWarningLeavesEverythingUntouched) {
  Load();
  dialogs_.Answers(dialogs::Answer::kNo);
  Press("Cmd5B");
  EXPECT_EQ(dialogs_.Last().title, "Warning Message");
  EXPECT_EQ(dialogs_.Last().prompt, k5BWarning);
  EXPECT_EQ(dialogs_.Last().buttons, dialogs::Buttons::kYesNo);
  EXPECT_TRUE(Frames().empty());
  EXPECT_EQ(Text("LblHints"), "");
}

TEST_F(MaintenanceTest, A5BhThatEnablesSends31hAndRemindsOfTheRestart) {
  Load();
  AnswerAll();
  dialogs_.Answers(dialogs::Answer::kYes);
  dialogs_.Answers(dialogs::Answer::kYes, [this] {
    EXPECT_EQ(Text("StatusBarFrmMain_1"),
              "The cleaning button will take effect after receiving this coammnd");
    EXPECT_EQ(Text("StatusBarFrmMain_2"), "and switch off & on the power button");
  });
  dialogs_.Answers(dialogs::Answer::kOk);
  Press("Cmd5B");
  EXPECT_EQ(Frames(), std::vector<std::string>{"025B310369"});
  EXPECT_EQ(dialogs_.All()[1].title, "Please select");
  EXPECT_EQ(dialogs_.All()[1].prompt,
            "Press 'Yes' to enable the cleaning button OR\r\n"
            "Press 'NO' to disable the cleaning button");
  EXPECT_EQ(dialogs_.Last().title, "Reset Printer");
  EXPECT_EQ(dialogs_.Last().prompt,
            "Please turn off the power and restart the printer to initialize the new setting!");
  EXPECT_EQ(dialogs_.Last().icon, dialogs::Icon::kExclamation);
}

TEST_F(MaintenanceTest, A5BhThatDisablesSends30hAndShowsNothingMore) {
  Load();
  AnswerAll();
  dialogs_.Answers(dialogs::Answer::kYes);
  dialogs_.Answers(dialogs::Answer::kNo);
  Press("Cmd5B");
  EXPECT_EQ(Frames(), std::vector<std::string>{"025B300368"});
}

TEST_F(MaintenanceTest, A91hSendsWhatWasTyped) {
  Load();
  AnswerAll();
  dialogs_.Answers(dialogs::Answer::kYes);
  dialogs_.Types("21");
  Press("Cmd91");
  EXPECT_EQ(dialogs_.Last().title, "91h Command");
  EXPECT_EQ(dialogs_.Last().prompt, "Input the paremeter");
  EXPECT_EQ(dialogs_.Last().default_text, "");
  EXPECT_EQ(Frames(), std::vector<std::string>{"029132310391"});
}

TEST_F(MaintenanceTest, A91hWithTheNumber2SendsNothing) {
  Load();
  dialogs_.Answers(dialogs::Answer::kYes);
  dialogs_.Types(" 2");
  Press("Cmd91");
  EXPECT_TRUE(Frames().empty());
}

TEST_F(MaintenanceTest, A91hWithNothingTypedSendsAnEmptyField) {
  Load();
  AnswerAll();
  dialogs_.Answers(dialogs::Answer::kYes);
  dialogs_.CancelsInput();
  Press("Cmd91");
  EXPECT_EQ(Frames(), std::vector<std::string>{"02910392"});
}

}  // namespace
}  // namespace vantrel::endtoend
