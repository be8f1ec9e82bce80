#pragma once

namespace vantrel::protocol {

// The dots of a card's rewritable face, the long side lying.
inline constexpr int kFaceWidth = 480;
inline constexpr int kFaceHeight = 320;

// The most dots of a BMP file's side: the long side of a card's face.
inline constexpr int kLongestBmpSide = kFaceWidth;

// Whether a card arrangement direction stands for vertical text, and whether a character is one of
// the four directions, '0' to '3', at all.
constexpr bool IsVertical(char direction) { return direction == '0' || direction == '2'; }
constexpr bool IsDirection(char direction) { return direction >= '0' && direction <= '3'; }

}  // namespace vantrel::protocol
