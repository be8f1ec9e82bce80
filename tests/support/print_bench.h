// SPDX-License-Identifier: MIT
#pragma once

#include "link/common.h"
#include "tests/support/printer_bench.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::support {

using Dots = std::vector<std::string>;

// A part of a picture, a text a row, '#' for a black dot and '.' for a white one.
inline Dots PartOf(const printer::Bitmap& picture, int left, int top, int width, int height) {
  Dots rows;
  for (int y = top; y < top + height; ++y) {
    std::string row;
    for (int x = left; x < left + width; ++x) row += picture.At(x, y) ? '#' : '.';
    rows.push_back(row);
  }
  return rows;
}

inline int BlackDots(const printer::Bitmap& picture) {
  int count = 0;
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) count += picture.At(x, y) ? 1 : 0;
  }
  return count;
}

// A printer that is given print data.
class PrintBench {
 public:
  explicit PrintBench(link::CodePage code_page = link::CodePage::kWestern) : bench_(code_page) {}

  // Sends a command and returns how it is answered: "10" where it is rejected, else the reply's
  // status in hex, "20" or "51". Other bytes than 06h or 10h, a reply to another command and one
  // with data are returned as they came.
  std::string Send(std::uint8_t code, std::string_view data) {
    std::string hex;
    for (const char character : data) hex += link::HexOf(static_cast<std::uint8_t>(character));
    const Chunks chunks = bench_.Send(link::ComposeFrame(link::HexOf(code), hex));
    if (chunks.size() != 1) return std::to_string(chunks.size()) + " chunks";
    const std::string start = "06 02 " + link::HexOf(code) + " ";
    const std::string& chunk = chunks.front();
    constexpr std::size_t kWithoutData = 20;  // 06 02 code status 03 block check, with blanks
    if (!chunk.starts_with(start) || chunk.size() > kWithoutData) return chunk;
    return chunk.substr(start.size(), 2);
  }

  const printer::Bitmap& Image() const { return bench_.model.State().print_image; }
  Dots Part(int left, int top, int width, int height) const {
    return PartOf(Image(), left, top, width, height);
  }

 private:
  PrinterBench bench_;
};

}  // namespace vantrel::support
