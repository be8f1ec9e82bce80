#include "send/json.h"

#include <array>
#include <cstdio>

namespace vantrel::send {
namespace {

// The length of the UTF-8 character at the start of a text; 0 where there is none.
std::size_t CharacterLength(std::string_view text) {
  const auto at = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = at(0);
  if (lead < 0x80) return 1;
  std::size_t length = 0;
  if (lead >= 0xC2 && lead < 0xE0) length = 2;
  if (lead >= 0xE0 && lead < 0xF0) length = 3;
  if (lead >= 0xF0 && lead < 0xF5) length = 4;
  if (length == 0 || length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i)
    if ((at(i) & 0xC0) != 0x80) return 0;
  // Written too long, a surrogate, beyond the last character.
  if ((lead == 0xE0 && at(1) < 0xA0) || (lead == 0xED && at(1) >= 0xA0) ||
      (lead == 0xF0 && at(1) < 0x90) || (lead == 0xF4 && at(1) >= 0x90))
    return 0;
  return length;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : ValidUtf8(text)) {
    const auto code = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
      quoted += '\\';
      quoted += character;
    } else if (code < 0x20 || code == 0x7F) {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04X", static_cast<unsigned>(code));
      quoted += escape.data();
    } else {
      quoted += character;
    }
  }
  return quoted + '"';
}

}  // namespace

std::string ValidUtf8(std::string_view text) {
  std::string valid;
  while (!text.empty()) {
    const std::size_t length = CharacterLength(text);
    valid += length > 0 ? text.substr(0, length) : std::string_view("\uFFFD");
    text.remove_prefix(length > 0 ? length : 1);
  }
  return valid;
}

JsonObject& JsonObject::AddRaw(std::string_view name, std::string_view value) {
  if (!members_.empty()) members_ += ", ";
  members_ += Quoted(name);
  members_ += ": ";
  members_ += value;
  return *this;
}

JsonObject& JsonObject::Add(std::string_view name, std::string_view text) {
  return AddRaw(name, Quoted(text));
}

JsonObject& JsonObject::Add(std::string_view name, long number) {
  return AddRaw(name, std::to_string(number));
}

JsonObject& JsonObject::Add(std::string_view name, double number) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.3f", number);
  return AddRaw(name, text.data());
}

JsonObject& JsonObject::Add(std::string_view name, const JsonObject& object) {
  return AddRaw(name, object.Text());
}

JsonObject& JsonObject::AddNull(std::string_view name) { return AddRaw(name, "null"); }

}  // namespace vantrel::send
