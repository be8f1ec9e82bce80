// SPDX-License-Identifier: MIT

#include "printdata/print_buffer.h"

#include "link/typed_number.h"

namespace vantrel::printdata {
namespace {

constexpr int kLastImageNo = 1999;

bool IsWithin(std::string_view text, int last) {
  const double value = link::LeadingNumber(text);
  return value >= 0 && value <= last;
}

}  // namespace

bool IsVertical(std::string_view direction) { return direction == "0" || direction == "2"; }

std::string ComposePrintHeader(const PrintSetting& setting) {
  return setting.direction + "," + setting.x_coordinate + "," + setting.y_coordinate + ",";
}

std::string ComposeImageExpansion(const PrintSetting& setting, std::string_view image_no) {
  return ComposePrintHeader(setting).append(image_no);
}

int LastCoordinate(Axis axis, bool vertical) { return (axis == Axis::kX) == vertical ? 319 : 479; }

std::optional<RangeError> CheckCoordinate(Axis axis, std::string_view text,
                                          std::string_view direction) {
  const bool vertical = IsVertical(direction);
  const int last = LastCoordinate(axis, vertical);
  if (IsWithin(text, last)) return std::nullopt;
  const std::string letter = axis == Axis::kX ? "X" : "Y";
  return RangeError{"Invalid " + letter + " coordinate",
                    letter + " Coordinate should be within 0 - " + std::to_string(last) +
                        " if the printing direction is " + (vertical ? "vertical" : "horizontal")};
}

std::optional<RangeError> CheckImageNo(std::string_view text) {
  if (IsWithin(text, kLastImageNo)) return std::nullopt;
  // The title speaks of the X coordinate; that is meant.
  return RangeError{"Invalid X coordinate",
                    "Image No should be within 0 - 1999.\r\nIf the printer does not have the "
                    "corresponding image, a rejected response will be issued"};
}

}  // namespace vantrel::printdata
