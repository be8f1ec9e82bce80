// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/bitmap.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace vantrel::printer {

// How a character is to look.
struct GlyphStyle {
  int height = 24;    // of the cell in dots, 24 or 16
  bool wide = false;  // a cell as wide as high; else half of that
  int weight = 0;     // 0 normal, 1 bold, 2 bolder still; of a narrow character only

  // The check takes the zero of a defaulted comparison for a null pointer.
  // NOLINTNEXTLINE(modernize-use-nullptr)
  auto operator<=>(const GlyphStyle&) const = default;
};

// The bitmap fonts of the printer: Terminus, made for cells of 8 x 16 and 12 x 24 dots, and Unifont
// for what Terminus lacks and for wide characters.
class Fonts {
 public:
  // Looks for the font files under `folder`, a folder such as /usr/share/fonts. Never throws: what
  // cannot be found or read, or does not begin as a font, is missing from then on. A font is opened
  // when it is first drawn with; one that is damaged within is then drawn without, as if missing.
  explicit Fonts(const std::filesystem::path& folder);
  Fonts(Fonts&&) noexcept;
  Fonts& operator=(Fonts&&) = delete;
  ~Fonts();

  // A sentence for each font that is missing: where it was looked for and which package brings it.
  // Empty where all are there.
  const std::vector<std::string>& Missing() const { return missing_; }

  // The dots of a character in its cell. A character that no font has becomes a box.
  const Bitmap& Glyph(char32_t character, const GlyphStyle& style);

 private:
  struct Library;
  Bitmap Draw(char32_t character, const GlyphStyle& style);

  std::unique_ptr<Library> library_;
  std::vector<std::string> missing_;
  std::map<std::tuple<char32_t, GlyphStyle>, Bitmap> drawn_;
};

// The folder in which this system keeps its fonts.
std::filesystem::path SystemFontFolder();

}  // namespace vantrel::printer
