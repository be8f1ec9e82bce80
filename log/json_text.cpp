// SPDX-License-Identifier: MIT

#include "log/json_text.h"

#include <algorithm>
#include <cstdint>

namespace vantrel::log {
namespace {

// The length of the character that a text begins with, in bytes; 0 where it is no UTF-8.
std::size_t LengthOfCharacter(std::string_view text) {
  const auto byte = [text](std::size_t at) {
    return at < text.size() ? static_cast<std::uint8_t>(text[at]) : std::uint8_t{0};
  };
  const std::uint8_t first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
  }
  // Forms that are too long, surrogates, and what is past the last character.
  const bool wrong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xED && byte(1) > 0x9F) ||
                     (first == 0xF0 && byte(1) < 0x90) || (first == 0xF4 && byte(1) > 0x8F);
  return wrong ? 0 : length;
}

void AddEscaped(std::string& out, char character) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto value = static_cast<std::uint8_t>(character);
  out += "\\u00";
  out += kDigits[value >> 4];
  out += kDigits[value & 0xF];
}

// Whether a text is the same in JSON; nearly every one is.
bool IsPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char character) {
    return character >= 0x20 && character < 0x7F && character != '"' && character != '\\';
  });
}

}  // namespace

std::string ValidUtf8(std::string_view text) {
  std::string valid;
  while (!text.empty()) {
    const std::size_t length = LengthOfCharacter(text);
    valid += length > 0 ? text.substr(0, length) : std::string_view("\uFFFD");
    text.remove_prefix(length > 0 ? length : 1);
  }
  return valid;
}

std::string JsonText(std::string_view text) {
  std::string out = "\"";
  if (IsPlain(text)) return out.append(text) + '"';
  for (const char character : ValidUtf8(text)) {
    if (character == '"' || character == '\\') {
      out += '\\';
      out += character;
    } else if (static_cast<std::uint8_t>(character) < 0x20 || character == 0x7F) {
      AddEscaped(out, character);
    } else {
      out += character;
    }
  }
  return out + '"';
}

}  // namespace vantrel::log
