// SPDX-License-Identifier: MIT
#pragma once

#include "link/code_page.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vantrel::link {

// Hex text: two upper-case hexadecimal digits a byte, in wire order, nothing between them
// ("02210322").

// The decimal text of a string of binary digits ("01000011" gives "67"). Outer blanks are trimmed;
// an empty text gives "0". Digits are not validated: any decimal digit is weighted like a 1 or 0 (a
// 2 counts twice its place value), every other character counts 0. Throws std::overflow_error when
// the sum passes 2147483647.
std::string BinToDec(std::string_view binary);

// The low eight bits of `number` as exactly eight binary digits (67 gives "01000011", 256 gives
// "00000000").
std::string DecToBin(std::int16_t number);

// The block check of a frame in hex text from STX to ETX inclusive: the exclusive-or of every byte
// after STX, as two hex digits. The caller leaves the block check itself out. A frame of two
// characters or fewer gives "00".
std::string CalcBCC(std::string_view frame);

// What a sub-form hands back to the console. One instance lives for the whole run.
struct CommonVariables {
  // The data field that a sub-form composed, as plain UTF-8 text; the console turns it into hex
  // text. Kept after it was sent.
  std::string DataString;
  // The control data of 5Ah as hex text; empty when nothing is to be sent.
  std::string ControlDataString;
  // True for 4Dh (block mode), false for 43h (line mode).
  bool IsBlockMode = false;
  // True for 44h, false for 45h.
  bool IsDoubleByteFont = false;
  // True for 41h, false for 42h.
  bool IsPrintData = false;
  // The card arrangement direction, one digit "0" to "3".
  std::string PrintDirection = "2";
};

}  // namespace vantrel::link
