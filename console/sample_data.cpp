#include "console/sample_data.h"

#include "link/frame.h"

#include <algorithm>

namespace vantrel {
namespace {

constexpr std::size_t kMaximumLength = 21;

void ReplaceAll(std::string& text, std::string_view what, std::string_view with) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + with.size()))
    text.replace(at, what.size(), with);
}

}  // namespace

CharacterRange CharacterRange::Parse(std::string_view range_text) {
  return {HexPair(range_text, 0), HexPair(range_text, 6)};
}

bool CharacterRange::Takes(std::string_view text) const {
  return std::all_of(text.begin(), text.end(), [this](char character) {
    const unsigned code = static_cast<unsigned char>(character);
    return code >= lowest && code <= highest && code != 0x02 && code != 0x03;
  });
}

std::string SampleTime(const TimeText& time, const CharacterRange& range) {
  std::string text = time.local;
  // No-break, thin and narrow no-break blanks, which stand in many languages' times.
  for (const char* blank : {"\u00A0", "\u2009", "\u202F"}) ReplaceAll(text, blank, " ");
  if (range.highest < 'a') {
    for (char& character : text)
      if (character >= 'a' && character <= 'z')
        character = static_cast<char>(character - 'a' + 'A');
  }
  return range.Takes(text) && text.size() <= kMaximumLength ? text : time.numeric;
}

}  // namespace vantrel
