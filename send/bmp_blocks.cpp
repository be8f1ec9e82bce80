// SPDX-License-Identifier: MIT

// The data fields of 4Bh.

#include "link/frame.h"
#include "send/data_fields.h"
#include "send/input_file.h"

#include <algorithm>

namespace vantrel::send {
namespace {

using commandline::Parsed;
using commandline::WrongUse;

constexpr std::size_t kBlock = 160;  // bytes of the file in each frame, as the console's sample has
constexpr std::int64_t kLongestSide = 480;
// Headers of any kind, the palette, and 480 rows of 60 bytes are far less.
constexpr std::size_t kLargestFile = 65536;

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInformationHeader = 40;

// The little-endian number of `size` bytes at `position`.
std::uint32_t NumberAt(const link::Bytes& file, std::size_t position, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = size; i > 0; --i) number = number << 8 | file[position + i - 1];
  return number;
}

std::int64_t SignedAt(const link::Bytes& file, std::size_t position) {
  return static_cast<std::int32_t>(NumberAt(file, position, 4));
}

void Check(const link::Bytes& file, const std::string& path) {
  if (file.size() < kFileHeader + kInformationHeader || file[0] != 'B' || file[1] != 'M' ||
      NumberAt(file, 14, 4) < kInformationHeader)
    throw WrongUse(path + " is no BMP file.");
  const auto width = SignedAt(file, 18);
  const auto height = std::abs(SignedAt(file, 22));
  if (NumberAt(file, 26, 2) != 1 || NumberAt(file, 28, 2) != 1 || NumberAt(file, 30, 4) != 0)
    throw WrongUse(path + " is no uncompressed BMP of one bit a dot.");
  if (width < 1 || height < 1 || width > kLongestSide || height > kLongestSide)
    throw WrongUse(path + " has " + std::to_string(width) + " x " + std::to_string(height) +
                   " dots; each side has 1 to 480.");
  const std::size_t dots = NumberAt(file, 10, 4);
  const auto row = static_cast<std::size_t>((width + 31) / 32 * 4);
  if (dots < kFileHeader + kInformationHeader ||
      dots + row * static_cast<std::size_t>(height) > file.size())
    throw WrongUse(path + " is cut short.");
}

}  // namespace

DataFields BmpBlocks(const Parsed& parsed, const Means&) {
  const std::string& path = parsed.Parameters()[1];
  std::string place = RegisterDigit(parsed.Parameters()[0]) + ",";
  const link::Bytes file = ReadInputFile(path, kLargestFile);
  Check(file, path);
  DataFields fields;
  for (std::size_t i = 0; i < file.size(); i += kBlock) {
    const auto begin = file.begin() + static_cast<std::ptrdiff_t>(i);
    const auto count = static_cast<std::ptrdiff_t>(std::min(kBlock, file.size() - i));
    fields.push_back(HexOfAscii(place + link::HexTextOf({begin, begin + count})));
    place = "+,";
  }
  return fields;
}

}  // namespace vantrel::send
