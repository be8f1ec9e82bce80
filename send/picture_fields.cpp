// SPDX-License-Identifier: MIT

// Data fields that hold dots: 43h, 4Dh, 44h and 45h.

#include "editors/dot_pattern.h"
#include "editors/font_editor.h"
#include "editors/image_editor.h"
#include "send/data_fields.h"
#include "send/table.h"

#include <algorithm>

namespace vantrel::send {
namespace {

using commandline::Parsed;
using commandline::WrongUse;

constexpr int kDotsPerByte = 8;
constexpr int kLines = editors::kLastImageLine + 1;
constexpr int kLineBytes = editors::kLastImageByte + 1;
constexpr int kUsualLineBytes = 5;
constexpr int kFrameAround = 4;  // STX, command code, ETX and block check

// Which of a picture and hex text a command line has.
bool HasPicture(const Parsed& parsed, std::size_t hex_index) {
  const bool has_hex = parsed.Parameters().size() > hex_index;
  if (!parsed.Has("picture")) {
    if (!has_hex) throw WrongUse("The parameter HEX or the option --picture is missing.");
    for (const char* option : {"threshold", "dither", "invert", "frame-bytes"})
      if (parsed.Has(option)) throw WrongUse(std::string("--") + option + " needs --picture.");
    return false;
  }
  if (has_hex) throw WrongUse("There are both HEX and --picture.");
  if (parsed.Has("line-bytes")) throw WrongUse("--line-bytes is for HEX, not for --picture.");
  return true;
}

// The dots of the command line's picture, filled up with clear ones to whole bytes.
editors::DotPattern ReadDots(const Parsed& parsed, const Means& means, const PictureLimits& limits,
                             bool exactly) {
  try {
    const Picture picture = means.read_picture(parsed.Value("picture"), limits);
    if (exactly && (picture.width != limits.width || picture.height != limits.height))
      throw WrongUse("The picture has " + std::to_string(picture.width) + " x " +
                     std::to_string(picture.height) + " dots; the character has " +
                     std::to_string(limits.width) + " x " + std::to_string(limits.height) + ".");
    const std::vector<bool> black = BlackDots(picture, {.threshold = parsed.Number("threshold"),
                                                        .dither = parsed.Has("dither"),
                                                        .invert = parsed.Has("invert")});
    const int rows = (picture.height + kDotsPerByte - 1) / kDotsPerByte * kDotsPerByte;
    editors::DotPattern dots(picture.width, rows);
    std::size_t i = 0;
    for (int y = 0; y < picture.height; ++y)
      for (int x = 0; x < picture.width; ++x) dots.SetValue(x * rows + y, black[i++] ? 1 : 0);
    return dots;
  } catch (const PictureError& error) {
    throw WrongUse(error.what());
  }
}

std::string ImageData(int x, int y, std::optional<int> line_bytes, const std::string& hex) {
  return editors::ComposeImageData(std::to_string(x), std::to_string(y), line_bytes, hex);
}

// How a picture is cut into frames.
struct Cut {
  int x;
  int y;
  bool is_block_mode;
  int frame_bytes;

