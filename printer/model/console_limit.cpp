// SPDX-License-Identifier: MIT

#include "printer/model/console_limit.h"

namespace vantrel::printer {

using namespace std::chrono_literals;

// Consoles allow for a person who has to bring a card, and for the longest work.
std::chrono::milliseconds ConsoleLimitOf(std::uint8_t code) {
  switch (code) {
    case 0x21:
    case 0x22:
    case 0x23:
    case 0x29:
    case 0x2A:
    case 0x2B:
    case 0x31:
    case 0x32:
      return 20s;
    case 0x46:
    case 0x47:
    case 0x48:
      return 30s;
    case 0x52:
      return 1min;
    default:
      return 5s;
  }
}

}  // namespace vantrel::printer
