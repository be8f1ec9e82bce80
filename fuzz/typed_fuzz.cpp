// SPDX-License-Identifier: MIT

// Any text as a person types it into a field: the number that it begins with is the one that the C
// library reads, and in every code page it becomes bytes that stand for one text.

#include "fuzz/target.h"
#include "link/code_page.h"
#include "link/common.h"
#include "link/frame.h"
#include "link/typed_number.h"
#include "log/json_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::fuzz {
namespace {

// strtod on the text up to its first character that is in no decimal number, so that it meets
// neither its hexadecimal form nor its words for what is no number. It knows one exponent letter.
double NumberOf(std::string_view text) {
  std::string number(text.substr(0, text.find_first_not_of(" +-.0123456789eEdD")));
  std::replace(number.begin(), number.end(), 'd', 'e');
  std::replace(number.begin(), number.end(), 'D', 'e');
  return std::strtod(number.c_str(), nullptr);
}

void CheckNumber(std::string_view text) {
  const double number = link::LeadingNumber(text);
  if (number != NumberOf(text)) std::abort();
  const auto integer = link::TypedInteger(text);
  if (integer.has_value() != (number >= -32768.5 && number < 32767.5)) std::abort();
  if (integer) {
    const double distance = std::abs(number - *integer);
    if (distance > 0.5 || (distance == 0.5 && *integer % 2 != 0)) std::abort();
    if (*integer >= 0 &&
        link::BinToDec(link::DecToBin(*integer)) != std::to_string(*integer & 0xFF))
      std::abort();
  }
  if (link::EqualsTwo(text) && number != 2) std::abort();
  try {
    const std::string decimal = link::BinToDec(text);
    if (decimal.empty() || decimal.find_first_not_of("0123456789") != std::string::npos)
      std::abort();
  } catch (const std::overflow_error&) {
    if (text.size() < 28) std::abort();  // 27 places of nines are less than 2147483647
  }
}

void Append(std::string& utf8, char32_t character) {
  const auto put = [&utf8](char32_t byte) { utf8 += static_cast<char>(byte); };
  if (character < 0x80) return put(character);
  if (character < 0x800) {
    put(0xC0 | character >> 6);
  } else {
    if (character < 0x10000) {
      put(0xE0 | character >> 12);
    } else {
      put(0xF0 | character >> 18);
      put(0x80 | (character >> 12 & 0x3F));
    }
    put(0x80 | (character >> 6 & 0x3F));
  }
  put(0x80 | (character & 0x3F));
}

// Bytes are taken apart without loss and, as text, have one character each.
std::vector<link::CodedCharacter> TakeApart(std::string_view bytes, link::CodePage page) {
  std::vector<link::CodedCharacter> characters = link::DecodeCharacters(bytes, page);
  std::size_t taken = 0;
  for (const link::CodedCharacter& each : characters) taken += static_cast<std::size_t>(each.bytes);
  if (taken != bytes.size()) std::abort();
  const std::string text = link::DecodeBytes(bytes, page);
  const auto count = std::count_if(text.begin(), text.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80;
  });
  if (log::ValidUtf8(text) != text || static_cast<std::size_t>(count) != bytes.size()) std::abort();
  return characters;
}

void CheckPage(std::string_view text, link::CodePage page) {
  TakeApart(text, page);
  const std::string bytes = link::EncodeText(text, page);
  if (bytes.size() > text.size()) std::abort();
  if (link::StrToHex(text, page) != link::HexTextOf(link::Bytes(bytes.begin(), bytes.end())))
    std::abort();
  // What was encoded is read as a text that is encoded in the same way.
  std::string read;
  for (const link::CodedCharacter& each : TakeApart(bytes, page)) Append(read, each.character);
  if (link::EncodeText(read, page) != bytes) std::abort();
}

}  // namespace
}  // namespace vantrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vantrel::link::CodePage;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  vantrel::fuzz::CheckNumber(text);
  for (const CodePage page : {CodePage::kJapanese, CodePage::kSimplifiedChinese, CodePage::kKorean,
                              CodePage::kTraditionalChinese, CodePage::kWestern})
    vantrel::fuzz::CheckPage(text, page);
  return 0;
}
