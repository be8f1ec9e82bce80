// SPDX-License-Identifier: MIT

#include "printer/model/answers.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

// Replies are written by hand: STX, 95h, status, data, ETX and the exclusive-or of all after STX.
class AnswersTest : public testing::Test {
 protected:
  static Asked AskedWith(std::string_view fault) {
    Asked asked{0x95, 0ms, {}};
    if (!fault.empty()) asked.strikes.Add(ParseFault(fault));
    return asked;
  }
  // What leaves now, as hex; "" for nothing.
  std::string Taken(protocol::Moment now) {
    const auto leaving = answers_.Take(now);
    if (!leaving) return "";
    for (const Answered& answer : leaving->answers) left_.push_back(answer);
    return link::HexTextOf(leaving->bytes);
  }
  // What a command answers at once whose reply has status 20h and the data "0".
  std::string AnswerAtOnce(std::string_view fault) {
    Asked asked = AskedWith(fault);
    answers_.Begin(asked);
    answers_.Accept(asked);
    answers_.ReplyWith({0x20, "0"}, asked, 0ms);
    answers_.End();
    return Taken(0ms);
  }

  Answers answers_;
  std::vector<Answered> left_;
};

TEST_F(AnswersTest, SharesAChunkWhereTheReplyComesAtOnce) {
  EXPECT_FALSE(answers_.Deadline());
  EXPECT_EQ(AnswerAtOnce(""),
            "060295203003"
            "86");
  EXPECT_EQ(left_, (std::vector<Answered>{{0x95, 0x20, link::BytesOf("029520300386")}}));
  EXPECT_FALSE(answers_.Deadline());
}

TEST_F(AnswersTest, KeepsALaterReplyAway) {
  Asked asked = AskedWith("");
  answers_.Begin(asked);
  answers_.Accept(asked);
  answers_.End();
  EXPECT_EQ(Taken(0ms), "06");
  EXPECT_TRUE(left_.empty());
  answers_.ReplyWith({0x20, ""}, asked, 5ms);
  EXPECT_EQ(answers_.Deadline(), protocol::Moment(20ms));
  EXPECT_EQ(Taken(19ms), "");
  EXPECT_EQ(Taken(20ms), "02952003B6");
  EXPECT_EQ(left_.size(), 1U);
}

TEST_F(AnswersTest, TellsControlCharactersAsAnswers) {
  Asked asked = AskedWith("");
  answers_.AnswerWith(0x10, asked);
  Asked unknown{std::nullopt, 0ms, {}};
  answers_.AnswerWith(0x15, unknown);
  EXPECT_EQ(Taken(0ms), "1015");
  EXPECT_EQ(left_, (std::vector<Answered>{{0x95, std::nullopt, {0x10}},
                                          {std::nullopt, std::nullopt, {0x15}}}));
}

TEST_F(AnswersTest, AreBentByFaults) {
  // 86h is the good block check.
  EXPECT_EQ(AnswerAtOnce("bad-bcc"), "06029520300379");
  EXPECT_EQ(AnswerAtOnce("bad-bcc inverted"), "06029520300379");
  EXPECT_EQ(AnswerAtOnce("bad-bcc zero"), "06029520300300");
  // With STX and without ETX: 86h, 02h and 03h, exclusively or-ed.
  EXPECT_EQ(AnswerAtOnce("bad-bcc others"), "06029520300387");
  EXPECT_EQ(AnswerAtOnce("wrong-echo"), "06021520300306");
  EXPECT_EQ(AnswerAtOnce("truncate"), "0602952030");
  EXPECT_EQ(AnswerAtOnce("noise FF00"), "FF0006029520300386");
  EXPECT_EQ(AnswerAtOnce("extra FF00"), "06029520300386FF00");
  EXPECT_EQ(AnswerAtOnce("mute"), "");
  EXPECT_EQ(AnswerAtOnce("drop 1"), "029520300386");
  EXPECT_EQ(AnswerAtOnce("drop 3"), "060220300386");
  EXPECT_EQ(AnswerAtOnce("drop 7"), "060295203003");
  EXPECT_EQ(AnswerAtOnce("drop 8"), "06029520300386");
}

