// SPDX-License-Identifier: MIT

#include "tests/support/printer_bench.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

// Frames and replies are written by hand: STX, code, data, ETX and the exclusive-or of all after
// STX.
class MagneticCommands : public testing::Test {
 protected:
  MagneticCommands() { bench_.model.SetInstantWork(true); }

  const std::string& Track(std::size_t track) const {
    return bench_.model.State().card.tracks.at(track);
  }

  // A frame of `code`, as many bytes "5" (35h) and the block check.
  support::Chunks SendFives(const std::string& code, int count, const std::string& check) {
    std::string frame = "02 " + code;
    for (int i = 0; i < count; ++i) frame += " 35";
    return bench_.Send(frame + " 03 " + check);
  }

  support::PrinterBench bench_;
};

TEST_F(MagneticCommands, WriteTheFirstTrackFromItsPreset) {
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 3B 41 42 03 3B"), support::Chunks{"06 02 3B 20 03 18"});
  EXPECT_EQ(Track(0), "");
  EXPECT_EQ(bench_.Send("02 31 31 03 03"), support::Chunks{"06 02 31 20 03 12"});
  EXPECT_EQ(Track(0), "AB");
  EXPECT_EQ(bench_.Send("02 21 03 22"), support::Chunks{"06 02 21 20 41 42 03 01"});
}

