// SPDX-License-Identifier: MIT

#include "printer/service/deck_file.h"

#include "tests/support/file_folder.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace vantrel::printer {
namespace {

using testing::HasSubstr;

// 480 by 320 dots, all white but the left top one, as another program's writer made it.
constexpr const char* kFace =
    "iVBORw0KGgoAAAANSUhEUgAAAeAAAAFAAQAAAABMs5LWAAAAVUlEQVR42u3LoQEAAAgDoH3u6fMHgwk6md6lsizL"
    "sizLsizLsizLsizLsizLsizLsizLsizLsizLsizLsizLsizLsizLsizLsizLsizLsizLsiw/5gW3W7jXQuDteAAA"
    "AABJRU5ErkJggg==";
// One dot.
constexpr const char* kSmallFace =
    "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABAQAAAAA3bvkkAAAACklEQVR42mP4DwABAQEAHLCMmQAAAABJRU5ErkJg"
    "gg==";

class DeckFileTest : public testing::Test {
 protected:
  static std::string CardText(const std::string& tracks, const std::string& face = kFace,
                              const std::string& kind = "ordinary") {
    return R"({"cards":[{"name":"A","kind":")" + kind + R"(","tracks":)" + tracks + R"(,"face":")" +
           face + R"("}]})";
  }
  // What is told of a file of this text.
  std::string Refusal(const std::string& text) const {
    folder_.Make("deck.json", text);
    try {
      OpenDeck(folder_.Path("deck.json"));
      return "was opened";
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  }

  support::FileFolder folder_;
};

TEST_F(DeckFileTest, OpensWhatWasSaved) {
  DeckContents deck;
  deck.cards = {{"Card 1", {}}, {"K\xC3\xA4rtchen", {}}};
  deck.cards[1].card.kind = CardKind::kCleaning;
  deck.cards[1].card.tracks = {std::string("\x01 \\x7E~", 6), "", "12"};
  deck.cards[1].card.face.Set(479, 319, true);
  deck.current = 1;
  ASSERT_EQ(SaveDeck(deck, folder_.Path("deck.json")), "");
  const DeckContents opened = OpenDeck(folder_.Path("deck.json"));
  ASSERT_EQ(opened.cards.size(), 2U);
  EXPECT_EQ(opened.current, 1U);
  EXPECT_EQ(opened.cards[0].name, "Card 1");
  EXPECT_EQ(opened.cards[0].card.kind, CardKind::kOrdinary);
  EXPECT_EQ(opened.cards[1].name, "K\xC3\xA4rtchen");
  EXPECT_EQ(opened.cards[1].card.kind, CardKind::kCleaning);
  EXPECT_EQ(opened.cards[1].card.tracks, deck.cards[1].card.tracks);
  EXPECT_EQ(opened.cards[1].card.face, deck.cards[1].card.face);
  EXPECT_NE(opened.cards[0].card.face, deck.cards[1].card.face);
}

TEST_F(DeckFileTest, OpensWhatOthersWrote) {
  folder_.Make("deck.json", CardText(R"(["a\\x01b","\\\\","12"])"));
  const DeckContents opened = OpenDeck(folder_.Path("deck.json"));
  ASSERT_EQ(opened.cards.size(), 1U);
  EXPECT_EQ(opened.current, 0U);
  const Card& card = opened.cards[0].card;
  EXPECT_EQ(card.tracks[0], std::string("a\x01"
                                        "b"));
  EXPECT_EQ(card.tracks[1], "\\");
  EXPECT_TRUE(card.face.At(0, 0));
  EXPECT_FALSE(card.face.At(1, 0));
  EXPECT_FALSE(card.face.At(479, 319));
}

