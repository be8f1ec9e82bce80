// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

// How the text of a script is read and written. Blanks are spaces and tabs.
namespace vantrel::printer {

// Without the blanks around it.
std::string_view Trimmed(std::string_view text);
// The first word, and what follows it after one or more blanks.
std::pair<std::string_view, std::string_view> Split(std::string_view text);

// The whole text as a number; nothing for any other text.
std::optional<int> NumberIn(std::string_view text, int base = 10);
// A command code as "41" or "41h".
std::optional<std::uint8_t> CodeIn(std::string_view text);
// Track "1" to "3" as 0 to 2.
std::optional<std::size_t> TrackIn(std::string_view text);
// A path, in double quotes or without; any bytes but 00h, blanks and further double quotes too.
// Nothing for an empty one, and where the quotes are not closed at the end.
std::optional<std::string> PathIn(std::string_view text);

// Bytes as text: "\xHH" stands for one that is not printable, two backslashes for one.
std::string Escaped(std::string_view bytes);
// The bytes of such a text; nothing where a backslash is followed by anything else.
std::optional<std::string> Unescaped(std::string_view text);

}  // namespace vantrel::printer
