// SPDX-License-Identifier: MIT

#include "printer/service/script_text.h"

#include "link/frame.h"

#include <algorithm>
#include <charconv>

namespace vantrel::printer {

namespace {

constexpr std::string_view kBlanks = " \t";

bool IsPrintable(char byte) { return byte >= 0x20 && byte <= 0x7E; }

}  // namespace

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::pair<std::string_view, std::string_view> Split(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(word.size());
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return {word, text};
}

std::optional<int> NumberIn(std::string_view text, int base) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<std::uint8_t> CodeIn(std::string_view text) {
  if (text.size() == 3 && (text[2] == 'h' || text[2] == 'H')) text.remove_suffix(1);
  const auto code = text.size() == 2 ? NumberIn(text, 16) : std::nullopt;
  if (!code || *code < 0) return std::nullopt;
  return static_cast<std::uint8_t>(*code);
}

std::optional<std::size_t> TrackIn(std::string_view text) {
  if (text.size() != 1 || text[0] < '1' || text[0] > '3') return std::nullopt;
  return static_cast<std::size_t>(text[0] - '1');
}

std::optional<std::string> PathIn(std::string_view text) {
  text = Trimmed(text);
  if (text.starts_with('"')) {
    if (text.size() < 2 || !text.ends_with('"')) return std::nullopt;
    text = text.substr(1, text.size() - 2);
  }
  if (text.empty() || text.find('\0') != std::string_view::npos) return std::nullopt;
  return std::string(text);
}

std::string Escaped(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    if (byte == '\\')
      text += "\\\\";
    else if (!IsPrintable(byte))
      text += "\\x" + link::HexOf(static_cast<std::uint8_t>(byte));
    else
      text += byte;
  }
  return text;
}

std::optional<std::string> Unescaped(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    std::size_t length = 1;
    char byte = text[0];
    if (text.starts_with("\\\\")) {
      length = 2;
    } else if (byte == '\\') {
      const auto value = text.starts_with("\\x") ? NumberIn(text.substr(2, 2), 16) : std::nullopt;
      if (!value || text.size() < 4 || *value < 0) return std::nullopt;
      byte = static_cast<char>(*value);
      length = 4;
    }
    bytes += byte;
    text.remove_prefix(length);
  }
  return bytes;
}

}  // namespace vantrel::printer
