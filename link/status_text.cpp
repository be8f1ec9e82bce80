// SPDX-License-Identifier: MIT

#include "link/status_text.h"

#include "link/frame.h"

namespace vantrel::link {
namespace {

constexpr unsigned kNormalStatus = 0x20;

}  // namespace

std::string_view StatusText(unsigned status) {
  switch (status) {
    case kNormalStatus:
      return "20h: Normal Status";
    case 0x22:
      return "22h: No targeted Card";
    case 0x23:
      return "23h: No magnetic stripe or other error";
    case 0x31:
      return "31h: Parity Error";
    case 0x32:
      return "32h: No Start code or End code";
    case 0x33:
      return "33h: LRC Error";
    case 0x34:
      return "34h: Erroneous character";
    case 0x37:
      return "37h: Magnetic Stripe writing error";
    case 0x38:
      return "38h: Card jam";
    case 0x40:
      return "40h: Cover open";
    case 0x41:
      return "41h: Invalid command";
    case 0x42:
      return "42h: CAM motor error";
    case 0x43:
      return "43h: Erase head temperature error";
    case 0x45:
      return "45h: EEPROM error";
    case 0x4C:
      return "4Ch: Non-Compatible BMP file data";
    case 0x51:
      return "51h: Expansion buffer overflow error";
    default:
      return "Unknown response";
  }
}

unsigned ReplyStatus(std::string_view receive_buffer) { return HexPair(receive_buffer, 6); }

std::string ReplyData(std::string_view receive_buffer) {
  // Characters 0-7 are 06h, STX, command and status; the last four are ETX and the block check.
  std::string data;
  for (std::size_t i = 8; i + 4 < receive_buffer.size(); i += 2)
    data += static_cast<char>(HexPair(receive_buffer, i));
  return data;
}

std::string ReplyMeaning(std::string_view label, std::string_view receive_buffer, CodePage page) {
  std::string meaning(label);
  const unsigned status = ReplyStatus(receive_buffer);
  if (status != kNormalStatus || label.empty()) meaning += StatusText(status);
  return meaning + DecodeBytes(ReplyData(receive_buffer), page);
}

}  // namespace vantrel::link