TEST_F(MagneticCommands, PresetTheTracksInThrees) {
  struct Row {
    const char* frame;
    const char* reply;
    std::size_t track;
    const char* preset;
  };
  const Row rows[] = {
      {"02 35 41 42 03 35", "06 02 35 20 03 16", 0, "BA"},
      {"02 36 43 44 03 32", "06 02 36 20 03 15", 1, "DC"},
      {"02 37 45 46 03 37", "06 02 37 20 03 14", 2, "FE"},
      {"02 38 41 42 03 38", "06 02 38 20 03 1B", 0, "AB"},
      {"02 39 43 44 03 3D", "06 02 39 20 03 1A", 1, "CD"},
      {"02 3A 45 46 03 3A", "06 02 3A 20 03 19", 2, "EF"},
      {"02 3B 41 42 03 3B", "06 02 3B 20 03 18", 0, "AB"},
      {"02 3C 31 32 03 3C", "06 02 3C 20 03 1F", 1, "12"},
      {"02 3D 33 34 03 39", "06 02 3D 20 03 1E", 2, "34"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(bench_.Send(row.frame), support::Chunks{row.reply});
    EXPECT_EQ(bench_.model.State().presets.at(row.track), row.preset) << row.frame;
  }
}

TEST_F(MagneticCommands, ReadBackAReverseRecordingLastCharacterFirst) {
  bench_.InsertCard();
  bench_.Send("02 35 41 42 03 35");
  bench_.Send("02 36 43 44 03 32");
  EXPECT_EQ(bench_.Send("02 31 33 03 01"), support::Chunks{"06 02 31 20 03 12"});
  EXPECT_EQ(bench_.Send("02 21 03 22"), support::Chunks{"06 02 21 20 42 41 03 01"});
  EXPECT_EQ(bench_.Send("02 26 03 25"), support::Chunks{"06 02 26 20 44 43 03 02"});
}

TEST_F(MagneticCommands, WriteTheTracksOfTheMask) {
  const char* const masks[] = {"02 32 31 03 00", "02 32 32 03 03", "02 32 33 03 02",
                               "02 32 34 03 05", "02 32 35 03 04", "02 32 36 03 07",
                               "02 32 37 03 06"};
  for (unsigned mask = 1; mask <= 7; ++mask) {
    support::PrinterBench bench;
    bench.model.SetInstantWork(true);
    bench.InsertCard();
    bench.Send("02 38 41 42 03 38");
    bench.Send("02 39 43 44 03 3D");
    bench.Send("02 3A 45 46 03 3A");
    EXPECT_EQ(bench.Send(masks[mask - 1]), support::Chunks{"06 02 32 20 03 11"});
    const PrinterState& state = bench.model.State();
    EXPECT_EQ(state.card.tracks[0], (mask & 1U) != 0 ? "AB" : "") << mask;
    EXPECT_EQ(state.card.tracks[1], (mask & 2U) != 0 ? "CD" : "") << mask;
    EXPECT_EQ(state.card.tracks[2], (mask & 4U) != 0 ? "EF" : "") << mask;
    // What is written is spent, the rest waits on.
    EXPECT_EQ(state.presets[0].has_value(), (mask & 1U) == 0) << mask;
    EXPECT_EQ(state.presets[1].has_value(), (mask & 2U) == 0) << mask;
    EXPECT_EQ(state.presets[2].has_value(), (mask & 4U) == 0) << mask;
  }
}

TEST_F(MagneticCommands, AnswerAWriteWithoutAPresetWith37hAndWriteNothing) {
  bench_.model.SetTrack(0, "OLD");
  bench_.InsertCard();
  EXPECT_EQ(bench_.Send("02 31 31 03 03"), support::Chunks{"06 02 31 37 03 05"});
  bench_.Send("02 38 41 42 03 38");
  // Track 2 has none.
  EXPECT_EQ(bench_.Send("02 32 33 03 02"), support::Chunks{"06 02 32 37 03 06"});
  EXPECT_EQ(Track(0), "OLD");
  EXPECT_EQ(bench_.model.State().presets[0], "AB");
}

TEST_F(MagneticCommands, CannotWriteACleaningCard) {
  bench_.model.SetCardKind(CardKind::kCleaning);
  bench_.InsertCard();
  bench_.Send("02 38 41 42 03 38");
  EXPECT_EQ(bench_.Send("02 31 31 03 03"), support::Chunks{"06 02 31 37 03 05"});
  EXPECT_EQ(Track(0), "");
}

TEST_F(MagneticCommands, SpendAPresetWithItsWriting) {
  bench_.InsertCard();
  bench_.Send("02 38 41 42 03 38");
  bench_.Send("02 31 31 03 03");
  EXPECT_EQ(bench_.Send("02 31 31 03 03"), support::Chunks{"06 02 31 37 03 05"});
  EXPECT_EQ(Track(0), "AB");
}

TEST_F(MagneticCommands, ReplaceAPresetByTheNext) {
  bench_.InsertCard();
  bench_.Send("02 3B 41 42 03 3B");
  bench_.Send("02 38 04 7E 03 41");
  bench_.Send("02 31 31 03 03");
  EXPECT_EQ(Track(0), "\x04~");
}

TEST_F(MagneticCommands, LoseThePresetsWithAReset) {
  bench_.InsertCard();
  bench_.Send("02 38 41 42 03 38");
  bench_.Send("02 5F 03 5C");
  EXPECT_EQ(bench_.Send("02 31 31 03 03"), support::Chunks{"06 02 31 37 03 05"});
}

TEST_F(MagneticCommands, FillTheTrackBuffersWithWhatWasWritten) {
  bench_.InsertCard();
  bench_.Send("02 38 41 42 03 38");
  bench_.Send("02 31 31 03 03");
  bench_.PullOutCard();
  EXPECT_EQ(bench_.Send("02 29 03 2A"), support::Chunks{"06 02 29 20 41 42 03 09"});
  EXPECT_EQ(bench_.Send("02 2A 03 29"), support::Chunks{"06 02 2A 23 03 0A"});
}

TEST_F(MagneticCommands, WaitForACardWith31h) {
  bench_.Send("02 38 41 42 03 38");
  EXPECT_EQ(bench_.Send("02 31 31 03 03"), support::Chunks{"06"});
  EXPECT_EQ(bench_.model.ActivityInWords(), "31h waits for a card");
  // A preset may follow while the card is awaited.
  EXPECT_EQ(bench_.Send("02 3B 43 44 03 3F"), support::Chunks{"06 02 3B 20 03 18"});
  bench_.Pass(kReplyGap);
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{"02 31 20 03 12"});
  EXPECT_EQ(Track(0), "CD");
}

TEST_F(MagneticCommands, EndTheWaitOf31hWith54h) {
  bench_.Send("02 38 41 42 03 38");
  bench_.Send("02 31 31 03 03");
  EXPECT_EQ(bench_.Send("02 54 03 57"), support::Chunks{"06 02 54 20 03 77"});
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{});
  EXPECT_EQ(bench_.Pass(std::chrono::minutes(1)), support::Chunks{});
  EXPECT_EQ(Track(0), "");
  EXPECT_EQ(bench_.model.State().presets[0], "AB");
}

TEST_F(MagneticCommands, DoNotWaitForACardWith32h) {
  bench_.Send("02 38 41 42 03 38");
  EXPECT_EQ(bench_.Send("02 32 31 03 00"), support::Chunks{"06 02 32 22 03 13"});
  EXPECT_EQ(bench_.model.State().presets[0], "AB");
}

TEST_F(MagneticCommands, TakeTime) {
  bench_.model.SetInstantWork(false);
  bench_.InsertCard();
  bench_.Send("02 38 41 42 03 38");
  EXPECT_EQ(bench_.Send("02 31 31 03 03"), support::Chunks{"06"});
  EXPECT_EQ(bench_.Pass(std::chrono::milliseconds(1499)), support::Chunks{});
  EXPECT_EQ(bench_.Pass(std::chrono::milliseconds(1)), support::Chunks{"02 31 20 03 12"});
}

