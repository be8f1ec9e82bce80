// SPDX-License-Identifier: MIT

#include "console/code_entry.h"

#include <cctype>

namespace vantrel::console {

std::optional<std::string> CodeEntry::Type(char digit, std::chrono::milliseconds now) {
  const char typed = static_cast<char>(std::toupper(static_cast<unsigned char>(digit)));
  const bool in_time = first_ != 0 && now - typed_ <= kPatience;
  typed_ = now;
  if (!in_time) {
    first_ = typed;
    return {};
  }
  const std::string code{first_, typed};
  first_ = 0;
  second_ = typed;
  return code;
}

}  // namespace vantrel::console
