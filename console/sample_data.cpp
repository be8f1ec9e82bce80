// SPDX-License-Identifier: MIT

#include "console/sample_data.h"

#include "link/frame.h"

#include <algorithm>

namespace vantrel::console {
namespace {

constexpr std::size_t kMaximumLength = 21;

// Writes plain blanks for the no-break, thin and narrow no-break blanks that stand in many
// languages' times.
std::string WithPlainBlanks(std::string_view text) {
  static constexpr std::string_view kBlanks[] = {"\u00A0", "\u2009", "\u202F"};
  std::string plain;
  while (!text.empty()) {
    const auto* blank =
        std::find_if(std::begin(kBlanks), std::end(kBlanks),
                     [text](std::string_view candidate) { return text.starts_with(candidate); });
    const bool is_blank = blank != std::end(kBlanks);
    plain += is_blank ? ' ' : text.front();
    text.remove_prefix(is_blank ? blank->size() : 1);
  }
  return plain;
}

}  // namespace

CharacterRange CharacterRange::Parse(std::string_view range_text) {
  return {link::HexPair(range_text, 0), link::HexPair(range_text, 6)};
}

bool CharacterRange::Takes(std::string_view text) const {
  return std::all_of(text.begin(), text.end(), [this](char character) {
    const unsigned code = static_cast<unsigned char>(character);
    return code >= lowest && code <= highest && code != 0x02 && code != 0x03;
  });
}

std::string SampleTime(const TimeText& time, const CharacterRange& range) {
  std::string text = WithPlainBlanks(time.local);
  if (range.highest < 'a') {
    for (char& character : text)
      if (character >= 'a' && character <= 'z')
        character = static_cast<char>(character - 'a' + 'A');
  }
  return range.Takes(text) && text.size() <= kMaximumLength ? text : time.numeric;
}

}  // namespace vantrel::console
