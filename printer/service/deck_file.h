// SPDX-License-Identifier: MIT
#pragma once

#include "printer/model/card_deck.h"

#include <string>

namespace vantrel::printer {

// The greatest deck file that is read, in bytes.
inline constexpr std::size_t kMostDeckBytes = std::size_t{16} << 20;

// Saves a deck as a JSON file, whole or not at all as log::ReplaceFile does:
//
//   {"current": 1, "cards": [{"name": "Card 1", "kind": "ordinary",
//     "tracks": ["VANTREL", "", "12\\x01"], "face": "iVBORw0..."}, ...]}
//
// "current" is the number of the printer's card, from 1; "kind" is "ordinary" or "cleaning". In the
// tracks "\xHH" (in JSON "\\xHH") stands for a byte that is not printable and two backslashes for
// one. "face" is a PNG of 480 by 320 dots in base64. Returns an empty text, or why it was not
// saved.
std::string SaveDeck(const DeckContents& deck, const std::string& path);

// Reads such a file. "current" may be missing: then it is the first. Throws std::runtime_error, in
// one sentence, for a file that cannot be read, is no regular file, or is not such a deck.
DeckContents OpenDeck(const std::string& path);

}  // namespace vantrel::printer
