// SPDX-License-Identifier: MIT

#include "printer/drawing/barcode.h"

#include "printer/drawing/page.h"

#include <zint.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <stdexcept>

namespace vantrel::printer {
namespace {

using Modules = std::vector<bool>;
using Type = protocol::Barcode::Type;

// Of the library, by Type.
constexpr std::array<int, 4> kSymbologies{BARCODE_CODE128, BARCODE_CODE39, BARCODE_C25INTER,
                                          BARCODE_CODABAR};

int SymbologyOf(Type type) { return kSymbologies.at(static_cast<std::size_t>(type)); }

// Code 128's symbol values that are no data.
constexpr int kCode99 = 99;
constexpr int kShift = 98;
constexpr int kCodeB = 100;
constexpr int kCodeA = 101;
constexpr int kFnc1 = 102;

// A symbol as the library encodes text.
class Symbol {
 public:
  Symbol(int symbology, std::string_view text) : symbol_(ZBarcode_Create()) {
    if (!symbol_) throw std::runtime_error("The barcode library cannot be started.");
    symbol_->symbology = symbology;
    const std::string copy(text);
    const int result =
        ZBarcode_Encode(symbol_.get(), reinterpret_cast<const unsigned char*>(copy.data()),
                        static_cast<int>(copy.size()));
    if (result >= ZINT_ERROR)
      throw std::runtime_error(std::string("The barcode cannot be made: ") + symbol_->errtxt);
  }

  Modules Row() const {
    Modules modules;
    for (int i = 0; i < symbol_->width; ++i)
      modules.push_back((symbol_->encoded_data[0][i / 8] >> (i % 8) & 1) != 0);
    return modules;
  }

  std::string Text() const { return reinterpret_cast<const char*>(symbol_->text); }

 private:
  struct End {
    void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
  };
  std::unique_ptr<zint_symbol, End> symbol_;
};

// The modules of every Code 128 character. The library encodes text, not symbol values; so each
// character is cut out of a symbol whose text is known to use it.
class Code128Characters {
 public:
  Code128Characters() {
    // Four digits are encoded in set C, two a character.
    for (int value = 0; value <= kCode99; ++value) {
      const std::string digits{static_cast<char>('0' + value / 10),
                               static_cast<char>('0' + value % 10)};
      values_[At(value)] = Cut(BARCODE_CODE128, "00" + digits, 2);
    }
    // From set C to set B for a small letter, to set A for a control character.
    values_[At(kCodeB)] = Cut(BARCODE_CODE128, "0000a", 3);
    values_[At(kCodeA)] = Cut(BARCODE_CODE128, "0000\n", 3);
    // Every GS1-128 symbol has FNC1 behind its start character.
    values_[At(kFnc1)] = Cut(BARCODE_GS1_128, "[01]00000000000000", 1);
    starts_ = {Cut(BARCODE_CODE128, "\n", 0), Cut(BARCODE_CODE128, "a", 0),
               Cut(BARCODE_CODE128, "0000", 0)};
    const Modules symbol = Symbol(BARCODE_CODE128, "a").Row();
    stop_.assign(symbol.end() - kStopWidth, symbol.end());
  }

  Modules Encode(char code_set, std::string_view values) const {
    const int set = code_set - 'A';
    Modules modules = starts_.at(At(set));
    constexpr int kStartA = 103;
    constexpr int kModulus = 103;
    int check = kStartA + set;
    int weight = 0;
    for (const char value : values) {
      check += ++weight * value;
      Append(modules, values_.at(At(value)));
    }
    Append(modules, values_.at(At(check % kModulus)));
    Append(modules, stop_);
    return modules;
  }

 private:
  static constexpr int kCharacterWidth = 11;
  static constexpr int kStopWidth = 13;

  static std::size_t At(int value) { return static_cast<std::size_t>(value); }
  static void Append(Modules& modules, const Modules& more) {
    modules.insert(modules.end(), more.begin(), more.end());
  }
  static Modules Cut(int symbology, const std::string& text, int position) {
    const Modules symbol = Symbol(symbology, text).Row();
    const auto start = symbol.begin() + std::ptrdiff_t{position} * kCharacterWidth;
    return {start, start + kCharacterWidth};
  }

