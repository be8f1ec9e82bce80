#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrel::printdata {

// What the form of 41h and 42h holds, as typed: no padding, no leading zeros added or removed, an
// empty field stays empty.
struct PrintSetting {
  std::string direction;     // card arrangement direction, one digit "0" to "3"
  std::string x_coordinate;  // in dots from the left bottom of the card
  std::string y_coordinate;  // in dots from the left bottom of the card
};

// How a card lies: "0" and "2" are vertical, every other direction is horizontal.
bool IsVertical(std::string_view direction);

// The control header of 41h: "2,0,47,".
std::string ComposePrintHeader(const PrintSetting& setting);

// The data field of 42h: "2,0,47,15".
std::string ComposeImageExpansion(const PrintSetting& setting, std::string_view image_no);

// A message for a field that holds a number out of its range.
struct RangeError {
  std::string title;
  std::string message;
};

enum class Axis { kX, kY };

// The largest coordinate of the printable area in dots, the smallest is 0: 319 across a card and
// 479 along it.
int LastCoordinate(Axis axis, bool vertical);

// Judges the number that a field's text begins with; an empty field counts as 0. Empty when the
// number is in range.
std::optional<RangeError> CheckCoordinate(Axis axis, std::string_view text,
                                          std::string_view direction);
std::optional<RangeError> CheckImageNo(std::string_view text);

}  // namespace vantrel::printdata
