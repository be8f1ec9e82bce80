// SPDX-License-Identifier: MIT

// The dots that 43h, 44h, 45h, 4Bh and 4Dh bring.

#include "protocol/card_face.h"
#include "protocol/command_readers.h"
#include "protocol/fields.h"

#include <limits>

namespace vantrel::protocol {
namespace {

constexpr int kDotsPerByte = 8;
// The image area: 480 lines, one a column of the face, of 40 bytes.
constexpr int kLines = kFaceWidth;
constexpr int kBytesPerLine = kFaceHeight / kDotsPerByte;
constexpr std::size_t kAreaBytes = static_cast<std::size_t>(kLines) * kBytesPerLine;

// Image data whose lines are whole and lie on the area.
std::optional<ImageDots> ReadDots(std::string_view x, std::string_view y,
                                  std::optional<int> bytes_per_line, std::string_view hex) {
  const auto first_line = NumberOf(x, kLines - 1);
  const auto first_byte = NumberOf(y, kBytesPerLine - 1);
  auto dots = HexBytesOf(hex, kAreaBytes);
  if (!first_line || !first_byte || !dots) return std::nullopt;
  const auto count = static_cast<int>(dots->size());
  const int length = bytes_per_line.value_or(count);
  if (length == 0 || count % length != 0 || *first_byte + length > kBytesPerLine ||
      *first_line + count / length > kLines)
    return std::nullopt;
  return ImageDots{*first_line, *first_byte, length, std::move(*dots)};
}

// "5 bytes of dots": what hex digits spell; only whole bytes can be read.
Meaning HexInWords(std::string_view digits, std::string_view of_what) {
  if (!IsHex(digits) || digits.size() % 2 != 0) return std::nullopt;
  return std::to_string(digits.size() / 2) + " bytes of " + std::string(of_what);
}

Meaning PlaceInWords(std::string_view x, std::string_view y) {
  if (!IsCoordinate(x) || !IsCoordinate(y)) return std::nullopt;
  return "X " + Shown(x) + ", Y " + Shown(y) + ", ";
}

// "size,register,dots", size '0' for 24 dots, '1' for 16. A character of one byte is half as wide.
std::optional<ExternalCharacter> ReadCharacter(std::string_view data, int narrower) {
  const auto fields = FieldsOf<3>(data);
  if (!fields) return std::nullopt;
  const auto& [size, digit, hex] = *fields;
  const auto number = HexDigitOf(digit);
  if ((size != "0" && size != "1") || !number) return std::nullopt;
  const int height = size == "0" ? 24 : 16;
  const int width = height / narrower;
  const auto length = static_cast<std::size_t>(width * height / kDotsPerByte);
  auto dots = HexBytesOf(hex, length);
  if (!dots || dots->size() != length) return std::nullopt;
  return ExternalCharacter{*number, width, height, std::move(*dots)};
}

}  // namespace

std::optional<ImageDots> ReadImageLine(std::string_view data) {
  const auto fields = FieldsOf<3>(data);
  if (!fields) return std::nullopt;
  return ReadDots((*fields)[0], (*fields)[1], std::nullopt, (*fields)[2]);
}

Meaning ImageLineInWords(std::string_view data) {
  const auto fields = FieldsOf<3>(data);
  if (!fields) return std::nullopt;
  const Meaning place = PlaceInWords((*fields)[0], (*fields)[1]);
  const Meaning dots = HexInWords((*fields)[2], "dots");
  return place && dots ? Meaning(*place + *dots) : std::nullopt;
}

std::optional<ImageDots> ReadImageBlock(std::string_view data) {
  const auto fields = FieldsOf<4>(data);
  if (!fields) return std::nullopt;
  const auto length = NumberOf((*fields)[2], kBytesPerLine);
  return length ? ReadDots((*fields)[0], (*fields)[1], length, (*fields)[3]) : std::nullopt;
}

Meaning ImageBlockInWords(std::string_view data) {
  const auto fields = FieldsOf<4>(data);
  if (!fields || !IsNumber((*fields)[2])) return std::nullopt;
  const Meaning place = PlaceInWords((*fields)[0], (*fields)[1]);
  const Meaning dots = HexInWords((*fields)[3], "dots");
  if (!place || !dots) return std::nullopt;
  return *place + std::string((*fields)[2]) + " bytes a line, " + *dots;
}

std::optional<ExternalCharacter> ReadDoubleByteCharacter(std::string_view data) {
  return ReadCharacter(data, 1);
}

std::optional<ExternalCharacter> ReadSingleByteCharacter(std::string_view data) {
  return ReadCharacter(data, 2);
}

Meaning ExternalCharacterInWords(std::string_view data) {
  const auto fields = FieldsOf<3>(data);
  if (!fields) return std::nullopt;
  const auto& [size, number, hex] = *fields;
  const Meaning dots = HexInWords(hex, "dots");
  if ((size != "0" && size != "1") || number.size() != 1 || !IsHex(number) || !dots)
    return std::nullopt;
  return std::string(size == "0" ? "24" : "16") + " dot, number " + std::string(number) + ", " +
         *dots;
}

// The register's digit, or '+' for the next block of the same file, a comma and the file's bytes as
// hex text.
std::optional<BmpBlock> ReadBmpBlock(std::string_view data) {
  const auto fields = FieldsOf<2>(data);
  if (!fields) return std::nullopt;
  const auto number = HexDigitOf(fields->front());
  auto bytes = HexBytesOf(fields->back(), std::numeric_limits<std::size_t>::max());
  if ((!number && fields->front() != "+") || !bytes) return std::nullopt;
  return BmpBlock{number, std::move(*bytes)};
}

Meaning BmpBlockInWords(std::string_view data) {
  const auto fields = FieldsOf<2>(data);
  if (!fields) return std::nullopt;
  const Meaning bytes = HexInWords(fields->back(), "a BMP file");
  if (!bytes) return std::nullopt;
  if (fields->front() == "+") return "next block, " + *bytes;
  if (!HexDigitOf(fields->front())) return std::nullopt;
  return "image " + std::string(fields->front()) + ", " + *bytes;
}

}  // namespace vantrel::protocol
