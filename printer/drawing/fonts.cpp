// SPDX-License-Identifier: MIT

#include "printer/drawing/fonts.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <array>
#include <fstream>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace vantrel::printer {
namespace {

struct LibraryEnd {
  void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
struct FaceEnd {
  void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using Face = std::unique_ptr<FT_FaceRec, FaceEnd>;

// Makes a face give glyphs of a cell's height; false where it has none.
bool SelectHeight(FT_Face face, int height) {
  if (FT_IS_SCALABLE(face)) return FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(height)) == 0;
  for (FT_Int i = 0; i < face->num_fixed_sizes; ++i) {
    if (face->available_sizes[i].height == height) return FT_Select_Size(face, i) == 0;
  }
  return false;
}

bool IsBlack(const FT_Bitmap& bitmap, int x, int y) {
  return (bitmap.buffer[y * bitmap.pitch + x / 8] & (0x80 >> (x % 8))) != 0;
}

// Dots that would lie outside the cell are left out.
std::optional<Bitmap> GlyphOf(FT_Face face, char32_t character, int width, int height) {
  if (face == nullptr || !SelectHeight(face, height)) return std::nullopt;
  const FT_UInt index = FT_Get_Char_Index(face, character);
  if (index == 0) return std::nullopt;
  // Unhinted, Unifont's outlines fall on the dots that they were traced from.
  constexpr FT_Int32 kMonochrome = FT_LOAD_RENDER | FT_LOAD_TARGET_MONO | FT_LOAD_NO_HINTING;
  if (FT_Load_Glyph(face, index, kMonochrome) != 0) return std::nullopt;
  const FT_GlyphSlot slot = face->glyph;
  if (slot->bitmap.pixel_mode != FT_PIXEL_MODE_MONO) return std::nullopt;
  const int ascent = static_cast<int>(face->size->metrics.ascender / 64);
  Bitmap cell(width, height);
  for (int y = 0; y < static_cast<int>(slot->bitmap.rows); ++y) {
    for (int x = 0; x < static_cast<int>(slot->bitmap.width); ++x) {
      const int to_x = x + slot->bitmap_left;
      const int to_y = y + ascent - slot->bitmap_top;
      if (cell.Holds(to_x, to_y) && IsBlack(slot->bitmap, x, y)) cell.Set(to_x, to_y, true);
    }
  }
  return cell;
}

// Every black dot makes its right neighbour black.
void Thicken(Bitmap& cell) {
  for (int y = 0; y < cell.Height(); ++y) {
    for (int x = cell.Width() - 1; x > 0; --x) {
      if (cell.At(x - 1, y)) cell.Set(x, y, true);
    }
  }
}

Bitmap Box(int width, int height) {
  Bitmap cell(width, height);
  for (int x = 1; x < width - 1; ++x) {
    cell.Set(x, 1, true);
    cell.Set(x, height - 2, true);
  }
  for (int y = 1; y < height - 1; ++y) {
    cell.Set(1, y, true);
    cell.Set(width - 2, y, true);
  }
  return cell;
}

// Started when the first font is opened.
class FontLibrary {
 public:
  // Null where the library cannot be started.
  FT_Library Get() {
    FT_Library library = nullptr;
    if (!library_ && FT_Init_FreeType(&library) == 0) library_.reset(library);
    return library_.get();
  }

 private:
  std::unique_ptr<FT_LibraryRec_, LibraryEnd> library_;
};

// A file with a font, which is opened when it is first drawn with: most printers that a test starts
// never print.
class FontFile {
 public:
  explicit FontFile(std::filesystem::path path) : path_(std::move(path)), is_there_(IsFont()) {}

  const std::filesystem::path& Path() const { return path_; }
  // Whether the file can be read and begins as a font does.
  bool IsThere() const { return is_there_; }
  // Null where it has no font.
  FT_Face Open(FontLibrary& library) {
    if (!is_there_ || face_) return face_.get();
    FT_Face face = nullptr;
    is_there_ = FT_New_Face(library.Get(), path_.c_str(), 0, &face) == 0;
    face_.reset(face);
    return face;
  }

 private:
  bool IsFont() const {
    std::ifstream file(path_, std::ios::binary);
    std::array<char, 4> version{};
    if (!file.read(version.data(), version.size())) return false;
    const std::string_view found(version.data(), version.size());
    // Outlines after CFF, and after TrueType or none but bitmaps.
    return found == "OTTO" || found == std::string_view("\0\1\0\0", 4);
  }

  std::filesystem::path path_;
  bool is_there_;
  Face face_;
};

}  // namespace

struct Fonts::Library {
  explicit Library(const std::filesystem::path& folder)
      : normal(folder / "opentype/terminus/terminus-normal.otb"),
        bold(folder / "opentype/terminus/terminus-bold.otb"),
        unifont(folder / "opentype/unifont/unifont.otf") {}

  FontLibrary library;
  FontFile normal;
  FontFile bold;
  FontFile unifont;
};

Fonts::Fonts(const std::filesystem::path& folder) : library_(std::make_unique<Library>(folder)) {
  const auto look = [&](const FontFile& file, const char* package) {
    if (file.IsThere()) return;
    missing_.push_back("Cards are printed without the font " + file.Path().string() +
                       "; please install the package " + package + ".");
  };
  look(library_->normal, "fonts-terminus-otb");
  look(library_->bold, "fonts-terminus-otb");
  look(library_->unifont, "fonts-unifont");
}

Fonts::Fonts(Fonts&&) noexcept = default;
Fonts::~Fonts() = default;

const Bitmap& Fonts::Glyph(char32_t character, const GlyphStyle& style) {
  const auto key = std::make_tuple(character, style);
  const auto found = drawn_.find(key);
  if (found != drawn_.end()) return found->second;
  return drawn_.emplace(key, Draw(character, style)).first->second;
}

Bitmap Fonts::Draw(char32_t character, const GlyphStyle& style) {
  const int width = style.wide ? style.height : style.height / 2;
  std::optional<Bitmap> cell;
  int thicker = 0;
  if (!style.wide) {
    const FT_Face bold = style.weight > 0 ? library_->bold.Open(library_->library) : nullptr;
    const FT_Face face = bold != nullptr ? bold : library_->normal.Open(library_->library);
    cell = GlyphOf(face, character, width, style.height);
    thicker = style.weight - (bold != nullptr ? 1 : 0);
  }
  if (!cell) {
    cell = GlyphOf(library_->unifont.Open(library_->library), character, width, style.height);
    thicker = style.wide ? 0 : style.weight;
  }
  if (!cell) return Box(width, style.height);
  for (int i = 0; i < thicker; ++i) Thicken(*cell);
  return *cell;
}

std::filesystem::path SystemFontFolder() { return VANTREL_FONT_FOLDER; }

}  // namespace vantrel::printer
