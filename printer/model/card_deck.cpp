// SPDX-License-Identifier: MIT

#include "printer/model/card_deck.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vantrel::printer {

Card CardDeck::Choose(std::size_t index, Card returned) {
  if (index >= cards_.size()) throw std::out_of_range("There is no such card in the deck.");
  cards_[current_].card = std::move(returned);
  current_ = index;
  return std::exchange(cards_[index].card, {});
}

Card CardDeck::Make(Card returned) {
  if (IsFull()) throw std::length_error("The deck is full.");
  // A card of the usual name may be there, because others were removed or renamed.
  std::string name;
  std::size_t number = cards_.size();
  do {
    name = "Card " + std::to_string(++number);
  } while (std::any_of(cards_.begin(), cards_.end(),
                       [&name](const NamedCard& card) { return card.name == name; }));
  cards_.push_back({name, {}});
  return Choose(cards_.size() - 1, std::move(returned));
}

DeckContents CardDeck::Contents(Card printers) const {
  DeckContents contents{cards_, current_};
  contents.cards[current_].card = std::move(printers);
  return contents;
}

Card CardDeck::Replace(DeckContents contents) {
  if (contents.cards.size() > kMostCards || contents.current >= contents.cards.size())
    throw std::invalid_argument("These are no cards for a deck.");
  cards_ = std::move(contents.cards);
  current_ = contents.current;
  return std::exchange(cards_[current_].card, {});
}

}  // namespace vantrel::printer
