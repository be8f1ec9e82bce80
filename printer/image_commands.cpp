#include "link/frame.h"
#include "printer/command.h"
#include "printer/fields.h"

#include <optional>

namespace vantrel {
namespace {

constexpr int kDotsPerByte = 8;
// The image area: 480 lines, one a column of the face, of 40 bytes.
constexpr int kLines = kFaceWidth;
constexpr int kBytesPerLine = kFaceHeight / kDotsPerByte;

// Dots as hex text, line after line. Each line is a column, its first byte at the top, the top dot
// of a byte in its lowest bit.
void DrawColumns(Bitmap& picture, int left, int top, int bytes_per_line, std::string_view hex) {
  const Bytes bytes = BytesOf(hex);
  const auto line_length = static_cast<std::size_t>(bytes_per_line);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const int x = left + static_cast<int>(i / line_length);
    const int y = top + static_cast<int>(i % line_length) * kDotsPerByte;
    for (int bit = 0; bit < kDotsPerByte; ++bit)
      picture.Set(x, y + bit, (bytes[i] >> bit & 1) != 0);
  }
}

// Image data of 43h and 4Dh.
struct ImageData {
  int x = 0;  // the first line
  int y = 0;  // the first byte
  int bytes_per_line = 0;
  std::string_view hex;
};

std::optional<ImageData> ReadPlace(FieldReader& fields) {
  const auto x = fields.Number(kLines - 1);
  const auto y = fields.Number(kBytesPerLine - 1);
  if (!x || !y) return std::nullopt;
  return ImageData{*x, *y, 0, {}};
}

bool FitsTheArea(const ImageData& image) {
  const auto lines = static_cast<int>(image.hex.size() / 2) / image.bytes_per_line;
  return image.y + image.bytes_per_line <= kBytesPerLine && image.x + lines <= kLines;
}

bool IsShort(std::string_view hex) {
  return hex.size() <= static_cast<std::size_t>(2 * kLines * kBytesPerLine);
}

std::optional<ImageData> ReadLine(std::string_view data) {
  FieldReader fields(data);
  auto image = ReadPlace(fields);
  if (!image || !IsShort(fields.Rest()) || !IsHexPairs(fields.Rest())) return std::nullopt;
  image->hex = fields.Rest();
  image->bytes_per_line = static_cast<int>(image->hex.size() / 2);
  return FitsTheArea(*image) ? image : std::nullopt;
}

std::optional<ImageData> ReadBlock(std::string_view data) {
  FieldReader fields(data);
  auto image = ReadPlace(fields);
  const auto length = fields.Number(kBytesPerLine);
  if (!image || !length || *length == 0 || !IsShort(fields.Rest()) || !IsHexPairs(fields.Rest()))
    return std::nullopt;
  image->hex = fields.Rest();
  image->bytes_per_line = *length;
  const bool whole_lines = image->hex.size() / 2 % static_cast<std::size_t>(*length) == 0;
  return whole_lines && FitsTheArea(*image) ? image : std::nullopt;
}

bool IsLine(std::string_view data) { return ReadLine(data).has_value(); }
bool IsBlock(std::string_view data) { return ReadBlock(data).has_value(); }

Reply ExpandImage(PrinterState& state, const ImageData& image) {
  for (Bitmap* const picture : {&state.image_data, &state.print_image})
    DrawColumns(*picture, image.x, image.y * kDotsPerByte, image.bytes_per_line, image.hex);
  return {};
}

Reply ExpandLine(PrinterState& state, const Command& command) {
  return ExpandImage(state, *ReadLine(command.data));
}

Reply ExpandBlock(PrinterState& state, const Command& command) {
  return ExpandImage(state, *ReadBlock(command.data));
}

// An external character of 44h or 45h: "size,register,dots", size '0' for 24 dots, '1' for 16.
struct ExternalCharacter {
  std::size_t number = 0;
  int width = 0;
  int height = 0;
  std::string_view hex;
};

std::optional<ExternalCharacter> ReadCharacter(std::string_view data, bool double_byte) {
  FieldReader fields(data);
  const auto size = fields.Character();
  const auto digit = fields.Character();
  const auto number = digit ? HexDigitOf(*digit) : std::nullopt;
  if (!size || (*size != '0' && *size != '1') || !number) return std::nullopt;
  const int height = *size == '0' ? 24 : 16;
  const int width = double_byte ? height : height / 2;
  const auto length = static_cast<std::size_t>(2 * width * height / kDotsPerByte);
  if (fields.Rest().size() != length || !IsHexPairs(fields.Rest())) return std::nullopt;
  return ExternalCharacter{static_cast<std::size_t>(*number), width, height, fields.Rest()};
}

bool IsDoubleByte(std::string_view data) { return ReadCharacter(data, true).has_value(); }
bool IsSingleByte(std::string_view data) { return ReadCharacter(data, false).has_value(); }

Bitmap CharacterDots(const ExternalCharacter& character) {
  Bitmap dots(character.width, character.height);
  DrawColumns(dots, 0, 0, character.height / kDotsPerByte, character.hex);
  return dots;
}

Reply RegisterDoubleByte(PrinterState& state, const Command& command) {
  const auto character = ReadCharacter(command.data, true);
  state.registers.double_byte_characters.at(character->number) = CharacterDots(*character);
  return {};
}

Reply RegisterSingleByte(PrinterState& state, const Command& command) {
  const auto character = ReadCharacter(command.data, false);
  state.registers.single_byte_characters.at(character->number) = CharacterDots(*character);
  return {};
}

// A block of a BMP file: the register's digit, or '+' for the next block of the same file, a comma
// and the file's bytes as hex text.
bool IsBmpBlock(std::string_view data) {
  FieldReader fields(data);
  const auto number = fields.Character();
  return number && (*number == '+' || HexDigitOf(*number)) && IsHexPairs(fields.Rest());
}

// A file that is no monochrome BMP leaves the register as it was, and ends.
Reply RegisterBmpBlock(PrinterState& state, const Command& command) {
  FieldReader fields(command.data);
  const char number = *fields.Character();
  const Bytes block = BytesOf(fields.Rest());
  auto& [double_byte, single_byte, images, open] = state.registers;
  bool good = false;
  if (number != '+') {
    open = static_cast<std::size_t>(*HexDigitOf(number));
    BmpFile file;
    good = file.Append(block);
    if (good) images.at(*open) = std::move(file);
  } else if (open) {
    good = images.at(*open).Append(block);
  }
  if (good) return {};
  open.reset();
  return {status::kNoMonochromeBmp, {}};
}

constexpr CommandRow kRows[] = {
    {0x43, Need::kNothing, IsLine, kNoTime, ExpandLine},
    {0x44, Need::kNothing, IsDoubleByte, kNoTime, RegisterDoubleByte},
    {0x45, Need::kNothing, IsSingleByte, kNoTime, RegisterSingleByte},
    {0x4B, Need::kNothing, IsBmpBlock, kNoTime, RegisterBmpBlock},
    {0x4D, Need::kNothing, IsBlock, kNoTime, ExpandBlock},
};

}  // namespace

std::span<const CommandRow> ImageCommands() { return kRows; }

}  // namespace vantrel
