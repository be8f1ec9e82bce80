// SPDX-License-Identifier: MIT
#pragma once

#include "link/code_page.h"

#include <string>
#include <string_view>

namespace vantrel::link {

// A printer's status code, 0 to 255, in words ("22h: No targeted Card"); "Unknown response" for a
// code that has none.
std::string_view StatusText(unsigned status);

// The status, 0 to 255, of a good reply held as hex text in `receive_buffer` (06h to block check):
// one that JudgeReply calls complete. 0 where the text is too short to hold one.
unsigned ReplyStatus(std::string_view receive_buffer);
// The bytes of a good reply's data, one character a byte; empty where it has none.
std::string ReplyData(std::string_view receive_buffer);

// The meaning of a good reply held as hex text in `receive_buffer` (06h to block check): the label,
// the status in words, and the data, each byte as one character of the code page, unprintable ones
// included. The normal status 20h is put into words only when the label is empty; with a label the
// data follow it directly. Throws std::runtime_error where the
// system lacks the code page.
std::string ReplyMeaning(std::string_view label, std::string_view receive_buffer, CodePage page);

}  // namespace vantrel::link
