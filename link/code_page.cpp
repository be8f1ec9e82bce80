// SPDX-License-Identifier: MIT

#include "link/code_page.h"

#include "link/frame.h"

#include <iconv.h>

#include <cerrno>
#include <cstdlib>
#include <optional>
#include <stdexcept>

namespace vantrel::link {
namespace {

class Converter {
 public:
  Converter(const std::string& to, const std::string& from)
      : handle_(iconv_open(to.c_str(), from.c_str())) {
    // iconv_open's failure value is the handle -1. NOLINTNEXTLINE(performance-no-int-to-ptr)
    if (handle_ == reinterpret_cast<iconv_t>(-1))
      throw std::runtime_error("The system cannot convert text from " + from + " to " + to + ".");
  }
  ~Converter() { iconv_close(handle_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // Appends what `input` converts to; returns how many bytes of it were taken before the first that
  // cannot be.
  std::size_t Convert(std::string_view input, std::string& output) {
    char* from = const_cast<char*>(input.data());
    std::size_t left = input.size();
    while (left > 0) {
      char buffer[256];
      char* to = buffer;
      std::size_t room = sizeof buffer;
      const std::size_t result = iconv(handle_, &from, &left, &to, &room);
      output.append(buffer, sizeof buffer - room);
      if (result == static_cast<std::size_t>(-1) && errno != E2BIG) break;
    }
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    return input.size() - left;
  }

 private:
  iconv_t handle_;
};

std::string NameOf(CodePage page) { return "CP" + std::to_string(static_cast<int>(page)); }

// The length in bytes of the UTF-8 character at the start of `text`; 1 for a byte that starts none.
std::size_t CharacterLength(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  std::size_t length = 1;
  if (lead >= 0xC2 && lead < 0xE0) length = 2;
  if (lead >= 0xE0 && lead < 0xF0) length = 3;
  if (lead >= 0xF0 && lead < 0xF5) length = 4;
  if (length > text.size()) return 1;
  for (std::size_t i = 1; i < length; ++i)
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 1;
  return length;
}

// Whether a byte begins a character of two.
bool IsLeadByte(unsigned char byte, CodePage page) {
  switch (page) {
    case CodePage::kWestern:
      return false;
    case CodePage::kJapanese:
      return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    default:
      return byte >= 0x81 && byte <= 0xFE;
  }
}

// The character that a converter to UTF-32LE makes of one or two bytes; nothing where it is none.
std::optional<char32_t> CharacterOf(Converter& converter, std::string_view bytes) {
  std::string units;
  if (converter.Convert(bytes, units) != bytes.size() || units.size() < 4) return std::nullopt;
  char32_t character = 0;
  for (std::size_t i = 4; i > 0; --i)
    character = character << 8 | static_cast<unsigned char>(units[i - 1]);
  return character;
}

bool StartsWith(std::string_view text, std::string_view start) { return text.starts_with(start); }

}  // namespace

std::optional<CodePage> CodePageOfNumber(int number) {
  for (const CodePage page : {CodePage::kJapanese, CodePage::kSimplifiedChinese, CodePage::kKorean,
                              CodePage::kTraditionalChinese, CodePage::kWestern}) {
    if (static_cast<int>(page) == number) return page;
  }
  return std::nullopt;
}

CodePage CodePageOfLocale(std::string_view locale_name) {
  if (StartsWith(locale_name, "ja")) return CodePage::kJapanese;
  if (StartsWith(locale_name, "ko")) {
    // "kok" (Konkani) is another language.
    return StartsWith(locale_name, "kok") ? CodePage::kWestern : CodePage::kKorean;
  }
  if (StartsWith(locale_name, "zh")) {
    for (const std::string_view place : {"TW", "HK", "MO", "Hant"})
      if (locale_name.find(place) != std::string_view::npos) return CodePage::kTraditionalChinese;
    return CodePage::kSimplifiedChinese;
  }
  return CodePage::kWestern;
}

CodePage SystemCodePage() {
  for (const char* category : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* value = std::getenv(category);
    if (value != nullptr && *value != '\0') return CodePageOfLocale(value);
  }
  return CodePage::kWestern;
}

std::string EncodeText(std::string_view utf8, CodePage page) {
  Converter converter(NameOf(page), "UTF-8");
  std::string bytes;
  while (!utf8.empty()) {
    utf8.remove_prefix(converter.Convert(utf8, bytes));
    if (utf8.empty()) break;
    bytes += '?';
    utf8.remove_prefix(CharacterLength(utf8));
  }
  return bytes;
}

std::string StrToHex(std::string_view text, CodePage page) {
  std::string hex;
  for (const char byte : EncodeText(text, page)) hex += HexOf(static_cast<std::uint8_t>(byte));
  return hex;
}

std::string DecodeBytes(std::string_view bytes, CodePage page) {
  Converter converter("UTF-8", NameOf(page));
  std::string utf8;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto code = static_cast<unsigned char>(bytes[i]);
    if (code < 0x80) {
      utf8 += bytes[i];
    } else if (converter.Convert(bytes.substr(i, 1), utf8) == 0) {
      utf8 += static_cast<char>(0xC0 | (code >> 6));
      utf8 += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return utf8;
}

std::vector<CodedCharacter> DecodeCharacters(std::string_view bytes, CodePage page) {
  constexpr unsigned char kLowestTrailByte = 0x40;
  constexpr char32_t kReplacement = 0xFFFD;
  std::optional<Converter> converter;  // plain ASCII needs none
  std::vector<CodedCharacter> characters;
  characters.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto code = static_cast<unsigned char>(bytes[i]);
    if (code < 0x80) {
      characters.push_back({code, 1});
      continue;
    }
    if (!converter) converter.emplace("UTF-32LE", NameOf(page));
    const bool pair = IsLeadByte(code, page) && i + 1 < bytes.size() &&
                      static_cast<unsigned char>(bytes[i + 1]) >= kLowestTrailByte;
    const std::size_t length = pair ? 2 : 1;
    const auto character = CharacterOf(*converter, bytes.substr(i, length));
    characters.push_back({character.value_or(pair ? kReplacement : code), pair ? 2 : 1});
    i += length - 1;
  }
  return characters;
}

}  // namespace vantrel::link