  // How many bytes of a picture fit into a frame with lines of that many bytes, when the frame
  // begins at byte `from` of a line at most.
  int Room(int line_bytes, int from) const {
    const std::string header =
        ImageData(kLines - 1, from, is_block_mode ? std::optional(line_bytes) : std::nullopt, "");
    return (frame_bytes - kFrameAround - static_cast<int>(header.size())) / 2;
  }
};

// Frames of as many whole lines as fit; where not even one does, of parts of a line.
DataFields CutIntoFrames(const std::string& hex, int lines, int line_bytes, const Cut& cut) {
  DataFields fields;
  const int whole_room = cut.Room(line_bytes, cut.y);
  int part_bytes = line_bytes;
  if (whole_room < line_bytes)
    while (cut.Room(part_bytes, cut.y + line_bytes - 1) < part_bytes) --part_bytes;
  const int most_lines =
      cut.is_block_mode && part_bytes == line_bytes ? whole_room / line_bytes : 1;
  for (int line = 0; line < lines; line += most_lines) {
    const int count = std::min(most_lines, lines - line);
    for (int byte = 0; byte < line_bytes; byte += part_bytes) {
      const int bytes = std::min(part_bytes, line_bytes - byte);
      const auto start = static_cast<std::size_t>(2 * (line * line_bytes + byte));
      fields.push_back(HexOfAscii(ImageData(
          cut.x + line, cut.y + byte, cut.is_block_mode ? std::optional(bytes) : std::nullopt,
          hex.substr(start, static_cast<std::size_t>(2 * count * bytes)))));
    }
  }
  return fields;
}

std::string Quantity(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

DataFields HexLine(const std::string& hex, int x, int y) {
  const auto room = static_cast<std::size_t>(kLineBytes - y);
  if (hex.size() / 2 > room)
    throw WrongUse("HEX has " + Quantity(hex.size() / 2) + "; from byte " + std::to_string(y) +
                   " on, " + std::to_string(room) + " fit.");
  return {HexOfAscii(ImageData(x, y, std::nullopt, hex))};
}

DataFields HexBlock(const Parsed& parsed, const std::string& hex, int x, int y) {
  const int room = kLineBytes - y;
  const int line_bytes =
      parsed.Has("line-bytes") ? parsed.Number("line-bytes") : std::min(kUsualLineBytes, room);
  if (line_bytes > room)
    throw WrongUse("--line-bytes is a number from 1 to " + std::to_string(room) + " here, not '" +
                   std::to_string(line_bytes) + "'.");
  const int bytes = static_cast<int>(hex.size() / 2);
  if (bytes % line_bytes != 0)
    throw WrongUse("HEX has " + Quantity(hex.size() / 2) + ", which are no whole lines of " +
                   std::to_string(line_bytes) + ".");
  if (bytes / line_bytes > kLines - x)
    throw WrongUse("HEX has " + std::to_string(bytes / line_bytes) + " lines; from line " +
                   std::to_string(x) + " on, " + std::to_string(kLines - x) + " fit.");
  return {HexOfAscii(ImageData(x, y, line_bytes, hex))};
}

}  // namespace

DataFields ExternalImage(const Parsed& parsed, const Means& means) {
  const bool is_block_mode = parsed.Command()->name == "4D";
  const int x = parsed.Number("x");
  const int y = parsed.Number("y");
  if (!HasPicture(parsed, 0)) {
    const std::string hex = HexPairs(parsed.Parameters().front(), "HEX");
    return is_block_mode ? HexBlock(parsed, hex, x, y) : HexLine(hex, x, y);
  }
  const PictureLimits limits{kLines - x, (kLineBytes - y) * kDotsPerByte};
  const editors::DotPattern dots = ReadDots(parsed, means, limits, false);
  const int line_bytes = dots.Rows() / kDotsPerByte;
  return CutIntoFrames(dots.Hex(dots.Columns() - 1, line_bytes - 1), dots.Columns(), line_bytes,
                       {x, y, is_block_mode, parsed.Number("frame-bytes")});
}

DataFields Character(const Parsed& parsed, const Means& means) {
  const bool is_24_dot = parsed.Value("size") == "24";
  const int height = is_24_dot ? 24 : 16;
  const int width = parsed.Command()->name == "44" ? height : height / 2;
  const std::string image_no = RegisterDigit(parsed.Parameters().front());
  std::string hex;
  if (HasPicture(parsed, 1)) {
    const editors::DotPattern dots = ReadDots(parsed, means, {width, height}, true);
    hex = dots.Hex(width - 1, height / kDotsPerByte - 1);
  } else {
    hex = HexPairs(parsed.Parameters()[1], "HEX");
    const auto wanted = static_cast<std::size_t>(width * height / kDotsPerByte);
    if (hex.size() / 2 != wanted)
      throw WrongUse("HEX has " + Quantity(hex.size() / 2) + "; the character has " +
                     std::to_string(wanted) + ".");
  }
  return {HexOfAscii(editors::ComposeCharacterData(is_24_dot, image_no, hex))};
}

}  // namespace vantrel::send