TEST_F(AnswersTest, AreNotBentToAGoodBlockCheck) {
  Asked asked{0x20, 0ms, {}};
  asked.strikes.Add(ParseFault("bad-bcc zero"));
  answers_.Begin(asked);
  // 20h, 23h and ETX make 00h.
  answers_.ReplyWith({0x23, ""}, asked, 0ms);
  EXPECT_EQ(Taken(0ms), "02202303FF");
}

TEST_F(AnswersTest, SufferSeveralFaultsAtOnce) {
  Asked asked = AskedWith("noise FF");
  for (const char* fault : {"truncate", "drop 2", "extra 55"}) asked.strikes.Add(ParseFault(fault));
  answers_.Begin(asked);
  answers_.Accept(asked);
  answers_.ReplyWith({0x20, "0"}, asked, 0ms);
  EXPECT_EQ(Taken(0ms), "FF0695203055");
}

TEST_F(AnswersTest, AreCountedOverBothChunksForADrop) {
  Asked asked = AskedWith("drop 4");
  answers_.Begin(asked);
  answers_.Accept(asked);
  answers_.End();
  EXPECT_EQ(Taken(0ms), "06");
  answers_.ReplyWith({0x20, "0"}, asked, 100ms);
  EXPECT_EQ(Taken(100ms), "0295300386");
}

TEST_F(AnswersTest, WithNothingLeftHaveNotLeft) {
  Asked asked = AskedWith("drop 1");
  answers_.AnswerWith(0x10, asked);
  EXPECT_EQ(Taken(0ms), "");
  Asked next = AskedWith("");
  answers_.AnswerWith(0x10, next);
  EXPECT_EQ(Taken(0ms), "10");
  EXPECT_EQ(left_.size(), 1U);
}

TEST_F(AnswersTest, AreLateByWhatTheConsoleWaitsAndMore) {
  EXPECT_EQ(AnswerAtOnce("late"), "06");
  // 95h is given up after five seconds.
  EXPECT_EQ(answers_.Deadline(), protocol::Moment(6s));
  EXPECT_EQ(Taken(6s), "029520300386");
  EXPECT_EQ(AnswerAtOnce("late 250"), "06");
  EXPECT_EQ(answers_.Deadline(), protocol::Moment(5250ms));
}

TEST_F(AnswersTest, SplitHaveLeftWithTheLastByte) {
  EXPECT_EQ(AnswerAtOnce("split 5"), "");
  for (int byte = 1; byte <= 6; ++byte) {
    EXPECT_EQ(Taken(byte * 5ms).size(), 2U);
    EXPECT_TRUE(left_.empty());
  }
  EXPECT_EQ(Taken(35ms), "86");
  EXPECT_EQ(left_.size(), 1U);
}

TEST_F(AnswersTest, KeptBackHaveLeftWithTheNext) {
  EXPECT_EQ(AnswerAtOnce("join"), "");
  EXPECT_TRUE(left_.empty());
  Asked asked = AskedWith("");
  answers_.AnswerWith(0x10, asked);
  EXPECT_EQ(Taken(0ms), "0602952030038610");
  ASSERT_EQ(left_.size(), 2U);
  EXPECT_EQ(left_[0].status, 0x20);
  EXPECT_EQ(left_[1].bytes, link::Bytes{0x10});
}

TEST_F(AnswersTest, EndedNeverLeave) {
  AnswerAtOnce("split 5");
  AnswerAtOnce("delay 5000");
  AnswerAtOnce("join");
  answers_.Clear();
  EXPECT_FALSE(answers_.Deadline());
  EXPECT_EQ(Taken(1h), "");
  EXPECT_EQ(AnswerAtOnce(""), "06029520300386");
  EXPECT_EQ(left_.size(), 1U);
}

}  // namespace
}  // namespace vantrel::printer