TEST_F(DeckFileTest, WritesEscapedTracks) {
  DeckContents deck;
  deck.cards = {{"A", {}}};
  deck.cards[0].card.tracks[0] = "a\x01\\";
  ASSERT_EQ(SaveDeck(deck, folder_.Path("deck.json")), "");
  EXPECT_THAT(folder_.Contents("deck.json"), HasSubstr(R"("a\\x01\\\\")"));
}

TEST_F(DeckFileTest, TellsWhatIsWrong) {
  const std::string good = R"(["","",""])";
  EXPECT_THAT(Refusal(""), HasSubstr("deck.json is no deck of cards: it is no JSON"));
  EXPECT_THAT(Refusal("{\"cards\":[}"), HasSubstr("it is no JSON"));
  EXPECT_THAT(Refusal("{}"), HasSubstr("it has no \"cards\""));
  EXPECT_THAT(Refusal("[1]"), HasSubstr("it has no \"cards\""));
  EXPECT_THAT(Refusal("{\"cards\":[1]}"), HasSubstr("card 1: is no object"));
  EXPECT_THAT(Refusal("{\"cards\":[{}]}"), HasSubstr("card 1: \"name\" is no text"));
  EXPECT_THAT(Refusal(CardText(good, kFace, "blank")),
              HasSubstr("card 1: \"kind\" is neither \"ordinary\" nor \"cleaning\""));
  EXPECT_THAT(Refusal(CardText(R"(["",""])")), HasSubstr("\"tracks\" are not three texts"));
  EXPECT_THAT(Refusal(CardText(R"(["",1,""])")), HasSubstr("track 2 is no text with"));
  EXPECT_THAT(Refusal(CardText(R"(["\\x0","",""])")), HasSubstr("track 1 is no text with"));
  EXPECT_THAT(Refusal(CardText(R"(["","","\\x02"])")), HasSubstr("track 3 holds other bytes"));
  EXPECT_THAT(Refusal(CardText(R"(["",")" + std::string(70, 'A') + R"(",""])")),
              HasSubstr("track 2 holds more than 69 bytes"));
  EXPECT_THAT(Refusal(CardText(good, "?")), HasSubstr("\"face\" is no PNG in base64"));
  EXPECT_THAT(Refusal(CardText(good, "QUJD")), HasSubstr("\"face\" is no PNG in base64"));
  EXPECT_THAT(Refusal(CardText(good, kSmallFace)),
              HasSubstr("\"face\" is 1 by 1 dots, not 480 by 320"));
  std::string outside = CardText(good);
  outside.insert(1, "\"current\":2,");
  EXPECT_THAT(Refusal(outside), HasSubstr("\"current\" is the number of none of its cards"));
}

TEST_F(DeckFileTest, TellsWhyAFileIsNotOpened) {
  EXPECT_THROW(OpenDeck(folder_.Path("none.json")), std::runtime_error);
  EXPECT_THROW(OpenDeck(folder_.Path("")), std::runtime_error);
  // Nobody would ever write to it.
  ASSERT_EQ(mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
  try {
    OpenDeck(folder_.Path("pipe"));
    FAIL() << "was opened";
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("pipe was not opened: It is no regular file."));
  }
}

TEST_F(DeckFileTest, OpensNoFileOfMoreThan16Megabytes) {
  folder_.Make("deck.json", "");
  std::filesystem::resize_file(folder_.Path("deck.json"), 16 * 1024 * 1024 + 1000000);
  try {
    OpenDeck(folder_.Path("deck.json"));
    ADD_FAILURE();
  } catch (const std::runtime_error& refusal) {
    EXPECT_EQ(refusal.what(),
              folder_.Path("deck.json") + " was not opened: It is larger than 16 MB.");
  }
}

TEST_F(DeckFileTest, TellsWhyItWasNotSaved) {
  DeckContents deck;
  deck.cards = {{"A", {}}};
  EXPECT_THAT(SaveDeck(deck, folder_.Path("none/deck.json")), HasSubstr("was not saved"));
}

}  // namespace
}  // namespace vantrel::printer