  std::array<Modules, 103> values_;
  std::array<Modules, 3> starts_;
  Modules stop_;
};

// The character of a symbol value in set A or B, or nothing.
std::string CharacterOf(int value, char set) {
  constexpr int kFirstLetterOfB = 64;
  constexpr int kDelete = 95;
  if (value >= kDelete || (value >= kFirstLetterOfB && set == 'A')) return {};
  return {static_cast<char>(' ' + value)};
}

char SetAfter(int value, char set) {
  if (value == kCode99 && set != 'C') return 'C';
  if (value == kCodeB && set != 'B') return 'B';
  if (value == kCodeA && set != 'A') return 'A';
  return set;
}

std::string Code128Text(char set, std::string_view values) {
  std::string text;
  bool shifted = false;
  for (const char value : values) {
    if (set == 'C' && value <= kCode99) {
      text += static_cast<char>('0' + value / 10);
      text += static_cast<char>('0' + value % 10);
      continue;
    }
    const char other = set == 'A' ? 'B' : 'A';
    text += CharacterOf(value, shifted ? other : set);
    shifted = value == kShift && set != 'C' && !shifted;
    set = SetAfter(value, set);
  }
  return text;
}

constexpr int kDotsPerModule = 2;
constexpr int kQuietModules = 10;
constexpr int kSubscriptGap = 2;
constexpr GlyphStyle kSubscriptStyle{16, false, 0};

// A line of characters in the middle of a strip of `width` dots, below the gap.
Bitmap Subscript(std::string_view text, Fonts& fonts, int width) {
  constexpr int kCellWidth = 8;
  Bitmap strip(width, kSubscriptGap + kSubscriptStyle.height);
  int left = (width - kCellWidth * static_cast<int>(text.size())) / 2;
  for (const char character : text) {
    const Bitmap& glyph = fonts.Glyph(static_cast<unsigned char>(character), kSubscriptStyle);
    for (int y = 0; y < glyph.Height(); ++y) {
      for (int x = 0; x < glyph.Width(); ++x) {
        if (strip.Holds(left + x, kSubscriptGap + y))
          strip.Set(left + x, kSubscriptGap + y, glyph.At(x, y));
      }
    }
    left += kCellWidth;
  }
  return strip;
}

}  // namespace

std::vector<bool> BarcodeModules(const protocol::Barcode& barcode) {
  if (barcode.type == Type::kCode128) {
    static const Code128Characters characters;
    return characters.Encode(barcode.code_set, barcode.data);
  }
  Modules modules = Symbol(SymbologyOf(barcode.type), barcode.data).Row();
  // CODABAR's row ends with the gap to a next character.
  while (!modules.empty() && !modules.back()) modules.pop_back();
  return modules;
}

std::string BarcodeText(const protocol::Barcode& barcode) {
  if (barcode.type == Type::kCode128) return Code128Text(barcode.code_set, barcode.data);
  return Symbol(SymbologyOf(barcode.type), barcode.data).Text();
}

bool DrawBarcode(Bitmap& face, Fonts& fonts, const protocol::Barcode& barcode) {
  const int bottom = barcode.end + (barcode.subscript ? kSubscriptGap + kSubscriptStyle.height : 0);
  if (bottom >= kFaceHeight) return false;
  // One line of the symbol between its quiet zones; drawing makes it as high as the bars are.
  const Modules modules = BarcodeModules(barcode);
  Bitmap line(static_cast<int>(modules.size()) + 2 * kQuietModules, 1);
  for (std::size_t i = 0; i < modules.size(); ++i)
    line.Set(kQuietModules + static_cast<int>(i), 0, modules[i]);
  const int width = line.Width() * kDotsPerModule;
  const int left = (kFaceWidth - width) / 2;
  constexpr char kHorizontalOverwriting = '1';
  Page page(face, kHorizontalOverwriting);
  if (!page.Put(line, left, barcode.end, kDotsPerModule, barcode.end - barcode.start + 1))
    return false;
  return !barcode.subscript ||
         page.Put(Subscript(BarcodeText(barcode), fonts, width), left, bottom);
}

}  // namespace vantrel::printer
