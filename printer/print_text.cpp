#include "printer/print_text.h"

#include "printer/fields.h"

#include <algorithm>

namespace vantrel {
namespace {

// One ESC sequence: ESC, its letter, and a value of a fixed number of digits.
struct EscapeRow {
  char letter;
  bool either_case;
  std::size_t digits;
  int base;  // of the digits, 10 or 16
  int lowest;
  int highest;
};

// The ranges of X and Y depend on the direction; they stand here for horizontal text.
constexpr EscapeRow kEscapes[] = {
    {'E', true, 2, 10, 11, 22},  // size: vertical, then horizontal factor
    {'G', false, 1, 16, 0, 15},  // external character, 24 dot two-byte
    {'g', false, 1, 16, 0, 15},  // external character, 24 dot one-byte
    {'I', false, 1, 16, 0, 15},  // external character, 16 dot two-byte
    {'i', false, 1, 16, 0, 15},  // external character, 16 dot one-byte
    {'D', false, 1, 16, 0, 15},  // gap right of two-byte characters
    {'d', false, 1, 16, 0, 15},  // gap right of one-byte characters
    {'S', false, 2, 10, 0, 29},  // to the right by two-byte characters
    {'s', false, 2, 10, 0, 59},  // to the right by one-byte characters
    {'B', true, 1, 10, 0, 2},    // line width of one-byte characters
    {'F', true, 1, 10, 0, 1},    // 24 or 16 dots
    {'J', true, 1, 10, 0, 1},    // one-byte characters as such or as wide ones
    {'L', true, 2, 10, 0, 19},   // down by lines
    {'M', true, 1, 16, 0, 15},   // gap between lines
    {'V', true, 1, 10, 1, 2},    // height
    {'W', true, 1, 10, 1, 2},    // width
    {'X', true, 3, 10, 0, kFaceWidth - 1},
    {'Y', true, 3, 10, 0, kFaceHeight - 1},
};

char UpperCase(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

const EscapeRow* FindEscape(char letter) {
  for (const EscapeRow& row : kEscapes) {
    if (letter == row.letter || (row.either_case && UpperCase(letter) == row.letter)) return &row;
  }
  return nullptr;
}

int HighestOf(const EscapeRow& row, bool vertical) {
  if (vertical && row.letter == 'X') return kFaceHeight - 1;
  if (vertical && row.letter == 'Y') return kFaceWidth - 1;
  return row.highest;
}

// `text` begins behind the ESC.
std::optional<TextItem> ParseEscape(std::string_view text, bool vertical, std::size_t& length) {
  const EscapeRow* row = text.empty() ? nullptr : FindEscape(text.front());
  if (row == nullptr || text.size() < 1 + row->digits) return std::nullopt;
  int value = 0;
  for (const char character : text.substr(1, row->digits)) {
    const auto digit = HexDigitOf(character);
    if (!digit || *digit >= row->base) return std::nullopt;
    value = value * row->base + *digit;
  }
  if (value < row->lowest || value > HighestOf(*row, vertical)) return std::nullopt;
  // Of 11 to 22 only those of the digits 1 and 2 are sizes.
  if (row->letter == 'E' && (value % 10 < 1 || value % 10 > 2)) return std::nullopt;
  length = 1 + row->digits;
  return TextItem{row->letter, value, {}};
}

bool IsControl(char character) { return static_cast<unsigned char>(character) < 0x20; }

class TextPainter {
 public:
  TextPainter(Page& page, const TextSetting& setting)
      : page_(page), setting_(setting), line_start_(setting.x), x_(setting.x), y_(setting.y) {}

  // False where a character does not fit.
  bool Draw(const TextItem& item) {
    if (item.letter == '\0') return DrawCharacters(item.text);
    switch (item.letter) {
      case 'G':
        return DrawRegistered(setting_.registers.double_byte_characters, item.value, 24, true);
      case 'I':
        return DrawRegistered(setting_.registers.double_byte_characters, item.value, 16, true);
      case 'g':
        return DrawRegistered(setting_.registers.single_byte_characters, item.value, 24, false);
      case 'i':
        return DrawRegistered(setting_.registers.single_byte_characters, item.value, 16, false);
      default:
        Obey(item.letter, item.value);
        return true;
    }
  }

 private:
  // Far outside any page, so that a sum of many moves stays a number.
  static constexpr int kFarOutside = 10000;

  void Obey(char letter, int value) {
    switch (letter) {
      case '\r':
        x_ = line_start_;
        break;
      case '\n':
        MoveDown(1);
        break;
      case 'E':
        heighten_ = value / 10;
        widen_ = value % 10;
        break;
      case 'V':
        heighten_ = value;
        break;
      case 'W':
        widen_ = value;
        break;
      case 'D':
        wide_gap_ = value;
        break;
      case 'd':
        narrow_gap_ = value;
        break;
      case 'S':
        MoveRight(value * Advance(style_.height, true));
        break;
      case 's':
        MoveRight(value * Advance(style_.height / 2, false));
        break;
      case 'B':
        style_.weight = value;
        break;
      case 'F':
        style_.height = value == 1 ? 24 : 16;
        break;
      case 'J':
        wide_forms_ = value == 0;
        break;
      case 'L':
        MoveDown(value);
        break;
      case 'M':
        line_gap_ = value;
        break;
      case 'X':
        x_ = line_start_ = value;
        break;
      case 'Y':
        y_ = value;
        break;
      default:
        break;
    }
  }

  bool DrawCharacters(std::string_view text) {
    for (const CodedCharacter& coded : DecodeCharacters(text, setting_.code_page)) {
      GlyphStyle style = style_;
      style.wide = coded.bytes == 2;
      char32_t character = coded.character;
      // Only the Japanese character set has wide forms of the one-byte characters.
      if (wide_forms_ && setting_.code_page == CodePage::kJapanese && character >= 0x20 &&
          character < 0x7F) {
        style.wide = true;
        character = character == 0x20 ? 0x3000 : character - 0x21 + 0xFF01;
      }
      if (style.wide) style.weight = 0;
      if (!Put(setting_.fonts.Glyph(character, style), style.wide)) return false;
    }
    return true;
  }

  // A register that holds no character of that size prints as a blank of it.
  bool DrawRegistered(const std::array<std::optional<Bitmap>, kRegisters>& registered, int number,
                      int height, bool wide) {
    const auto& character = registered.at(static_cast<std::size_t>(number));
    if (character && character->Height() == height) return Put(*character, wide);
    return Put(Bitmap(wide ? height : height / 2, height), wide);
  }

  bool Put(const Bitmap& cell, bool wide) {
    if (!page_.Put(cell, x_, y_, widen_, heighten_)) return false;
    MoveRight(Advance(cell.Width(), wide));
    return true;
  }

  int Advance(int width, bool wide) const {
    return width * widen_ + (wide ? wide_gap_ : narrow_gap_);
  }
  void MoveRight(int dots) { x_ = std::min(x_ + dots, kFarOutside); }
  void MoveDown(int lines) {
    y_ = std::min(y_ + lines * (style_.height * heighten_ + line_gap_), kFarOutside);
  }

  Page& page_;
  const TextSetting& setting_;
  GlyphStyle style_;
  bool wide_forms_ = false;
  int widen_ = 1;
  int heighten_ = 1;
  int narrow_gap_ = 0;
  int wide_gap_ = 0;
  int line_gap_ = 0;
  int line_start_;
  int x_;
  int y_;
};

}  // namespace

std::optional<std::vector<TextItem>> ParsePrintText(std::string_view text, bool vertical) {
  std::vector<TextItem> items;
  while (!text.empty()) {
    const char first = text.front();
    std::size_t length = 1;
    if (first == kEscape) {
      const auto item = ParseEscape(text.substr(1), vertical, length);
      if (!item) return std::nullopt;
      items.push_back(*item);
      ++length;
    } else if (first == '\r' || first == '\n') {
      items.push_back({first, 0, {}});
    } else if (IsControl(first)) {
      return std::nullopt;
    } else {
      const auto end = std::find_if(text.begin(), text.end(), IsControl);
      length = static_cast<std::size_t>(end - text.begin());
      items.push_back({'\0', 0, text.substr(0, length)});
    }
    text.remove_prefix(length);
  }
  return items;
}

bool DrawPrintText(Page& page, const TextSetting& setting, const std::vector<TextItem>& items) {
  TextPainter painter(page, setting);
  return std::all_of(items.begin(), items.end(),
                     [&painter](const TextItem& item) { return painter.Draw(item); });
}

}  // namespace vantrel
