// SPDX-License-Identifier: MIT

#include "link/reply.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace vantrel::link {
namespace {

// The frame of 21h; its replies' block checks are the exclusive-or of all from 21h to ETX.
constexpr const char* kFrame21 = "02210322";

TEST(JudgeReply, WaitsWhileNothingHasArrived) {
  EXPECT_EQ(JudgeReply("", kFrame21), Judgement::kWait);
  EXPECT_EQ(JudgeReply("0", kFrame21), Judgement::kWait);
}

TEST(JudgeReply, WaitsBehindALoneAcknowledgement) {
  EXPECT_EQ(JudgeReply("06", kFrame21), Judgement::kWait);
}

TEST(JudgeReply, IsCompleteWithStatusAlone) {
  // 21h ^ 20h ^ 03h = 02h.
  EXPECT_EQ(JudgeReply("060221200302", kFrame21), Judgement::kComplete);
}

TEST(JudgeReply, IsCompleteWithData) {
  // 21h ^ 20h ^ 41h ^ 42h ^ 03h = 01h.
  EXPECT_EQ(JudgeReply("0602212041420301", kFrame21), Judgement::kComplete);
}

TEST(JudgeReply, WaitsAtEveryStepOfAReplyUntilItsLastByte) {
  const std::string reply = "0602212041420301";
  for (std::size_t length = 2; length < reply.size(); length += 2)
    EXPECT_EQ(JudgeReply(reply.substr(0, length), kFrame21), Judgement::kWait) << length;
}

TEST(JudgeReply, WaitsForAReplyWithoutStx) {
  EXPECT_EQ(JudgeReply("060421200302", kFrame21), Judgement::kWait);
}

TEST(JudgeReply, WaitsForAReplyToAnotherCommand) {
  // 22h ^ 20h ^ 03h = 01h.
  EXPECT_EQ(JudgeReply("060222200301", kFrame21), Judgement::kWait);
}

TEST(JudgeReply, WaitsForAReplyWithoutEtx) {
  // 04h stands where ETX belongs; 21h ^ 20h ^ 04h = 05h.
  EXPECT_EQ(JudgeReply("060221200405", kFrame21), Judgement::kWait);
}

TEST(JudgeReply, WaitsForAReplyWithAWrongBlockCheck) {
  EXPECT_EQ(JudgeReply("060221200303", kFrame21), Judgement::kWait);
}

TEST(JudgeReply, ComparesHexTextWithItsCase) {
  // 2Ah ^ 20h ^ 03h = 09h.
  EXPECT_EQ(JudgeReply("06022A200309", "022A0329"), Judgement::kComplete);
  EXPECT_EQ(JudgeReply("06022a200309", "022A0329"), Judgement::kWait);
}

TEST(JudgeReply, TakesAnEtxAmongTheData) {
  // 21h ^ 20h ^ 03h ^ 41h ^ 03h = 40h.
  EXPECT_EQ(JudgeReply("060221200341", kFrame21), Judgement::kWait);
  EXPECT_EQ(JudgeReply("0602212003410340", kFrame21), Judgement::kComplete);
}

TEST(JudgeReply, WaitsForTwoRepliesAtOnceThatDoNotMakeOne) {
  // The second acknowledgement and STX stand among the data of the first: 21h ^ 20h ^ 03h ^ 02h ^
  // 06h ^ 02h ^ 21h ^ 20h ^ 03h = 06h, but the last block check is 02h.
  EXPECT_EQ(JudgeReply("060221200302060221200302", kFrame21), Judgement::kWait);
}

TEST(JudgeReply, RejectsAndResendsByTheFirstByteAlone) {
  EXPECT_EQ(JudgeReply("10", kFrame21), Judgement::kReject);
  EXPECT_EQ(JudgeReply("10060221200302", kFrame21), Judgement::kReject);
  EXPECT_EQ(JudgeReply("15", kFrame21), Judgement::kResend);
  EXPECT_EQ(JudgeReply("15060221200302", kFrame21), Judgement::kResend);
}

TEST(JudgeReply, KnowsNoOtherControlCharacter) {
  for (const char* text : {"00", "02", "05", "07", "11", "16", "20", "FF"})
    EXPECT_EQ(JudgeReply(text, kFrame21), Judgement::kUnknown) << text;
}

TEST(JudgeReply, TakesAnyFrameLengthWithoutHarm) {
  for (const char* frame : {"", "0", "02", "022"})
    EXPECT_EQ(JudgeReply("060221200302", frame), Judgement::kWait) << frame;
}

TEST(ReplyLabel, NamesTheDataOfEachCommandThatReturnsSome) {
  const std::pair<const char*, const char*> rows[] = {
      {"21", "First Track: "},        {"25", "First Track: "},
      {"22", "Second Track: "},       {"26", "Second Track: "},
      {"23", "Third Track: "},        {"27", "Third Track: "},
      {"29", "First Track Buffer: "}, {"2A", "Second Track Buffer: "},
      {"2B", "Third Track Buffer: "}, {"58", "ROM Version: "},
      {"59", "Status Request: "},     {"95", "Transport Count: "},
      {"96", "Print Count: "},
  };
  for (const auto& [command, label] : rows) EXPECT_EQ(ReplyLabel(command), label) << command;
}

TEST(ReplyLabel, IsEmptyForEveryOtherCommand) {
  for (const char* command : {"20", "24", "28", "2C", "31", "40", "54", "5F", "94", "97", "", "2a"})
    EXPECT_EQ(ReplyLabel(command), "") << command;
}

}  // namespace
}  // namespace vantrel::link
