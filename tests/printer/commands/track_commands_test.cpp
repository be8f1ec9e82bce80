// SPDX-License-Identifier: MIT

#include "tests/support/printer_bench.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

// Frames and replies are written by hand: STX, code, data, ETX and the exclusive-or of all after
// STX. The tracks hold "ABC", "45" and nothing.
class TrackCommands : public testing::Test {
 protected:
  TrackCommands() {
    bench_.model.SetInstantWork(true);
    bench_.model.SetTrack(0, "ABC");
    bench_.model.SetTrack(1, "45");
  }

  support::PrinterBench bench_;
};

TEST_F(TrackCommands, ReadTheTracksOfACardThatIsIn) {
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 21 03 22"), support::Chunks{"06 02 21 20 41 42 43 03 42"});
  EXPECT_EQ(bench_.Send("02 22 03 21"), support::Chunks{"06 02 22 20 34 35 03 00"});
  EXPECT_EQ(bench_.Send("02 25 03 26"), support::Chunks{"06 02 25 20 41 42 43 03 46"});
  EXPECT_EQ(bench_.Send("02 26 03 25"), support::Chunks{"06 02 26 20 34 35 03 04"});
}

TEST_F(TrackCommands, AnswerAnEmptyTrackWith23h) {
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 23 03 20"), support::Chunks{"06 02 23 23 03 03"});
  EXPECT_EQ(bench_.Send("02 27 03 24"), support::Chunks{"06 02 27 23 03 07"});
  EXPECT_EQ(bench_.Send("02 2B 03 28"), support::Chunks{"06 02 2B 23 03 0B"});
}

TEST_F(TrackCommands, ReadACleaningCardAsOneWithNoStripe) {
  bench_.model.SetCardKind(CardKind::kCleaning);
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 21 03 22"), support::Chunks{"06 02 21 23 03 01"});
}

TEST_F(TrackCommands, DrawTheCardInAndCountEachPass) {
  bench_.InsertCard();
  EXPECT_EQ(bench_.model.State().place, CardPlace::kFront);
  bench_.Send("02 21 03 22");
  EXPECT_EQ(bench_.model.State().place, CardPlace::kInside);
  bench_.Send("02 25 03 26");
  EXPECT_EQ(bench_.model.State().transports, 2U);
}

TEST_F(TrackCommands, WaitForACard) {
  EXPECT_EQ(bench_.Send("02 21 03 22"), support::Chunks{"06"});
  EXPECT_EQ(bench_.model.ActivityInWords(), "21h waits for a card");
  EXPECT_EQ(bench_.Pass(std::chrono::minutes(10)), support::Chunks{});
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{"02 21 20 41 42 43 03 42"});
  EXPECT_EQ(bench_.model.ActivityInWords(), "Idle");
}

TEST_F(TrackCommands, OfACardAlreadyInDoNotWait) {
  EXPECT_EQ(bench_.Send("02 25 03 26"), support::Chunks{"06 02 25 22 03 04"});
  EXPECT_EQ(bench_.Send("02 26 03 25"), support::Chunks{"06 02 26 22 03 07"});
  EXPECT_EQ(bench_.Send("02 27 03 24"), support::Chunks{"06 02 27 22 03 06"});
}

TEST_F(TrackCommands, OfACardAlreadyInDoNotTakeOneThatWaitsToBePulledOut) {
  bench_.InsertCard();
  bench_.Send("02 50 31 03 62");
  EXPECT_EQ(bench_.Send("02 25 03 26"), support::Chunks{"06 02 25 22 03 04"});
}

TEST_F(TrackCommands, WaitForTheRemovalOfADischargedCardThenForACard) {
  bench_.InsertCard();
  bench_.Send("02 50 31 03 62");
  EXPECT_EQ(bench_.Send("02 21 03 22"), support::Chunks{"06"});
  EXPECT_EQ(bench_.model.ActivityInWords(), "21h waits for the card to be pulled out");
  EXPECT_EQ(bench_.PullOutCard(), support::Chunks{});
  EXPECT_EQ(bench_.model.ActivityInWords(), "21h waits for a card");
  bench_.Pass(kReplyGap);
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{"02 21 20 41 42 43 03 42"});
}

TEST_F(TrackCommands, ReadInThreeBuffersWhatTheLastPassLeft) {
  bench_.InsertCard();
  bench_.Send("02 23 03 20");
  bench_.PullOutCard();
  EXPECT_EQ(bench_.Send("02 29 03 2A"), support::Chunks{"06 02 29 20 41 42 43 03 4A"});
  EXPECT_EQ(bench_.Send("02 2A 03 29"), support::Chunks{"06 02 2A 20 34 35 03 08"});
}

TEST_F(TrackCommands, WaitForACardWhenNoneHasPassedSinceAReset) {
  bench_.InsertCard();
  bench_.Send("02 21 03 22");
  bench_.PullOutCard();
  EXPECT_EQ(bench_.Send("02 5F 03 5C"), support::Chunks{"06 02 5F 20 03 7C"});
  EXPECT_EQ(bench_.Send("02 29 03 2A"), support::Chunks{"06"});
  bench_.Pass(kReplyGap);
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{"02 29 20 41 42 43 03 4A"});
}

TEST_F(TrackCommands, ReadATrackAsItWasChangedInTheMeantime) {
  bench_.InsertCard();
  bench_.Send("02 21 03 22");
  bench_.model.SetTrack(0, "D");
  EXPECT_EQ(bench_.Send("02 21 03 22"), support::Chunks{"06 02 21 20 44 03 46"});
}

TEST_F(TrackCommands, TakeNoParameter) {
  for (const char* frame :
       {"02 21 31 03 13", "02 22 31 03 10", "02 23 31 03 11", "02 25 31 03 17", "02 26 31 03 14",
        "02 27 31 03 15", "02 29 31 03 1B", "02 2A 31 03 18", "02 2B 31 03 19"}) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{"10"}) << frame;
  }
}

TEST(Track, HoldsNoBytesThatCannotBeRecorded) {
  PrinterModel model{support::InstalledFonts(), link::CodePage::kWestern};
  model.SetTrack(0, std::string("A\x02\x03\x00"
                                "B\x7F\xE9\x01",
                                8));
  EXPECT_EQ(model.State().card.tracks[0], "AB\x01");
}

TEST(Track, HoldsNoMoreThanItsLength) {
  PrinterModel model{support::InstalledFonts(), link::CodePage::kWestern};
  for (std::size_t track = 0; track < kTracks; ++track) {
    model.SetTrack(track, std::string(300, '5'));
  }
  EXPECT_EQ(model.State().card.tracks[0].size(), 76U);
  EXPECT_EQ(model.State().card.tracks[1].size(), 69U);
  EXPECT_EQ(model.State().card.tracks[2].size(), 104U);
}

}  // namespace
}  // namespace vantrel::printer
