// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vantrel::link {

// What has been received of an answer so far comes to.
enum class Judgement {
  kWait,      // nothing yet, or 06h with no complete and correct frame behind it
  kComplete,  // 06h and the answer to the frame that was sent
  kReject,    // 10h
  kResend,    // 15h
  kUnknown,   // any other control character
};

// Judges what has been received so far against the frame that was sent, both in hex text. After 06h
// the reply is complete when its frame starts with STX, echoes the command code of `frame`, ends
// with ETX and carries a correct block check; a reply that fails is never reported, more bytes may
// still complete it. 10h, 15h and any other control character are judged by themselves, whatever
// follows. Never throws.
Judgement JudgeReply(std::string_view receive_buffer, std::string_view frame);

// The label that stands before a reply's data, by the command code that the reply carries ("21"
// gives "First Track: "). Empty for a command whose reply has no data of its own.
std::string_view ReplyLabel(std::string_view command);

}  // namespace vantrel::link