TEST_F(MagneticCommands, WriteTheThirdTrackAloneOnAQl8) {
  bench_.model.SetSeries(Series::kQl8);
  bench_.InsertCard();
  // Every preset is taken.
  EXPECT_EQ(bench_.Send("02 38 41 42 03 38"), support::Chunks{"06 02 38 20 03 1B"});
  EXPECT_EQ(bench_.Send("02 39 43 44 03 3D"), support::Chunks{"06 02 39 20 03 1A"});
  EXPECT_EQ(bench_.Send("02 3A 45 46 03 3A"), support::Chunks{"06 02 3A 20 03 19"});
  for (const char* frame :
       {"02 31 31 03 03", "02 31 32 03 00", "02 31 33 03 01", "02 31 35 03 07", "02 31 36 03 04",
        "02 31 37 03 05", "02 32 31 03 00", "02 32 37 03 06"}) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{"10"}) << frame;
  }
  EXPECT_EQ(bench_.Send("02 31 34 03 06"), support::Chunks{"06 02 31 20 03 12"});
  EXPECT_EQ(Track(0) + "," + Track(1) + "," + Track(2), ",,EF");
}

TEST_F(MagneticCommands, TakeOnlyMasksOneToSeven) {
  for (const char* frame : {"02 31 30 03 02", "02 31 38 03 0A", "02 31 03 32", "02 31 31 32 03 31",
                            "02 32 38 03 09", "02 32 03 31"}) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{"10"}) << frame;
  }
}

TEST_F(MagneticCommands, TakeNoEmptyPreset) {
  for (const char* frame :
       {"02 35 03 36", "02 36 03 35", "02 37 03 34", "02 38 03 3B", "02 39 03 3A", "02 3A 03 39",
        "02 3B 03 38", "02 3C 03 3F", "02 3D 03 3E"}) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{"10"}) << frame;
  }
}

TEST_F(MagneticCommands, TakeOnlyCharactersOfTheirTrack) {
  for (const char* frame : {
           "02 35 7F 03 49",  // 7Fh
           "02 38 00 03 3B",  // 00h
           "02 38 80 03 BB",  // 80h
           "02 3B 1F 03 27",  // below the blank
           "02 3B 5F 03 67",  // _
           "02 3C 2F 03 10",  // /
           "02 3C 3F 03 00",  // ?
           "02 3D 2F 03 11",  // /
           "02 3D 3F 03 01",  // ?
       }) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{"10"}) << frame;
  }
  EXPECT_EQ(bench_.Send("02 35 01 03 37"), support::Chunks{"06 02 35 20 03 16"});
  EXPECT_EQ(bench_.Send("02 3B 20 5E 03 46"), support::Chunks{"06 02 3B 20 03 18"});
  EXPECT_EQ(bench_.Send("02 3C 30 3E 03 31"), support::Chunks{"06 02 3C 20 03 1F"});
  EXPECT_EQ(bench_.Send("02 3D 30 3E 03 30"), support::Chunks{"06 02 3D 20 03 1E"});
}

TEST_F(MagneticCommands, TakeNoMoreThanTheirTrackHolds) {
  struct Row {
    const char* code;
    int most;
    const char* check;
    const char* check_of_one_more;
    const char* reply;
  };
  // An odd number of fives leaves 35h in the exclusive-or, an even number nothing.
  const Row rows[] = {
      {"35", 69, "03", "36", "06 02 35 20 03 16"}, {"36", 69, "00", "35", "06 02 36 20 03 15"},
      {"37", 69, "01", "34", "06 02 37 20 03 14"}, {"38", 69, "0E", "3B", "06 02 38 20 03 1B"},
      {"39", 69, "0F", "3A", "06 02 39 20 03 1A"}, {"3A", 69, "0C", "39", "06 02 3A 20 03 19"},
      {"3B", 76, "38", "0D", "06 02 3B 20 03 18"}, {"3C", 37, "0A", "3F", "06 02 3C 20 03 1F"},
      {"3D", 104, "3E", "0B", "06 02 3D 20 03 1E"}};
  for (const Row& row : rows) {
    EXPECT_EQ(SendFives(row.code, row.most, row.check), support::Chunks{row.reply});
    EXPECT_EQ(SendFives(row.code, row.most + 1, row.check_of_one_more), support::Chunks{"10"})
        << row.code;
  }
}

}  // namespace
}  // namespace vantrel::printer
