#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vantrel {

// The fields of a command's data, each ended by a comma, one after the other.
class FieldReader {
 public:
  explicit FieldReader(std::string_view data) : rest_(data) {}

  // The next field; nothing, and the data untouched, where no comma ends one.
  std::optional<std::string_view> Text();
  // The next field as a decimal number; nothing where it is none of 0 to `highest`.
  std::optional<int> Number(int highest);
  // The next field as one character; nothing where it has more or fewer.
  std::optional<char> Character();
  // What comes after the fields read.
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

// The value of one or more decimal digits, leading zeros allowed; nothing for any other text and
// for more than `highest`.
std::optional<int> NumberOf(std::string_view digits, int highest);

// The value, 0 to 15, of a hex digit of either case.
std::optional<int> HexDigitOf(char digit);

// Whether a text is one or more pairs of hex digits.
bool IsHexPairs(std::string_view text);

}  // namespace vantrel
