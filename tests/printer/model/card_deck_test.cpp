// SPDX-License-Identifier: MIT

#include "printer/model/card_deck.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel::printer {
namespace {

Card CardWith(const std::string& track) {
  Card card;
  card.tracks[0] = track;
  return card;
}

TEST(CardDeck, BeginsWithThePrintersCard) {
  const CardDeck deck;
  EXPECT_EQ(deck.Size(), 1U);
  EXPECT_EQ(deck.Current(), 0U);
  EXPECT_EQ(deck.Name(0), "Card 1");
}

TEST(CardDeck, GivesEachCardBackAsItWasReturned) {
  CardDeck deck;
  EXPECT_EQ(deck.Make(CardWith("A")).tracks[0], "");
  EXPECT_EQ(deck.Make(CardWith("B")).tracks[0], "");
  EXPECT_EQ(deck.Name(deck.Current()), "Card 3");
  EXPECT_EQ(deck.Choose(0, CardWith("C")).tracks[0], "A");
  EXPECT_EQ(deck.Choose(1, CardWith("A2")).tracks[0], "B");
  EXPECT_EQ(deck.Choose(2, CardWith("B")).tracks[0], "C");
  EXPECT_EQ(deck.Choose(0, CardWith("C")).tracks[0], "A2");
}

TEST(CardDeck, GivesTheSameCardBack) {
  CardDeck deck;
  EXPECT_EQ(deck.Choose(0, CardWith("A")).tracks[0], "A");
}

TEST(CardDeck, RefusesWhatItHasNotAndWhatItCannotHold) {
  CardDeck deck;
  EXPECT_THROW(deck.Choose(1, {}), std::out_of_range);
  while (!deck.IsFull()) deck.Make({});
  EXPECT_EQ(deck.Size(), CardDeck::kMostCards);
  EXPECT_THROW(deck.Make({}), std::length_error);
  EXPECT_EQ(deck.Size(), CardDeck::kMostCards);
}

TEST(CardDeck, TellsAllCardsWithThePrintersAsItIsNow) {
  CardDeck deck;
  deck.Make(CardWith("A"));
  const DeckContents contents = deck.Contents(CardWith("B"));
  ASSERT_EQ(contents.cards.size(), 2U);
  EXPECT_EQ(contents.current, 1U);
  EXPECT_EQ(contents.cards[0].name, "Card 1");
  EXPECT_EQ(contents.cards[0].card.tracks[0], "A");
  EXPECT_EQ(contents.cards[1].name, "Card 2");
  EXPECT_EQ(contents.cards[1].card.tracks[0], "B");
}

TEST(CardDeck, TakesOtherCardsInPlaceOfAll) {
  CardDeck deck;
  deck.Make({});
  EXPECT_EQ(deck.Replace({{{"X", CardWith("A")}, {"Y", CardWith("B")}, {"Z", {}}}, 1}).tracks[0],
            "B");
  EXPECT_EQ(deck.Size(), 3U);
  EXPECT_EQ(deck.Current(), 1U);
  EXPECT_EQ(deck.Name(2), "Z");
  EXPECT_EQ(deck.Choose(0, CardWith("B")).tracks[0], "A");
  EXPECT_THROW(deck.Replace({}), std::invalid_argument);
  EXPECT_THROW(deck.Replace({{{"X", {}}}, 1}), std::invalid_argument);
  EXPECT_THROW(deck.Replace({std::vector<NamedCard>(CardDeck::kMostCards + 1), 0}),
               std::invalid_argument);
  EXPECT_EQ(deck.Size(), 3U);
}

}  // namespace
}  // namespace vantrel::printer
