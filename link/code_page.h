// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::link {

// The code page in which text travels over the line, by its number. A printer has that of the
// country it is made for.
enum class CodePage {
  kJapanese = 932,            // characters of one byte and of two
  kSimplifiedChinese = 936,   // characters of one byte and of two
  kKorean = 949,              // characters of one byte and of two
  kTraditionalChinese = 950,  // characters of one byte and of two
  kWestern = 1252,            // characters of one byte alone
};

// The code page of that number, such as 932; nothing where it is none of these.
std::optional<CodePage> CodePageOfNumber(int number);

// The code page of a locale name such as "ja_JP.UTF-8" or "zh_TW": Japanese, simplified and
// traditional Chinese and Korean have their own, every other name (also "C" and an empty one) the
// Western one.
CodePage CodePageOfLocale(std::string_view locale_name);

// The code page of the system's language, read from the locale categories as POSIX ranks them:
// LC_ALL, LC_CTYPE, LANG. The Western one where none of them is set.
CodePage SystemCodePage();

// Converts UTF-8 text to the bytes of a code page. A character that the page lacks, and a byte that
// is not UTF-8, becomes one "?". Never throws for bad text; throws std::runtime_error where the
// system lacks the code page.
std::string EncodeText(std::string_view utf8, CodePage page);

// The bytes of UTF-8 text in the code page as hex text, as the data of a frame is composed of: two
// upper-case digits for a character of one byte, four for one of two bytes ("A1" gives "4131").
// What the page lacks becomes "?" (3F). Throws as EncodeText does.
std::string StrToHex(std::string_view text, CodePage page);

// Converts bytes to UTF-8, one character a byte: the code page's character where that single byte
// is one, else the character U+0000 to U+00FF of the byte's value. Throws std::runtime_error where
// the system lacks the code page.
std::string DecodeBytes(std::string_view bytes, CodePage page);

// One character of coded text, and the room it takes there.
struct CodedCharacter {
  char32_t character = 0;  // U+FFFD where the code page has none
  int bytes = 1;           // how many bytes it took, 1 or 2

  // Whether both are the same character in as many bytes.
  bool operator==(const CodedCharacter&) const = default;
};

// Splits bytes into the characters of a code page, those of two bytes included, in their order. A
// single byte that is none becomes the character U+0000 to U+00FF of its value. Throws
// std::runtime_error where the system lacks the code page.
std::vector<CodedCharacter> DecodeCharacters(std::string_view bytes, CodePage page);

}  // namespace vantrel::link
