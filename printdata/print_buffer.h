// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrel::printdata {

// Where and how 41h and 42h print, as typed: no padding, no leading zeros added or removed, an
// empty field stays empty. A printer takes digits alone, from 0 to LastCoordinate; CheckCoordinate
// judges that range.
struct PrintSetting {
  std::string direction;     // card arrangement direction, one digit "0" to "3"
  std::string x_coordinate;  // in dots from the left bottom of the card
  std::string y_coordinate;  // in dots from the left bottom of the card
};

// How a card lies: "0" and "2" are vertical, every other direction is horizontal.
bool IsVertical(std::string_view direction);

// The control header of 41h: "2,0,47,". The data field of the frame is this and the print text
// behind it, in the printer's code page. Nothing is judged.
std::string ComposePrintHeader(const PrintSetting& setting);

// The data field of 42h: "2,0,47,15". `image_no` is the number of an internal image, "0" to "1999",
// as typed. Nothing is judged.
std::string ComposeImageExpansion(const PrintSetting& setting, std::string_view image_no);

// A message for a field that holds a number out of its range.
struct RangeError {
  std::string title;    // the box's
  std::string message;  // which numbers the field takes, in a sentence
};

// An axis of the card's face. How long it is depends on how the card lies.
enum class Axis {
  kX,  // to the right
  kY,  // upwards
};

// The largest coordinate of the printable area in dots, the smallest is 0: 319 across a card and
// 479 along it.
int LastCoordinate(Axis axis, bool vertical);

// Judges the coordinate that a field's text begins with, in dots; an empty field counts as 0.
// `direction` says how the card lies. Nothing when the number is in range.
std::optional<RangeError> CheckCoordinate(Axis axis, std::string_view text,
                                          std::string_view direction);
// Judges the number of an internal image, 0 to 1999, in the same way.
std::optional<RangeError> CheckImageNo(std::string_view text);

}  // namespace vantrel::printdata
