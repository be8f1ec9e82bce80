// SPDX-License-Identifier: MIT

#include "editors/image_editor.h"

#include "link/typed_number.h"

#include <algorithm>
#include <cmath>

namespace vantrel::editors {
namespace {

constexpr int kLines = 40;
constexpr int kDots = 40;
constexpr int kLastX = kLastImageLine;
constexpr int kLastY = kLastImageByte;
// From these coordinates on less than the whole grid fits into the image area.
constexpr int kLastWholeX = 440;
constexpr int kLastWholeY = 35;

std::string SizeText(int lines, int dots) {
  return std::to_string(lines) + " X " + std::to_string(dots);
}

}  // namespace

std::string ComposeImageData(std::string_view x_text, std::string_view y_text,
                             std::optional<int> line_bytes, std::string_view hex) {
  std::string data = std::string(x_text) + "," + std::string(y_text) + ",";
  if (line_bytes) data += std::to_string(*line_bytes) + ",";
  return data.append(hex);
}

ImageEditor::ImageEditor(link::CommonVariables& common)
    : DotEditor(kLines, kDots, SizeText(kLines, kDots)), common_(common) {}

void ImageEditor::Form_Activate() {
  common_.DataString = std::string("0");
  const bool block = common_.IsBlockMode;
  last_byte_index_ = 4;
  last_line_index_ = block ? kLines - 1 : 0;
  for (int i = 0; i < EditedDots().Count(); ++i) {
    if (block || i < kDots) EditedDots().SetValue(i, 0);
    if (i >= kDots) EditedDots().Show(i, block);
  }
  SetCaption(block ? "4Dh External image data expand command (Block Mode)"
                   : "43h External image data expand command (Line Mode)");
  SetPanel1(block ? "X: 0 - 479;   Y: 0 - 39" : "Y: 0 - 39");
  step_ = Step::kCoordinates;
}

std::optional<ImageEditor::InvalidCoordinate> ImageEditor::CmdSet_Click(std::string_view x_text,
                                                                        std::string_view y_text) {
  const double x = link::LeadingNumber(x_text);
  if (x < 0 || x > kLastX)
    return InvalidCoordinate{true, "X Coordinate should be within 0 - 479", "Invalid X coordinate"};
  const double y = link::LeadingNumber(y_text);
  if (y < 0 || y > kLastY)
    return InvalidCoordinate{false, "Y Coordinate should be within 0 - 39", "Invalid Y coordinate"};
  step_ = Step::kDrawing;
  SizeGrid(static_cast<int>(std::nearbyint(x)), static_cast<int>(std::nearbyint(y)));
  return std::nullopt;
}

int ImageEditor::PrintedRows() const { return std::min((last_byte_index_ + 1) * 8, kDots); }

void ImageEditor::SizeGrid(int x, int y) {
  const bool block = common_.IsBlockMode;
  const bool whole_lines = y <= kLastWholeY;
  const bool all_lines = x <= kLastWholeX;
  const int dots = whole_lines ? kDots : (kLastY + 1 - y) * 8;
  if (block) last_line_index_ = all_lines ? kLines - 1 : kLastX - x;
  // 39 and not 4 for whole lines beyond X 440: meant. Each line's data then reads on into the lines
  // after it.
  last_byte_index_ = !whole_lines ? kLastY - y : block && !all_lines ? 39 : 4;

  for (int i = 0; i < (block ? EditedDots().Count() : kDots); ++i) {
    const bool shown = i / kDots <= last_line_index_ && i % kDots < dots;
    EditedDots().Show(i, shown);
    if (!shown) EditedDots().Mark(i, false);
  }
  // A whole line in line mode has no row selectors, a shortened one has: meant.
  ShowRowSelectors(!block && whole_lines ? 0 : dots);
  ShowColumnSelectors(last_line_index_ + 1);
  SetFrameCaption(SizeText(last_line_index_ + 1, dots));
}

void ImageEditor::MarkColumn(int column, bool set) {
  // Hidden dots as well, and past the line's own 40 where LastByteIndex is 39.
  for (int dot = 0; dot < (last_byte_index_ + 1) * 8; ++dot)
    EditedDots().Mark(column * kDots + dot, set);
}

void ImageEditor::CmdClear_Click() {
  for (int i = 0; i < (common_.IsBlockMode ? EditedDots().Count() : kDots); ++i)
    if (Dots().IsVisible(i)) EditedDots().Paint(i, false);
}

void ImageEditor::CmdNext_Click(std::string_view x_text, std::string_view y_text) {
  common_.DataString.clear();
  const std::string hex = Dots().Hex(last_line_index_, last_byte_index_);
  common_.DataString = ComposeImageData(
      x_text, y_text, common_.IsBlockMode ? std::optional(last_byte_index_ + 1) : std::nullopt,
      hex);
}

}  // namespace vantrel::editors
