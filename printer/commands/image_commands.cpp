// SPDX-License-Identifier: MIT

#include "printer/commands/command.h"

namespace vantrel::printer {
namespace {

constexpr int kDotsPerByte = 8;

// Dots line after line. Each line is a column, its first byte at the top, the top dot of a byte in
// its lowest bit.
void DrawColumns(Bitmap& picture, int left, int top, int bytes_per_line, const link::Bytes& dots) {
  const auto line_length = static_cast<std::size_t>(bytes_per_line);
  for (std::size_t i = 0; i < dots.size(); ++i) {
    const int x = left + static_cast<int>(i / line_length);
    const int y = top + static_cast<int>(i % line_length) * kDotsPerByte;
    for (int bit = 0; bit < kDotsPerByte; ++bit) picture.Set(x, y + bit, (dots[i] >> bit & 1) != 0);
  }
}

Reply ExpandImage(PrinterState& state, const protocol::ImageDots& image) {
  for (Bitmap* const picture : {&state.image_data, &state.print_image})
    DrawColumns(*picture, image.x, image.y * kDotsPerByte, image.bytes_per_line, image.dots);
  return {};
}

Bitmap CharacterDots(const protocol::ExternalCharacter& character) {
  Bitmap dots(character.width, character.height);
  DrawColumns(dots, 0, 0, character.height / kDotsPerByte, character.dots);
  return dots;
}

Reply RegisterDoubleByte(PrinterState& state, const protocol::ExternalCharacter& character) {
  state.registers.double_byte_characters.at(character.number) = CharacterDots(character);
  return {};
}

Reply RegisterSingleByte(PrinterState& state, const protocol::ExternalCharacter& character) {
  state.registers.single_byte_characters.at(character.number) = CharacterDots(character);
  return {};
}

// A file that is no monochrome BMP leaves the register as it was, and ends.
Reply RegisterBmpBlock(PrinterState& state, const protocol::BmpBlock& block) {
  auto& images = state.registers.images;
  auto& open = state.registers.open_image;
  bool good = false;
  if (block.number) {
    open = block.number;
    BmpFile file;
    good = file.Append(block.bytes);
    if (good) images.at(*block.number) = std::move(file);
  } else if (open) {
    good = images.at(*open).Append(block.bytes);
  }
  if (good) return {};
  open.reset();
  return {status::kNoMonochromeBmp, {}};
}

constexpr CommandRow kRows[] = {
    {.code = 0x43, .work = kFor<ExpandImage>},
    {.code = 0x44, .work = kFor<RegisterDoubleByte>},
    {.code = 0x45, .work = kFor<RegisterSingleByte>},
    {.code = 0x4B, .work = kFor<RegisterBmpBlock>},
    {.code = 0x4D, .work = kFor<ExpandImage>},
};

}  // namespace

std::span<const CommandRow> ImageCommands() { return kRows; }

}  // namespace vantrel::printer
