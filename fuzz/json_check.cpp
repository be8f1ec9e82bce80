// SPDX-License-Identifier: MIT

#include "fuzz/json_check.h"

#include "log/json_text.h"

#include <cstddef>
#include <cstdlib>

namespace vantrel::fuzz {
namespace {

// A reader of JSON that takes nothing but what the standard allows; blanks are not looked for,
// since the programs write none.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  bool IsAtEnd() const { return rest_.empty(); }

  bool Object() {
    return Takes("{") && List("}", [this] { return String() && Takes(":") && Value(); });
  }

  // `text` gets what the string stands for.
  bool String(std::string* text = nullptr) {
    if (!Takes("\"")) return false;
    while (!rest_.empty()) {
      const char first = rest_.front();
      rest_.remove_prefix(1);
      if (first == '"') return true;
      if (static_cast<unsigned char>(first) < 0x20) return false;
      if (first != '\\') {
        if (text != nullptr) *text += first;
      } else if (!Escape(text)) {
        return false;
      }
    }
    return false;
  }

 private:
  bool Takes(std::string_view wanted) {
    if (!rest_.starts_with(wanted)) return false;
    rest_.remove_prefix(wanted.size());
    return true;
  }

  template <typename Item>
  bool List(std::string_view end, const Item& item) {
    if (Takes(end)) return true;
    do {
      if (!item()) return false;
    } while (Takes(","));
    return Takes(end);
  }

  bool Value() {
    if (rest_.starts_with('{')) return Object();
    if (rest_.starts_with('"')) return String();
    if (Takes("[")) return List("]", [this] { return Value(); });
    return Takes("null") || Takes("true") || Takes("false") || Number();
  }

  bool Digits() {
    const std::size_t count = rest_.find_first_not_of("0123456789");
    if (count == 0 || rest_.empty()) return false;
    rest_.remove_prefix(count == std::string_view::npos ? rest_.size() : count);
    return true;
  }

  bool Number() {
    Takes("-");
    if (!Takes("0") && !Digits()) return false;
    if (Takes(".") && !Digits()) return false;
    if (!Takes("e") && !Takes("E")) return true;
    if (!Takes("+")) Takes("-");
    return Digits();
  }

  // Behind the backslash. The programs write no number past 007Fh.
  bool Escape(std::string* text) {
    constexpr std::string_view kShort = "\"\\/bfnrt";
    constexpr std::string_view kMeant = "\"\\/\b\f\n\r\t";
    if (rest_.empty()) return false;
    const std::size_t at = kShort.find(rest_.front());
    if (at != std::string_view::npos) {
      rest_.remove_prefix(1);
      if (text != nullptr) *text += kMeant[at];
      return true;
    }
    if (!Takes("u00") || rest_.size() < 2) return false;
    int value = 0;
    for (const char digit : rest_.substr(0, 2)) {
      const std::size_t number = std::string_view("0123456789ABCDEF").find(digit);
      if (number == std::string_view::npos) return false;
      value = value * 16 + static_cast<int>(number);
    }
    rest_.remove_prefix(2);
    if (value > 0x7F) return false;
    if (text != nullptr) *text += static_cast<char>(value);
    return true;
  }

  std::string_view rest_;
};

}  // namespace

bool IsJsonLine(std::string_view text) {
  Reader reader(text);
  return reader.Object() && reader.IsAtEnd() && log::ValidUtf8(text) == text &&
         text.find_first_of("\r\n") == std::string_view::npos;
}

std::string TextOfJson(std::string_view quoted) {
  Reader reader(quoted);
  std::string text;
  if (!reader.String(&text) || !reader.IsAtEnd()) std::abort();
  return text;
}

}  // namespace vantrel::fuzz
