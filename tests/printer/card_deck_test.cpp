#include "printer/card_deck.h"

#include "printer/rhythm.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel {
namespace {

using namespace std::chrono_literals;

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

TEST(Rhythm, IsOnForHalfOfEachCycle) {
  EXPECT_FALSE(IsOn('0', 0ms));
  EXPECT_TRUE(IsOn('1', 100000ms));
  EXPECT_TRUE(IsOn('2', 499ms));
  EXPECT_FALSE(IsOn('2', 500ms));
  EXPECT_TRUE(IsOn('2', 100000ms));
  EXPECT_TRUE(IsOn('3', 0ms));
  EXPECT_FALSE(IsOn('3', 1000ms));
  EXPECT_TRUE(IsOn('4', 2499ms));
  EXPECT_FALSE(IsOn('4', 3000ms));
}

TEST(Rhythm, TellsWhenItNextTurns) {
  EXPECT_EQ(UntilNextTurn('1', 0ms), std::nullopt);
  EXPECT_EQ(UntilNextTurn('2', 0ms), 500ms);
  EXPECT_EQ(UntilNextTurn('2', 700ms), 300ms);
  EXPECT_EQ(UntilNextTurn('3', 700ms), 300ms);
  EXPECT_EQ(UntilNextTurn('3', 1000ms), std::nullopt);
  EXPECT_EQ(UntilNextTurn('4', 2999ms), 1ms);
  EXPECT_EQ(UntilNextTurn('4', 3000ms), std::nullopt);
}

}  // namespace
}  // namespace vantrel
