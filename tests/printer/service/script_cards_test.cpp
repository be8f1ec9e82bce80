// SPDX-License-Identifier: MIT

// The lines of a script that deal with cards.

#include "tests/printer/service/script_fixture.h"

#include <QImage>

namespace vantrel::printer {
namespace {

using testing::HasSubstr;

class ScriptCards : public ScriptFixture {};

TEST_F(ScriptCards, TakeATrackAsItStandsAfterOneBlank) {
  EXPECT_EQ(Ask("  track\t 1  A  B "), "ok");
  EXPECT_EQ(model_.State().card.tracks[0], " A  B ");
  EXPECT_EQ(Ask("track 1 "), "ok");
  EXPECT_EQ(model_.State().card.tracks[0], "");
  EXPECT_EQ(Ask("track 1 \"A\""), "ok");
  EXPECT_EQ(model_.State().card.tracks[0], "\"A\"");
  // An end of line of other systems is none of the text.
  EXPECT_EQ(Ask("track 1 A\r"), "ok");
  EXPECT_EQ(model_.State().card.tracks[0], "A");
}

TEST_F(ScriptCards, RefuseATrackThatIsLongerThanTheCards) {
  EXPECT_EQ(Ask("track 1 " + std::string(76, 'A')), "ok");
  EXPECT_EQ(Ask("track 1 " + std::string(77, 'B')), "error the track holds 76 bytes");
  EXPECT_EQ(model_.State().card.tracks[0], std::string(76, 'A'));
  EXPECT_EQ(Ask("track 2 " + std::string(70, 'B')), "error the track holds 69 bytes");
  EXPECT_EQ(Ask("track 3 " + std::string(105, 'B')), "error the track holds 104 bytes");
}

TEST_F(ScriptCards, MeanNothingByBlanksAroundWords) {
  EXPECT_EQ(Ask("\t insert \t cleaning  "), "ok");
  EXPECT_EQ(model_.State().card.kind, CardKind::kCleaning);
  EXPECT_EQ(Ask("pull   \t"), "ok");
  EXPECT_EQ(Ask("  # a comment\n  read   track  1 "), "ok");
}

TEST_F(ScriptCards, AreMadeChosenAndListed) {
  EXPECT_EQ(Ask("card list"), "ok 1 \"Card 1\" ordinary, chosen");
  Ask("track 1 FIRST");
  EXPECT_EQ(Ask("card new"), "ok 2");
  EXPECT_EQ(Ask("read track 1"), "ok");
  EXPECT_EQ(Ask("card new cleaning"), "ok 3");
  EXPECT_EQ(Ask("card list"),
            "ok 1 \"Card 1\" ordinary; 2 \"Card 2\" ordinary; 3 \"Card 3\" cleaning, chosen");
  EXPECT_EQ(Ask("card choose 1"), "ok");
  EXPECT_EQ(Ask("read track 1"), "ok FIRST");
  EXPECT_EQ(Ask("card choose 1"), "ok");
  EXPECT_EQ(Ask("read track 1"), "ok FIRST");
}

TEST_F(ScriptCards, AreNotChosenWhileOneIsIn) {
  Ask("card new");
  Ask("insert");
  for (const char* line : {"card new", "card choose 1", "deck open deck.json"})
    EXPECT_EQ(Ask(line), "error there is a card in the printer") << line;
  EXPECT_EQ(Ask("card list"), "ok 1 \"Card 1\" ordinary; 2 \"Card 2\" ordinary, chosen");
}

TEST_F(ScriptCards, RefuseWhatTheDeckHasNot) {
  for (const char* bad : {"0", "2", "-1", "x", "", "1 1"}) {
    EXPECT_EQ(Ask("card choose " + std::string(bad)),
              "error card choose takes the number of a card, 1 to 1")
        << bad;
  }
  EXPECT_EQ(Ask("card new green"), "error a card is \"ordinary\" or \"cleaning\"");
  EXPECT_EQ(Ask("card"), "error card takes \"new\", \"choose\" or \"list\"");
  EXPECT_EQ(Ask("card list all"), "error card list takes no parameter");
  for (int i = 1; i < 50; ++i) Ask("card new");
  EXPECT_EQ(Ask("card new"), "error the deck holds no more than 50 cards");
}

TEST_F(ScriptCards, AreSavedAndOpened) {
  const std::string path = folder_.Path("my deck.json");
  Ask("track 2 12\\x01");
  Ask("card new cleaning");
  EXPECT_EQ(Ask("deck save \"" + path + "\""), "ok");
  EXPECT_THAT(folder_.Contents("my deck.json"), HasSubstr(R"("12\\x01")"));
  Ask("card choose 1");
  Ask("track 2");
  EXPECT_EQ(Ask("deck open " + path), "ok");
  EXPECT_EQ(Ask("card list"), "ok 1 \"Card 1\" ordinary; 2 \"Card 2\" cleaning, chosen");
  Ask("card choose 1");
  EXPECT_EQ(Ask("read track 2"), "ok 12\\x01");
}

TEST_F(ScriptCards, StayWhereADeckCannotBeOpened) {
  folder_.Make("bad.json", "{}");
  Ask("track 1 KEPT");
  EXPECT_THAT(Ask("deck open " + folder_.Path("bad.json")), HasSubstr("is no deck of cards"));
  EXPECT_THAT(Ask("deck open " + folder_.Path("none.json")),
              HasSubstr("was not opened: No such file or directory."));
  EXPECT_THAT(Ask("deck save " + folder_.Path("no/deck.json")), HasSubstr("was not saved"));
  EXPECT_EQ(Ask("read track 1"), "ok KEPT");
  EXPECT_EQ(Ask("deck save"), "error deck save takes a path");
  EXPECT_EQ(Ask("deck open \""), "error deck open takes a path");
  EXPECT_EQ(Ask("deck"), "error deck takes \"save\" or \"open\"");
}

TEST_F(ScriptCards, HaveTheirPathsOfAnyBytes) {
  // No UTF-8.
  const std::string path = folder_.Path("\xE4 \"b\".pbm");
  EXPECT_EQ(Ask("face \"" + path + "\""), "ok");
  EXPECT_EQ(folder_.Contents("\xE4 \"b\".pbm").substr(0, 11), "P4\n480 320\n");
  EXPECT_EQ(Ask("face " + folder_.Path("a b.pbm") + "  "), "ok");
  EXPECT_EQ(folder_.Contents("a b.pbm").size(), 11U + 60 * 320);
}

TEST_F(ScriptCards, QuoteALongPathInPart) {
  const std::string path = "/nowhere/" + std::string(100, 'x') + ".png";
  EXPECT_EQ(Ask("face " + path), "error \"/nowhere/" + std::string(51, 'x') +
                                     "...\" was not saved: No such file or directory.");
  EXPECT_EQ(Ask("log " + path), "error \"/nowhere/" + std::string(51, 'x') +
                                    "...\" was not saved: No such file or directory.");
}

TEST_F(ScriptCards, ShowThePrintExpansionBuffer) {
  // 42h draws the frame of 48 by 48 dots at (0, 47), overwriting, horizontal.
  EXPECT_EQ(Exchange("02 42 31 2C 30 2C 34 37 2C 30 03 5F", 1).substr(0, 2), "06");
  const std::string path = folder_.Path("buffer.png");
  EXPECT_EQ(Ask("buffer " + path), "ok");
  const QImage picture(QString::fromStdString(path));
  ASSERT_EQ(picture.size(), QSize(480, 320));
  EXPECT_EQ(qGray(picture.pixel(0, 0)), 0);
  EXPECT_EQ(qGray(picture.pixel(100, 100)), 255);
  EXPECT_EQ(Ask("buffer card.gif"), "error buffer takes a path that ends in .png or .pbm");
  // The card's face is another picture.
  EXPECT_EQ(Ask("face " + path), "ok");
  EXPECT_EQ(qGray(QImage(QString::fromStdString(path)).pixel(0, 0)), 255);
}

TEST_F(ScriptCards, TellPresetsAndBuffers) {
  EXPECT_EQ(Ask("presets"), "ok 1 none, 2 none, 3 none");
  EXPECT_EQ(Ask("buffers"), "ok 1 none, 2 none, 3 none");
  // 38h loads A, a double quote and 01h in the direction of reading.
  EXPECT_EQ(Exchange("02 38 41 22 01 03 59", 6), "06 02 38 20 03 1B");
  EXPECT_EQ(Ask("presets"), "ok 1 \"A\\x22\\x01\", 2 none, 3 none");
  Ask("track 2 12");
  Ask("insert");
  EXPECT_EQ(Exchange("02 26 03 25", 8), "06 02 26 20 31 32 03 06");
  EXPECT_EQ(Ask("buffers"), "ok 1 \"\", 2 \"12\", 3 \"\"");
  EXPECT_EQ(Ask("presets now"), "error presets takes no parameter");
  EXPECT_EQ(Ask("buffers now"), "error buffers takes no parameter");
}

}  // namespace
}  // namespace vantrel::printer
