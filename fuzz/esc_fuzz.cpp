// SPDX-License-Identifier: MIT

// Any bytes as print text with ESC sequences: each byte belongs to one piece of it, and it is drawn
// the same again, whatever was drawn before. The first byte chooses direction, code page and
// reference point.

#include "fuzz/target.h"
#include "printer/commands/printer_state.h"
#include "printer/drawing/print_text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vantrel;
  using namespace vantrel::printer;
  using link::CodePage;
  if (size == 0) return 0;
  constexpr CodePage kPages[] = {CodePage::kJapanese, CodePage::kSimplifiedChinese,
                                 CodePage::kKorean, CodePage::kTraditionalChinese};
  const char direction = static_cast<char>('0' + data[0] % 4);
  const CodePage code_page = kPages[data[0] / 4 % 4];
  const int y = data[0] / 16 * 20;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  const auto items =
      vantrel::protocol::ParsePrintText(text, vantrel::protocol::IsVertical(direction));
  if (!items) return 0;
  std::size_t length = 0;
  for (const vantrel::protocol::TextItem& item : *items) {
    if (item.letter == '\0')
      length += item.text.size();
    else
      length += item.letter == '\r' || item.letter == '\n'
                    ? 1
                    : 2 + vantrel::protocol::EscapeDigits(item.letter);
  }
  if (length != text.size()) std::abort();
  static const PrintRegisters registers = [] {
    PrintRegisters some;
    some.double_byte_characters[0] = Bitmap(24, 24);
    some.double_byte_characters[1] = Bitmap(16, 16);
    some.single_byte_characters[0] = Bitmap(12, 24);
    some.single_byte_characters[1] = Bitmap(8, 16);
    return some;
  }();
  static Fonts fonts(SystemFontFolder());
  const auto drawn = [&] {
    Bitmap face(kFaceWidth, kFaceHeight);
    Page page(face, direction);
    DrawPrintText(page, {fonts, registers, code_page, 0, y}, *items);
    return face;
  };
  if (!(drawn() == drawn())) std::abort();
  return 0;
}
