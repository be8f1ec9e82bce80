#pragma once

#include "link/code_page.h"

#include <string>
#include <string_view>

namespace vantrel::link {

// A printer status code in words ("22h: No targeted Card"); "Unknown response" for a code that has
// none.
std::string_view StatusText(unsigned status);

// The status of a good reply held as hex text in `receive_buffer` (06h to block check), and the
// bytes of its data.
unsigned ReplyStatus(std::string_view receive_buffer);
std::string ReplyData(std::string_view receive_buffer);

// The meaning of a good reply held as hex text in `receive_buffer` (06h to block check): the label,
// the status in words, and the data, each byte as one character of the code page, unprintable ones
// included. The normal status 20h is put into words only when the label is empty; with a label the
// data follow it directly.
std::string ReplyMeaning(std::string_view label, std::string_view receive_buffer, CodePage page);

}  // namespace vantrel::link
