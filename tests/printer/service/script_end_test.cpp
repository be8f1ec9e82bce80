// SPDX-License-Identifier: MIT

// What a script does at the end of its input.

#include "tests/printer/service/script_fixture.h"
#include "tests/support/wait_for.h"

namespace vantrel::printer {
namespace {

class ScriptEnd : public ScriptFixture {
 protected:
  bool HasFinished() {
    return support::WaitFor([this] { return finished_ > 0; });
  }
};

TEST_F(ScriptEnd, ComesAtOnceWhereNothingIsLeft) {
  script_.Feed("state");
  script_.End();
  EXPECT_EQ(finished_, 1);
  EXPECT_EQ(answers_.size(), 1U);
}

TEST_F(ScriptEnd, WaitsForWhatIsAtWork) {
  model_.SetInstantWork(false);
  server_.InsertCard();
  console_.Write("02 21 03 22");
  script_.Feed("wait frame 21\n");
  EXPECT_EQ(Awaited(), "ok 21h first track read");
  script_.End();
  EXPECT_EQ(finished_, 0);
  // The reply comes after the 0.7 seconds of a read.
  EXPECT_TRUE(console_.ReadsTo("06", 5000));
  EXPECT_TRUE(HasFinished());
  EXPECT_EQ(console_.Read(5), "02 21 23 03 01");
}

TEST_F(ScriptEnd, AnswersWhatHasComeButIsNotRead) {
  // Written before the end, which the script learns of first.
  console_.Write("02 95 03 96");
  script_.End();
  EXPECT_EQ(console_.Read(7), "06 02 95 20 30 03 86");
  EXPECT_TRUE(HasFinished());
}

TEST_F(ScriptEnd, HearsNothingThatComesLater) {
  model_.SetInstantWork(false);
  server_.InsertCard();
  console_.Write("02 21 03 22");
  script_.End();
  console_.Write("02 95 03 96");
  EXPECT_TRUE(support::WaitFor([this] { return !model_.IsBusy(); }));
  EXPECT_EQ(console_.Read(6), "06 02 21 23 03 01");
  EXPECT_TRUE(HasFinished());
  EXPECT_EQ(console_.ReadNow(), "");
}

TEST_F(ScriptEnd, GivesUpWhatWaitsForAHand) {
  Exchange("02 21 03 22", 1);
  script_.End();
  EXPECT_TRUE(HasFinished());
  EXPECT_EQ(console_.ReadNow(), "");
}

TEST_F(ScriptEnd, WaitsUntilTheConsoleHasReadTheReply) {
  console_.Write("02 95 03 96");
  script_.End();
  EXPECT_EQ(finished_, 0);
  EXPECT_FALSE(server_.IsTaken());
  EXPECT_EQ(console_.Read(7), "06 02 95 20 30 03 86");
  EXPECT_TRUE(server_.IsTaken());
  EXPECT_TRUE(HasFinished());
}

TEST_F(ScriptEnd, DoesNotWaitForeverForAConsoleThatReadsNothing) {
  console_.Write("02 95 03 96");
  script_.End();
  EXPECT_TRUE(HasFinished());
  EXPECT_FALSE(server_.IsTaken());
}

TEST_F(ScriptEnd, WaitsForReplyToBeReadAfterQuitToo) {
  console_.Write("02 95 03 96");
  Ask("wait reply");
  script_.Feed("quit\n");
  EXPECT_EQ(finished_, 0);
  EXPECT_EQ(console_.Read(7), "06 02 95 20 30 03 86");
  EXPECT_TRUE(HasFinished());
}

TEST_F(ScriptEnd, DoesNotWaitForWorkAfterQuit) {
  model_.SetInstantWork(false);
  server_.InsertCard();
  Exchange("02 21 03 22", 1);
  script_.Feed("quit\n");
  EXPECT_EQ(finished_, 1);
}

TEST_F(ScriptEnd, GoesOnWithLinesThatWait) {
  script_.Feed("wait frame 95\nstate");
  script_.End();
  EXPECT_EQ(finished_, 0);
  Exchange("02 95 03 96", 7);
  EXPECT_TRUE(HasFinished());
  EXPECT_EQ(answers_.size(), 2U);
}

TEST_F(ScriptEnd, WaitsForLateReplies) {
  Ask("fault delay 50");
  console_.Write("02 95 03 96");
  script_.End();
  EXPECT_TRUE(support::WaitFor([this] { return !model_.IsBusy(); }));
  EXPECT_EQ(console_.Read(7), "06 02 95 20 30 03 86");
  EXPECT_TRUE(HasFinished());
}

}  // namespace
}  // namespace vantrel::printer
