// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vantrel::editors {

// `text` written `times` times.
inline std::string Times(int times, std::string_view text) {
  std::string result;
  for (int i = 0; i < times; ++i) result += text;
  return result;
}

}  // namespace vantrel::editors
