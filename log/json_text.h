// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vantrel::log {

// A text in double quotes as JSON has it. What is no UTF-8 in it is shown as U+FFFD.
std::string JsonText(std::string_view text);

// UTF-8 text with every byte that is none as U+FFFD.
std::string ValidUtf8(std::string_view text);

}  // namespace vantrel::log
