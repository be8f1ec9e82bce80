// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vantrel::printer {

// What was got, in quotation marks for an error: at most 60 characters of it, with "..." where it
// goes on, and \xHH for what is neither printable nor UTF-8.
std::string Quoted(std::string_view text, char mark = '"');

}  // namespace vantrel::printer
