// SPDX-License-Identifier: MIT

#include "printer/model/fault_plan.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace vantrel::printer {
namespace {

// The plan that these texts make, told by what strikes each of some commands: "-" for nothing.
class FaultPlanTest : public testing::Test {
 protected:
  void Add(std::string_view text) { plan_.Add(ParseFault(text)); }
  // What strikes a command of this code.
  std::string On(std::uint8_t code) {
    std::string texts;
    const Strikes strikes = plan_.Strike(code);
    for (const Fault& fault : strikes.All())
      texts += (texts.empty() ? "" : "+") + KindTextOf(fault);
    return texts.empty() ? "-" : texts;
  }
  std::string On(std::uint8_t code, int times) {
    std::string texts;
    for (int i = 0; i < times; ++i) texts += (i == 0 ? "" : " ") + On(code);
    return texts;
  }

  FaultPlan plan_;
};

TEST_F(FaultPlanTest, StrikesTheNextFrameWhateverItIs) {
  Add("reject");
  Add("silence");
  EXPECT_EQ(plan_.Strike(std::nullopt).All().front().kind, Fault::Kind::kReject);
  EXPECT_EQ(On(0x21), "silence");
  EXPECT_EQ(On(0x21), "-");
  EXPECT_TRUE(plan_.IsEmpty());
}

TEST_F(FaultPlanTest, CountsOnlyCommandsOfItsCode) {
  Add("reject on 21 after 2");
  EXPECT_EQ(On(0x21), "-");
  EXPECT_EQ(On(0x51, 3), "- - -");
  EXPECT_EQ(plan_.Strike(std::nullopt).IsEmpty(), true);
  EXPECT_EQ(On(0x21), "reject");
  EXPECT_EQ(On(0x21), "-");
}

TEST_F(FaultPlanTest, StrikesFromTheFirstOnUntilItsStrikesAreSpent) {
  Add("reject after 3 for 2");
  EXPECT_EQ(On(0x21, 6), "- - reject reject - -");
}

TEST_F(FaultPlanTest, StrikesEveryNthUntilCleared) {
  Add("reject every 3");
  EXPECT_EQ(On(0x21, 9), "- - reject - - reject - - reject");
  EXPECT_FALSE(plan_.List().front().left);
}

TEST_F(FaultPlanTest, StrikesEveryNthFromTheFirstOn) {
  Add("reject after 2 every 3 for 2");
  EXPECT_EQ(On(0x21, 9), "- reject - - reject - - - -");
}

TEST_F(FaultPlanTest, LetsSeveralStrikeOneCommand) {
  Add("noise FF");
  Add("truncate on 21");
  Add("delay 5 on 51");
  EXPECT_EQ(On(0x21), "noise FF+truncate");
  EXPECT_EQ(On(0x51), "delay 5");
}

TEST_F(FaultPlanTest, KeepsWhatCanDoNothingForTheNextCommand) {
  Add("status 22");
  Add("status 38");
  EXPECT_EQ(On(0x21, 3), "status 22 status 38 -");
  Add("truncate");
  Add("silence");
  EXPECT_EQ(On(0x21, 3), "silence truncate -");
}

TEST_F(FaultPlanTest, KeepsAnNthThatCouldDoNothingForTheCommandAfterIt) {
  Add("reject after 3");
  Add("status 38 every 3");
  EXPECT_EQ(On(0x21, 7), "- - reject status 38 - status 38 -");
}

TEST_F(FaultPlanTest, LetsAFaultThatStaysNotKeepOthersOut) {
  Add("split 5 until cleared");
  Add("reject on 21 every 2");
  EXPECT_EQ(On(0x21, 4), "split 5 reject split 5 reject");
}

TEST_F(FaultPlanTest, CountsAFrameThatIsSentAgainOnce) {
  Add("resend 2 on 21 after 2");
  Add("status 38 on 21 after 2");
  EXPECT_EQ(On(0x21), "-");
  EXPECT_EQ(On(0x21, 2), "resend 2 resend 2");
  // Another command in between is none of its business.
  EXPECT_EQ(On(0x51), "-");
  EXPECT_EQ(plan_.List().size(), 2U);
  EXPECT_EQ(On(0x21, 2), "status 38 -");
}

TEST_F(FaultPlanTest, AsksAgainForEachOfSoManyCommands) {
  Add("resend 1 for 2");
  EXPECT_EQ(On(0x21, 5), "resend 1 - resend 1 - -");
}

TEST_F(FaultPlanTest, DrawsTheSameEachTime) {
  Add("random 7 50 silence,status 22,truncate");
  const std::string first = On(0x21, 200);
  plan_.Replace(ParseFault("random 7 50 silence,status 22,truncate"));
  EXPECT_EQ(On(0x21, 200), first);
  plan_.Replace(ParseFault("random 8 50 silence,status 22,truncate"));
  EXPECT_NE(On(0x21, 200), first);
  for (const char* kind : {"- ", "silence ", "status 22 ", "truncate "})
    EXPECT_NE(first.find(kind), std::string::npos) << kind;
}

TEST_F(FaultPlanTest, DrawsAsOftenAsItIsTold) {
  Add("random 1 100 reject");
  EXPECT_EQ(On(0x21, 3), "reject reject reject");
  plan_.Replace(ParseFault("random 1 10 reject"));
  int struck = 0;
  for (int i = 0; i < 10000; ++i) struck += On(0x21) == "reject" ? 1 : 0;
  EXPECT_GT(struck, 850);
  EXPECT_LT(struck, 1150);
}

TEST_F(FaultPlanTest, DrawsOnceForAFrameThatIsSentAgain) {
  Add("random 3 100 resend 2");
  EXPECT_EQ(On(0x21, 6), "resend 2 resend 2 - resend 2 resend 2 -");
}

TEST_F(FaultPlanTest, TellsWhatIsLeftByAnIdThatIsNeverUsedAgain) {
  EXPECT_EQ(plan_.Replace(ParseFault("reject for 3")), 1U);
  EXPECT_EQ(plan_.Add(ParseFault("late until cleared")), 2U);
  On(0x21);
  ASSERT_EQ(plan_.List().size(), 2U);
  EXPECT_EQ(plan_.List()[0].id, 1U);
  EXPECT_EQ(plan_.List()[0].left, 2U);
  EXPECT_EQ(TextOf(plan_.List()[0].fault), "reject for 3");
  EXPECT_FALSE(plan_.List()[1].left);
  EXPECT_FALSE(plan_.Clear(3));
  EXPECT_TRUE(plan_.Clear(1));
  EXPECT_FALSE(plan_.Clear(1));
  EXPECT_EQ(plan_.List().size(), 1U);
  EXPECT_EQ(plan_.Replace(ParseFault("silence")), 3U);
  EXPECT_EQ(plan_.List().size(), 1U);
  plan_.Clear();
  EXPECT_TRUE(plan_.IsEmpty());
}

TEST_F(FaultPlanTest, HoldsNoMoreThanAThousand) {
  for (int i = 0; i < 1000; ++i) Add("reject on 21");
  EXPECT_THROW(Add("reject"), std::length_error);
  EXPECT_EQ(plan_.List().size(), 1000U);
}

}  // namespace
}  // namespace vantrel::printer
