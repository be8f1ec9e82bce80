// SPDX-License-Identifier: MIT

#include "link/reply.h"

#include "link/common.h"
#include "link/frame.h"

namespace vantrel::link {
namespace {

constexpr unsigned kAcknowledge = 0x06;
constexpr unsigned kRejectCharacter = 0x10;
constexpr unsigned kResendCharacter = 0x15;
constexpr unsigned kStx = 0x02;
constexpr unsigned kEtx = 0x03;

// Positions are characters: 0-1 the control character, 2-3 STX, 4-5 the command code, and from the
// end ETX and the block check.
bool AnswersFrame(std::string_view reply, std::string_view frame) {
  if (reply.size() <= 2) return false;
  if (reply.size() < 6 || frame.size() < 4) return false;
  const std::size_t etx = reply.size() - 4;
  return HexPair(reply, 2) == kStx && reply.substr(4, 2) == frame.substr(2, 2) &&
         HexPair(reply, etx) == kEtx &&
         reply.substr(etx + 2) == CalcBCC(reply.substr(2, reply.size() - 4));
}

}  // namespace

Judgement JudgeReply(std::string_view receive_buffer, std::string_view frame) {
  if (receive_buffer.size() < 2) return Judgement::kWait;
  switch (HexPair(receive_buffer, 0)) {
    case kAcknowledge:
      return AnswersFrame(receive_buffer, frame) ? Judgement::kComplete : Judgement::kWait;
    case kRejectCharacter:
      return Judgement::kReject;
    case kResendCharacter:
      return Judgement::kResend;
    default:
      return Judgement::kUnknown;
  }
}

std::string_view ReplyLabel(std::string_view command) {
  struct Row {
    std::string_view command;
    std::string_view label;
  };
  static constexpr Row kLabels[] = {
      {"21", "First Track: "},        {"25", "First Track: "},
      {"22", "Second Track: "},       {"26", "Second Track: "},
      {"23", "Third Track: "},        {"27", "Third Track: "},
      {"29", "First Track Buffer: "}, {"2A", "Second Track Buffer: "},
      {"2B", "Third Track Buffer: "}, {"58", "ROM Version: "},
      {"59", "Status Request: "},     {"95", "Transport Count: "},
      {"96", "Print Count: "},
  };
  for (const Row& row : kLabels)
    if (row.command == command) return row.label;
  return {};
}

}  // namespace vantrel::link
