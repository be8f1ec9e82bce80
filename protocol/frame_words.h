// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/control.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vantrel::protocol {

// The meaning, in one line of ASCII, of one group of bytes as FrameReader tells them apart: a frame
// from STX to block check, one control character of the printer, or bytes outside frames. A command
// reads `41h print data: direction 2, X 0, Y 47, "Test Print", ESC E 22`, a reply `reply 21h: 20h
// normal status, "ABC"`, a control character `06h acknowledge`. A bad block check, a frame cut
// short and noise are named. Takes any bytes; what is very long is cut off and told by its length.
// Empty for no bytes.
std::string MeaningInWords(Direction direction, std::span<const std::uint8_t> bytes);

// A command and the meaning of its data, one character a byte: `21h first track read`. Data that
// the command cannot have is shown as it stands: `46h erase and print: cannot be read: "abc"`.
std::string CommandInWords(std::uint8_t code, std::string_view data);

// The data of a command or reply: printable runs in double quotes (a double quote and a backslash
// with a backslash before them), the rest by name or as hex: `"Test Print", CR LF, bytes 93 FA`.
std::string DataInWords(std::string_view data);

// As DataInWords, with the ESC sequences of print data: `"Test", ESC E 22, "Test"`.
std::string PrintTextInWords(std::string_view text);

}  // namespace vantrel::protocol
