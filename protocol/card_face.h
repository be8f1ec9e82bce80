// SPDX-License-Identifier: MIT
#pragma once

namespace vantrel::protocol {

// The dots of the long side of a card's rewritable face, which lies.
inline constexpr int kFaceWidth = 480;
// The dots of its short side.
inline constexpr int kFaceHeight = 320;

// The most dots of a BMP file's side: the long side of a card's face.
inline constexpr int kLongestBmpSide = kFaceWidth;

// Whether a card arrangement direction, '0' to '3', stands for vertical text.
constexpr bool IsVertical(char direction) { return direction == '0' || direction == '2'; }
// Whether a character is one of the four directions.
constexpr bool IsDirection(char direction) { return direction >= '0' && direction <= '3'; }

}  // namespace vantrel::protocol
