// SPDX-License-Identifier: MIT

#include "log/capture_reader.h"
#include "tests/log/capture_bytes.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel::log {
namespace {

using testing::ElementsAre;

const CaptureBytes kMake;

// A capture whose first row is 06h; what it tells of its damage.
class BrokenCaptureTest : public testing::Test {
 protected:
  std::vector<std::string> DamageAfter(const std::string& rest) {
    CaptureReader reader;
    const std::string capture = Start() + rest;
    reader.Feed({reinterpret_cast<const std::uint8_t*>(capture.data()), capture.size()}, rows_);
    reader.End(rows_);
    return reader.Damage();
  }
  static std::string Start() {
    return kMake.Section() + kMake.OurInterface() + kMake.Serial(0, 1, 2, "06");
  }
  static std::string AtEnd(const std::string& words) {
    return words + " at byte " + std::to_string(Start().size());
  }
  // A packet block of 36 bytes that claims another length in one of its two places.
  static std::string WithLength(std::uint32_t length, std::size_t at) {
    return kMake.Block(6, std::string(24, '\0')).replace(at, 4, kMake.Number(length, 4));
  }

  std::vector<LogEntry> rows_;
};

std::string RefusalOf(const std::string& bytes) {
  CaptureReader reader;
  std::vector<LogEntry> rows;
  try {
    reader.Feed({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, rows);
    reader.End(rows);
  } catch (const std::runtime_error& refusal) {
    return refusal.what();
  }
  return reader.Damage().empty() ? "" : reader.Damage().front();
}

TEST(CaptureRefusal, TellsWhatIsNoCapture) {
  EXPECT_EQ(RefusalOf(""), "is empty");
  EXPECT_EQ(RefusalOf("Da"), "is no capture");
  EXPECT_EQ(RefusalOf("Date,Time,Direction"), "is no capture");
  EXPECT_EQ(RefusalOf(FromHex("0A0D0D0A 1C000000 00000000 01000000")), "is no capture");
  EXPECT_EQ(RefusalOf(FromHex("0A0D0D0A 10000000 4D3C2B1A 10000000")), "is no capture");
}

TEST(CaptureRefusal, TellsHowToConvertTheOlderFormat) {
  for (const char* first : {"D4C3B2A1", "A1B2C3D4", "4D3CB2A1", "A1B23C4D"})
    EXPECT_EQ(RefusalOf(FromHex(std::string(first) + "02000400 00000000 00000000")),
              "is a capture in the older format pcap, which is not read; 'editcap -F pcapng IN "
              "OUT' makes a pcapng file of it");
}

TEST_F(BrokenCaptureTest, EndsAtABlockWhoseLengthCannotBe) {
  const std::string broken = AtEnd("is broken") + "; what comes after it is not read";
  const std::string next = kMake.Serial(0, 2, 2, "15");
  EXPECT_THAT(DamageAfter(WithLength(8, 4) + next), ElementsAre(broken));
  EXPECT_THAT(DamageAfter(WithLength(0, 4) + next), ElementsAre(broken));
  EXPECT_THAT(DamageAfter(WithLength(38, 4) + next), ElementsAre(broken));
  EXPECT_THAT(DamageAfter(WithLength(0xFFFFFFFC, 4) + next), ElementsAre(broken));
  EXPECT_THAT(DamageAfter(WithLength(40, 32) + next), ElementsAre(broken));
  EXPECT_THAT(DamageAfter(std::string(64, '\0')), ElementsAre(broken));
  EXPECT_EQ(rows_.size(), 6U);
}

TEST_F(BrokenCaptureTest, EndsAtAnUnknownBlockWhoseLengthsDiffer) {
  const std::string unknown = kMake.Block(0x0BAD, std::string(24, '\0'));
  EXPECT_THAT(DamageAfter(std::string(unknown).replace(32, 4, kMake.Number(32, 4)) +
                          kMake.Serial(0, 2, 2, "15")),
              ElementsAre(AtEnd("is broken") + "; what comes after it is not read"));
  EXPECT_THAT(DamageAfter(unknown.substr(0, 33)), ElementsAre(AtEnd("ends within the block")));
  // Four thousand million bytes are claimed, few are there.
  EXPECT_THAT(DamageAfter(std::string(unknown).replace(4, 4, kMake.Number(0xFFFFFFFC, 4))),
              ElementsAre(AtEnd("ends within the block")));
}

TEST_F(BrokenCaptureTest, EndsAtASectionOfNoByteOrder) {
  EXPECT_THAT(DamageAfter(kMake.Section().replace(8, 4, "????")),
              ElementsAre(AtEnd("is broken") + "; what comes after it is not read"));
}

TEST_F(BrokenCaptureTest, PassesOverASectionOfAnUnknownVersion) {
  EXPECT_THAT(DamageAfter(kMake.Section(2) + kMake.OurInterface() + kMake.Serial(0, 2, 2, "15") +
                          kMake.Section() + kMake.OurInterface() + kMake.Serial(0, 3, 2, "10")),
              ElementsAre("holds a section of an unknown version"));
  ASSERT_EQ(rows_.size(), 2U);
  EXPECT_EQ(rows_[1].bytes, "\x10");
}

TEST_F(BrokenCaptureTest, GoesOnAfterAPacketThatIsBrokenWithinItsBlock) {
  const std::string too_long =
      kMake.Packet(0, 2, "0123456789AB").replace(20, 4, kMake.Number(0xFFFFFFFF, 4));
  EXPECT_THAT(DamageAfter(kMake.Serial(7, 2, 2, "15") + too_long + kMake.Packet(0, 2, "short") +
                          kMake.Block(6, "") + kMake.Block(3, "") + kMake.Block(2, "") +
                          kMake.Serial(0, 3, 2, "10")),
              ElementsAre("holds 6 packets that are broken"));
  ASSERT_EQ(rows_.size(), 2U);
  EXPECT_EQ(rows_[1].bytes, "\x10");
}

TEST_F(BrokenCaptureTest, GivesAPacketWhoseOptionsAreBroken) {
  EXPECT_THAT(DamageAfter(kMake.Serial(0, 2, 2, "15", FromHex("0100 FFFF 41424344")) +
                          kMake.Serial(0, 2, 2, "10", kMake.Option(1, "kept"))),
              ElementsAre("holds 1 packet that is broken"));
  ASSERT_EQ(rows_.size(), 3U);
  EXPECT_EQ(rows_[2].comment, "kept");
}

TEST_F(BrokenCaptureTest, TellsOfPacketsThatWereCutWhenCaptured) {
  std::string cut = kMake.Serial(0, 2, 2, "022120");
  cut.replace(24, 4, kMake.Number(100, 4));
  EXPECT_THAT(DamageAfter(cut),
              ElementsAre("holds 1 packet that was cut short when it was captured"));
  EXPECT_EQ(rows_.size(), 2U);
}

TEST_F(BrokenCaptureTest, TellsOfPacketsWithoutADirection) {
  EXPECT_THAT(DamageAfter(kMake.Interface(147) + kMake.Packet(1, 1, "A") +
                          kMake.Packet(1, 1, "B", kMake.Option(2, kMake.Number(3, 4)))),
              ElementsAre("holds 2 packets that tell no direction"));
}

TEST_F(BrokenCaptureTest, TellsOfABrokenInterface) {
  EXPECT_THAT(
      DamageAfter(kMake.Block(1, FromHex("FA000000")) + kMake.Interface(250, FromHex("0200 FFFF"))),
      ElementsAre("holds a broken description of itself"));
}

TEST_F(BrokenCaptureTest, TakesAnythingAfterTheStart) {
  // Every byte of a good file, changed in turn.
  const std::string good = Start() + kMake.Serial(0, 2, 1, "02210322", kMake.Option(1, "told"));
  for (std::size_t at = 28; at < good.size(); ++at) {
    std::string bytes = good;
    bytes[at] = static_cast<char>(~bytes[at]);
    CaptureReader reader;
    std::vector<LogEntry> rows;
    reader.Feed({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, rows);
    reader.End(rows);
    EXPECT_LE(rows.size(), 6U);
  }
}

}  // namespace
}  // namespace vantrel::log
