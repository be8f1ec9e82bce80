// SPDX-License-Identifier: MIT

// Any bytes as a BMP file that comes in blocks. The first byte says how long a block is.

#include "fuzz/target.h"
#include "printer/drawing/bmp_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::size_t length = data[0] + std::size_t{1};
  std::span<const std::uint8_t> rest(data + 1, size - 1);
  vantrel::printer::BmpFile file;
  while (!rest.empty()) {
    const auto block = rest.first(std::min(length, rest.size()));
    if (!file.Append(block)) break;
    rest = rest.subspan(block.size());
  }
  const auto picture = file.Picture();
  if (picture.has_value() != file.HasHeader()) std::abort();
  if (picture && (picture->Width() != file.Width() || picture->Height() != file.Height() ||
                  picture->Width() > vantrel::printer::kLongestBmpSide ||
                  picture->Height() > vantrel::printer::kLongestBmpSide))
    std::abort();
  return 0;
}
