// SPDX-License-Identifier: MIT

#include "protocol/frame_reader.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

namespace vantrel::protocol {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The frame of 21h is 02 21 03 22: the block check is the exclusive-or of all after STX.

constexpr Moment kStart{1000};

// The groups of a stream in hex, as "frame 02210322"; one that is not over ends in "...".
class Groups {
 public:
  explicit Groups(Direction sender) : reader(sender) {}

  std::vector<std::string> Take(std::string_view hex, Moment now = kStart) {
    reader.Settle(now);
    for (const std::uint8_t byte : link::BytesOf(hex)) {
      const FrameReader::Step step = reader.Take(byte, now);
      if (step.begins) groups_.push_back(NameOf(step.kind));
      groups_.back() += link::HexOf(byte);
    }
    std::vector<std::string> groups = groups_;
    if (reader.IsOpen()) groups.back() += "...";
    return groups;
  }

  FrameReader reader;

 private:
  static std::string NameOf(GroupKind kind) {
    if (kind == GroupKind::kFrame) return "frame ";
    return kind == GroupKind::kControl ? "control " : "noise ";
  }

  std::vector<std::string> groups_;
};

TEST(FrameReader, TellsFramesControlCharactersAndNoiseOfAPrinterApart) {
  EXPECT_THAT(Groups(Direction::kFromPrinter).Take("FF0006022122030015021020033310"),
              ElementsAre("noise FF00", "control 06", "frame 0221220300", "control 15",
                          "frame 0210200333", "control 10"));
}

TEST(FrameReader, KnowsNoControlCharactersOfAConsole) {
  EXPECT_THAT(Groups(Direction::kFromConsole).Take("0615100221032206"),
              ElementsAre("noise 061510", "frame 02210322", "noise 06..."));
}

TEST(FrameReader, SaysWhichByteMakesAFrameWhole) {
  FrameReader reader(Direction::kFromConsole);
  const GroupKind frame = GroupKind::kFrame;
  EXPECT_EQ(reader.Take(0x02, kStart), (FrameReader::Step{frame, true, false, false}));
  EXPECT_EQ(reader.Take(0x21, kStart), (FrameReader::Step{frame, false, false, false}));
  EXPECT_EQ(reader.Take(0x03, kStart), (FrameReader::Step{frame, false, false, false}));
  EXPECT_EQ(reader.Take(0x22, kStart), (FrameReader::Step{frame, false, true, true}));
}

TEST(FrameReader, KeepsControlCharactersInAFrame) {
  EXPECT_THAT(Groups(Direction::kFromPrinter).Take("022120061015030106"),
              ElementsAre("frame 0221200610150301", "control 06"));
}

TEST(FrameReader, LetsAControlCharacterEndAFrameThatACommandHasOvertaken) {
  Groups groups(Direction::kFromPrinter);
  groups.Take("02212006");
  groups.reader.Overtake();
  EXPECT_THAT(groups.Take("41060225200304"),
              ElementsAre("frame 0221200641", "control 06", "frame 0225200304"));
}

TEST(FrameReader, ForgetsThatAFrameWasOvertakenWithTheFrame) {
  Groups groups(Direction::kFromPrinter);
  groups.Take("022120");
  groups.reader.Overtake();
  EXPECT_THAT(groups.Take("0221200603"), ElementsAre("frame 022120", "frame 0221200603..."));
}

TEST(FrameReader, OvertakesNothingBetweenFrames) {
  Groups groups(Direction::kFromPrinter);
  groups.reader.Overtake();
  EXPECT_THAT(groups.Take("02212006"), ElementsAre("frame 02212006..."));
}

TEST(FrameReader, EndsAFrameAndNoiseAfter500MillisecondsOfSilence) {
  for (const std::string_view begun : {"0221", "FF"}) {
    Groups groups(Direction::kFromPrinter);
    groups.Take(begun);
    EXPECT_EQ(groups.reader.Deadline(), kStart + std::chrono::milliseconds(500));
    EXPECT_EQ(groups.Take("41", Moment{1499}).size(), 1U);
    EXPECT_EQ(groups.Take("41", Moment{1999}).size(), 2U);
  }
}

TEST(FrameReader, HasNoDeadlineBetweenGroups) {
  Groups groups(Direction::kFromPrinter);
  groups.Take("0602210322");
  EXPECT_FALSE(groups.reader.Deadline());
}

TEST(FrameReader, EndsAGroupAtTheGreatestLength) {
  FrameReader reader(Direction::kFromConsole);
  std::vector<std::size_t> ends;
  reader.Take(0x02, kStart);
  for (std::size_t i = 1; i < 3 * kLongestGroup; ++i) {
    if (reader.Take(0x41, kStart).ends) ends.push_back(i);
  }
  EXPECT_THAT(ends, ElementsAre(65536U, 131073U, 196610U));
}

TEST(KindOf, IsThatOfTheReader) {
  EXPECT_EQ(KindOf(Direction::kFromPrinter, link::BytesOf("0221")), GroupKind::kFrame);
  EXPECT_EQ(KindOf(Direction::kFromPrinter, link::BytesOf("15")), GroupKind::kControl);
  EXPECT_EQ(KindOf(Direction::kFromPrinter, link::BytesOf("1515")), GroupKind::kNoise);
  EXPECT_EQ(KindOf(Direction::kFromConsole, link::BytesOf("15")), GroupKind::kNoise);
  EXPECT_EQ(KindOf(Direction::kFromConsole, {}), GroupKind::kNoise);
}

TEST(PartsOf, TakesAFrameApart) {
  const link::Bytes frame = link::BytesOf("0250310362");
  EXPECT_THAT(PartsOf(frame).content, ElementsAre(0x50, 0x31));
  EXPECT_EQ(PartsOf(frame).check, 0x62);
  EXPECT_TRUE(PartsOf(frame).CheckIsGood());
}

TEST(PartsOf, TellsABadCheckFromNone) {
  const link::Bytes bad = link::BytesOf("02210323");
  EXPECT_EQ(PartsOf(bad).check, 0x23);
  EXPECT_FALSE(PartsOf(bad).CheckIsGood());
  for (const std::string_view cut : {"02", "0221", "022103"}) {
    const link::Bytes frame = link::BytesOf(cut);
    EXPECT_FALSE(PartsOf(frame).check);
    EXPECT_FALSE(PartsOf(frame).CheckIsGood());
  }
  const link::Bytes stx_alone = link::BytesOf("02");
  EXPECT_THAT(PartsOf(stx_alone).content, IsEmpty());
}

TEST(PartsOf, RefusesWhatIsNoFrame) {
  EXPECT_THROW(PartsOf({}), std::invalid_argument);
  EXPECT_THROW(PartsOf(link::BytesOf("2102")), std::invalid_argument);
}

TEST(FrameAround, AddsStxEtxAndBlockCheck) {
  EXPECT_EQ(link::HexTextOf(FrameAround(link::Bytes{0x50, 0x31})), "0250310362");
  EXPECT_EQ(link::HexTextOf(FrameAround({})), "020303");
}

}  // namespace
}  // namespace vantrel::protocol
