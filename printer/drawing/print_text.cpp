// SPDX-License-Identifier: MIT

#include "printer/drawing/print_text.h"

#include <algorithm>

namespace vantrel::printer {
namespace {

class TextPainter {
 public:
  TextPainter(Page& page, const TextSetting& setting)
      : page_(page), setting_(setting), line_start_(setting.x), x_(setting.x), y_(setting.y) {}

  // False where a character does not fit.
  bool Draw(const protocol::TextItem& item) {
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
    for (const link::CodedCharacter& coded : link::DecodeCharacters(text, setting_.code_page)) {
      GlyphStyle style = style_;
      style.wide = coded.bytes == 2;
      char32_t character = coded.character;
      // Only the Japanese character set has wide forms of the one-byte characters.
      if (wide_forms_ && setting_.code_page == link::CodePage::kJapanese && character >= 0x20 &&
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

bool DrawPrintText(Page& page, const TextSetting& setting,
                   const std::vector<protocol::TextItem>& items) {
  TextPainter painter(page, setting);
  return std::all_of(items.begin(), items.end(),
                     [&painter](const protocol::TextItem& item) { return painter.Draw(item); });
}

}  // namespace vantrel::printer
