// SPDX-License-Identifier: MIT
#pragma once

#include "printer/commands/printer_state.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vantrel::printer {

struct NamedCard {
  std::string name;
  Card card;
};

// All cards of a deck, the printer's too, and which of them that is, from 0.
struct DeckContents {
  std::vector<NamedCard> cards;
  std::size_t current = 0;
};

// A few cards beside the printer. One of them is the printer's, wherever that lies; the deck holds
// the others and only the name of that one.
class CardDeck {
 public:
  static constexpr std::size_t kMostCards = 50;

  // One card, "Card 1": the printer's.
  CardDeck() = default;

  std::size_t Size() const { return cards_.size(); }
  // Which card is the printer's, from 0.
  std::size_t Current() const { return current_; }
  // "Card 1", "Card 2", in the order in which they were made. Throws std::out_of_range.
  const std::string& Name(std::size_t index) const { return cards_.at(index).name; }
  bool IsFull() const { return cards_.size() >= kMostCards; }

  // Takes the printer's card back as it is now, makes another the printer's, and returns it.
  // Throws std::out_of_range, and changes nothing, when there is no card of that index.
  Card Choose(std::size_t index, Card returned);
  // The same with a new blank card. Throws std::length_error, and changes nothing, when the deck is
  // full.
  Card Make(Card returned);

  // All cards with the printer's as it is now.
  DeckContents Contents(Card printers) const;
  // Puts other cards in place of all and returns the printer's. Throws std::invalid_argument, and
  // changes nothing, where there is none, there are too many, or none of them is the printer's.
  Card Replace(DeckContents contents);

 private:
  std::vector<NamedCard> cards_{{"Card 1", {}}};
  std::size_t current_ = 0;
};

}  // namespace vantrel::printer
