// SPDX-License-Identifier: MIT

#include "printer/drawing/bmp_file.h"

#include <algorithm>
#include <cstdlib>

namespace vantrel::printer {
namespace {

using File = std::span<const std::uint8_t>;

// Places and sizes in the file, in bytes, all numbers little-endian (BITMAPFILEHEADER and
// BITMAPINFOHEADER).
constexpr std::size_t kFileSize = 2;
constexpr std::size_t kPixelOffset = 10;
constexpr std::size_t kInfoHeader = 14;
constexpr std::size_t kInfoSize = 14;
constexpr std::size_t kWidth = 18;
constexpr std::size_t kHeight = 22;
constexpr std::size_t kPlanes = 26;
constexpr std::size_t kBitsPerDot = 28;
constexpr std::size_t kCompression = 30;
constexpr std::size_t kShortestInfo = 40;
constexpr std::size_t kLongestInfo = 124;
constexpr std::size_t kPaletteSize = 8;
constexpr std::size_t kLargestPixelOffset = 4096;
// What programs leave behind the last row to round a file's size up.
constexpr std::size_t kLongestTail = 64;

bool Has(File file, std::size_t place, std::size_t size) { return place + size <= file.size(); }

std::uint32_t NumberAt(File file, std::size_t place, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = size; i > 0; --i) number = number << 8 | file[place + i - 1];
  return number;
}

std::int32_t SignedHeight(File file) {
  return static_cast<std::int32_t>(NumberAt(file, kHeight, 4));
}

// Whether a number of the file lies in a range; one that has not come yet does.
bool MayBe(File file, std::size_t place, std::size_t size, std::size_t lowest,
           std::size_t highest) {
  if (!Has(file, place, size)) return true;
  const std::size_t number = NumberAt(file, place, size);
  return number >= lowest && number <= highest;
}

std::size_t HeaderLength(File file) {
  return kInfoHeader + NumberAt(file, kInfoSize, 4) + kPaletteSize;
}

bool HasHeaders(File file) { return Has(file, kInfoSize, 4) && Has(file, 0, HeaderLength(file)); }

std::size_t RowLength(File file) { return (NumberAt(file, kWidth, 4) + 31) / 32 * 4; }

// The bytes from the file's start to the end of its last row.
std::size_t LengthNeeded(File file) {
  return NumberAt(file, kPixelOffset, 4) +
         RowLength(file) * static_cast<std::size_t>(std::abs(SignedHeight(file)));
}

bool MayBeMonochromeBmp(File file) {
  constexpr std::size_t kLongestSide = kLongestBmpSide;
  const bool headers = MayBe(file, 0, 1, 'B', 'B') && MayBe(file, 1, 1, 'M', 'M') &&
                       MayBe(file, kInfoSize, 4, kShortestInfo, kLongestInfo) &&
                       MayBe(file, kPixelOffset, 4, 0, kLargestPixelOffset) &&
                       MayBe(file, kWidth, 4, 1, kLongestSide) && MayBe(file, kPlanes, 2, 1, 1) &&
                       MayBe(file, kBitsPerDot, 2, 1, 1) && MayBe(file, kCompression, 4, 0, 0);
  if (!headers) return false;
  if (Has(file, kHeight, 4)) {
    // A negative height says that the top row comes first.
    const std::int32_t height = SignedHeight(file);
    if (height == 0 || height > kLongestBmpSide || height < -kLongestBmpSide) return false;
  }
  if (!HasHeaders(file)) return true;
  if (NumberAt(file, kPixelOffset, 4) < HeaderLength(file)) return false;
  const std::size_t needed = LengthNeeded(file);
  const std::size_t stated = NumberAt(file, kFileSize, 4);
  return file.size() <= std::clamp(stated, needed, needed + kLongestTail);
}

}  // namespace

bool BmpFile::Append(std::span<const std::uint8_t> block) {
  const std::size_t before = bytes_.size();
  bytes_.insert(bytes_.end(), block.begin(), block.end());
  if (MayBeMonochromeBmp(bytes_)) return true;
  bytes_.resize(before);
  return false;
}

bool BmpFile::HasHeader() const { return HasHeaders(bytes_); }

int BmpFile::Width() const {
  return HasHeader() ? static_cast<int>(NumberAt(bytes_, kWidth, 4)) : 0;
}

int BmpFile::Height() const { return HasHeader() ? std::abs(SignedHeight(bytes_)) : 0; }

std::optional<Bitmap> BmpFile::Picture() const {
  if (!HasHeader()) return std::nullopt;
  const std::size_t palette = HeaderLength(bytes_) - kPaletteSize;
  const auto is_dark = [&](std::size_t colour) {
    const std::size_t entry = palette + colour * 4;
    return bytes_[entry] + bytes_[entry + 1] + bytes_[entry + 2] < 3 * 0x80;
  };
  const bool dark[] = {is_dark(0), is_dark(1)};
  const std::size_t pixels = NumberAt(bytes_, kPixelOffset, 4);
  const bool top_first = SignedHeight(bytes_) < 0;
  Bitmap picture(Width(), Height());
  for (int row = 0; row < picture.Height(); ++row) {
    const std::size_t start = pixels + static_cast<std::size_t>(row) * RowLength(bytes_);
    const int y = top_first ? row : picture.Height() - 1 - row;
    for (int x = 0; x < picture.Width(); ++x) {
      const std::size_t place = start + static_cast<std::size_t>(x) / 8;
      if (place >= bytes_.size()) return picture;
      picture.Set(x, y, dark[(bytes_[place] >> (7 - x % 8)) & 1]);
    }
  }
  return picture;
}

}  // namespace vantrel::printer
