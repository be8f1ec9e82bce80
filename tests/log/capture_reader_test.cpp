// SPDX-License-Identifier: MIT

#include "log/capture_reader.h"

#include "log/capture_writer.h"
#include "tests/log/capture_bytes.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;
using protocol::Direction;
using testing::ElementsAre;
using testing::IsEmpty;

// What a capture holds: "to 1000000 02 21 03 22 (comment)" of each row, microseconds from 1970.
struct Reading {
  std::vector<std::string> rows;
  std::vector<std::string> damage;
  std::vector<std::string> notes;
  CapturedLine line;
};

std::span<const std::uint8_t> Span(const std::string& bytes) {
  return {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
}

Reading Read(const std::string& capture, std::size_t portion = std::string::npos) {
  CaptureReader reader;
  std::vector<LogEntry> rows;
  for (std::size_t at = 0; at < capture.size(); at += std::min(portion, capture.size()))
    reader.Feed(Span(capture.substr(at, portion)), rows);
  reader.End(rows);
  Reading reading{{}, reader.Damage(), reader.Notes(), reader.Line()};
  for (const LogEntry& row : rows)
    reading.rows.push_back((row.direction == Direction::kFromConsole ? "to " : "from ") +
                           std::to_string(row.time.time_since_epoch() / 1us) + ' ' + HexOf(row) +
                           (row.comment.empty() ? "" : " (" + row.comment + ')'));
  return reading;
}

const CaptureBytes kLittle;
const CaptureBytes kBig(true);

std::string Flags(std::uint32_t flags) { return kLittle.Option(2, kLittle.Number(flags, 4)); }

class CaptureReaderInEitherByteOrder : public testing::TestWithParam<bool> {};

TEST_P(CaptureReaderInEitherByteOrder, ReadsRowsTimesAndComments) {
  const CaptureBytes make(GetParam());
  const std::string name = make.Option(2, "/dev/pts/7") + make.Option(8, make.Number(9600, 8));
  const Reading reading =
      Read(make.Section() + make.OurInterface(name + make.Option(9, "\x06")) +
           make.Serial(0, 1767349230123456, 1, "02210322", make.Option(1, "fault: status 22")) +
           make.Serial(0, 1767349230130000, 2, "06"));
  EXPECT_THAT(reading.rows, ElementsAre("to 1767349230123456 02 21 03 22 (fault: status 22)",
                                        "from 1767349230130000 06"));
  EXPECT_THAT(reading.damage, IsEmpty());
  EXPECT_THAT(reading.notes, IsEmpty());
  EXPECT_EQ(reading.line.name, "/dev/pts/7");
  EXPECT_EQ(reading.line.speed, 9600U);
}

TEST_P(CaptureReaderInEitherByteOrder, TakesTheDirectionOfLinkType147FromTheFlags) {
  const CaptureBytes make(GetParam());
  const auto flags = [&make](std::uint32_t value) {
    return make.Option(2, make.Number(value, 4)) + make.Option(0, "");
  };
  const Reading reading =
      Read(make.Section() + make.Interface(147) + make.Packet(0, 5, FromHex("02210322"), flags(2)) +
           make.Packet(0, 6, FromHex("06"), flags(0x11)));
  EXPECT_THAT(reading.rows, ElementsAre("to 5 02 21 03 22", "from 6 06"));
  EXPECT_THAT(reading.damage, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Orders, CaptureReaderInEitherByteOrder, testing::Bool(),
                         [](const auto& test) { return test.param ? "Big" : "Little"; });

TEST(CaptureReader, ReadsSectionsOfDifferentByteOrders) {
  const Reading reading =
      Read(kLittle.Section() + kLittle.OurInterface() + kLittle.Serial(0, 1, 1, "02210322") +
           kBig.Section() + kBig.Interface(1) + kBig.OurInterface() + kBig.Serial(1, 2, 2, "06"));
  EXPECT_THAT(reading.rows, ElementsAre("to 1 02 21 03 22", "from 2 06"));
  EXPECT_THAT(reading.damage, IsEmpty());
}

TEST(CaptureReader, ForgetsInterfacesAtTheNextSection) {
  const Reading reading = Read(kLittle.Section() + kLittle.OurInterface() + kLittle.Section() +
                               kLittle.Serial(0, 1, 1, "02210322"));
  EXPECT_THAT(reading.rows, IsEmpty());
  EXPECT_THAT(reading.damage, ElementsAre("holds 1 packet that is broken"));
}

struct Resolution {
  const char* name;
  int value;
  std::uint64_t ticks;
  std::int64_t microseconds;

  friend void PrintTo(const Resolution& resolution, std::ostream* out) { *out << resolution.name; }
};

class CaptureReaderResolution : public testing::TestWithParam<Resolution> {};

TEST_P(CaptureReaderResolution, GivesMicrosecondsCutOff) {
  const std::string resolution =
      kLittle.Option(9, std::string(1, static_cast<char>(GetParam().value)));
  const Reading reading = Read(kLittle.Section() + kLittle.OurInterface(resolution) +
                               kLittle.Serial(0, GetParam().ticks, 2, "06"));
  EXPECT_THAT(reading.rows, ElementsAre("from " + std::to_string(GetParam().microseconds) + " 06"));
  EXPECT_THAT(reading.damage, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Resolutions, CaptureReaderResolution,
    testing::Values(Resolution{"Seconds", 0, 1767349230, 1767349230000000},
                    Resolution{"Milliseconds", 3, 1767349230123, 1767349230123000},
                    Resolution{"Nanoseconds", 9, 1767349230123456999, 1767349230123456},
                    Resolution{"Picoseconds", 12, 18446744073709551615U, 18446744073709},
                    Resolution{"Finest", 127, 18446744073709551615U, 0},
                    // 2^-10 s: 1536 ticks are a second and a half.
                    Resolution{"PowerOfTwo", 0x8A, 1536, 1500000},
                    // 2^-32 s: a half, and one tick less than a microsecond.
                    Resolution{"FinePowerOfTwo", 0xA0, (std::uint64_t{7} << 32) + 4294, 7000000},
                    Resolution{"FinestPowerOfTwo", 0xFF, 18446744073709551615U, 0}),
    [](const auto& test) { return test.param.name; });

TEST(CaptureReader, AddsTheTimeOffset) {
  const std::string later = kLittle.Option(14, kLittle.Number(100, 8));
  const std::string earlier = kLittle.Option(14, std::string(8, '\xFF'));  // one second
  const Reading reading =
      Read(kLittle.Section() + kLittle.OurInterface(later) + kLittle.OurInterface(earlier) +
           kLittle.Serial(0, 5, 2, "06") + kLittle.Serial(1, 2000000, 2, "15"));
  EXPECT_THAT(reading.rows, ElementsAre("from 100000005 06", "from 1000000 15"));
}

TEST(CaptureReader, TellsOfATimeThatCannotBe) {
  const std::string seconds = kLittle.Option(9, std::string(1, '\0'));
  const Reading reading = Read(kLittle.Section() + kLittle.OurInterface(seconds) +
                               kLittle.Serial(0, 253402300800, 2, "06"));
  EXPECT_THAT(reading.rows, ElementsAre("from 0 06"));
  EXPECT_THAT(reading.damage, ElementsAre("holds 1 packet with a time that cannot be"));
}

TEST(CaptureReader, TakesEachPacketOfOursAsARow) {
  const Reading reading =
      Read(kLittle.Section() + kLittle.OurInterface() + kLittle.Serial(0, 1, 1, "0221") +
           kLittle.Serial(0, 2, 1, "0322") + kLittle.Serial(0, 3, 2, "0602"));
  EXPECT_THAT(reading.rows, ElementsAre("to 1 02 21", "to 2 03 22", "from 3 06 02"));
}

TEST(CaptureReader, TellsTheBytesOfOthersApartByTheirTimes) {
  const Reading reading =
      Read(kLittle.Section() + kLittle.Interface(250) + kLittle.Serial(0, 1000, 1, "0221") +
           kLittle.Serial(0, 2000, 2, "15", kLittle.Option(1, "early")) +
           kLittle.Serial(0, 3000, 1, "0322", kLittle.Option(1, "late")) +
           kLittle.Serial(0, 4000, 2, "06022120") + kLittle.Serial(0, 604000, 2, "03"));
  EXPECT_THAT(reading.rows, ElementsAre("to 1000 02 21 03 22 (late)", "from 2000 15 (early)",
                                        "from 4000 06", "from 4000 02 21 20", "from 604000 03"));
  EXPECT_THAT(reading.damage, IsEmpty());
}

TEST(CaptureReader, KeepsTheLinesOfSeveralInterfacesApart) {
  const Reading reading =
      Read(kLittle.Section() + kLittle.Interface(250) + kLittle.Interface(147) +
           kLittle.Serial(0, 1, 1, "0221") + kLittle.Packet(1, 2, FromHex("0251"), Flags(2)) +
           kLittle.Serial(0, 3, 1, "0322") + kLittle.Packet(1, 4, FromHex("0352"), Flags(2)));
  EXPECT_THAT(reading.rows, ElementsAre("to 1 02 21 03 22", "to 2 02 51 03 52"));
}

TEST(CaptureReader, PassesOverOtherEventsAndEmptyPackets) {
  const Reading reading =
      Read(kLittle.Section() + kLittle.OurInterface() + kLittle.Serial(0, 1, 0, "02210322") +
           kLittle.Serial(0, 1, 3, "02210322") + kLittle.Serial(0, 1, 1, "") +
           kLittle.Serial(0, 2, 2, "06"));
  EXPECT_THAT(reading.rows, ElementsAre("from 2 06"));
  EXPECT_THAT(reading.damage, IsEmpty());
}

TEST(CaptureReader, CountsInterfacesOfOtherLinkTypes) {
  const Reading reading = Read(kLittle.Section() + kLittle.Interface(1) + kLittle.OurInterface() +
                               kLittle.Interface(113) + kLittle.Packet(0, 1, "ether") +
                               kLittle.Serial(1, 2, 2, "06") + kLittle.Packet(2, 3, "cooked"));
  EXPECT_THAT(reading.rows, ElementsAre("from 2 06"));
  EXPECT_THAT(reading.damage, IsEmpty());
  EXPECT_THAT(reading.notes, ElementsAre("holds 2 interfaces of other link types, passed over with "
                                         "2 packets on them"));
}

TEST(CaptureReader, PassesOverBlocksThatItDoesNotKnow) {
  const std::string long_block = kLittle.Block(0x0BAD, std::string(4 << 20, 'x'));
  const std::string capture = kLittle.Section() + kLittle.Block(5, std::string(40, 's')) +
                              kLittle.OurInterface() + long_block + kLittle.Serial(0, 2, 2, "06");
  for (const std::size_t portion : {std::size_t{7777}, std::string::npos}) {
    const Reading reading = Read(capture, portion);
    EXPECT_THAT(reading.rows, ElementsAre("from 2 06"));
    EXPECT_THAT(reading.damage, IsEmpty());
  }
}

TEST(CaptureReader, ReadsOldAndSimplePackets) {
  const std::string data = FromHex("00000003 00000004 02 00 0000 06");
  const std::string old = kLittle.Number(0, 2) + kLittle.Number(9, 2) + kLittle.Number(0, 4) +
                          kLittle.Number(7, 4) + kLittle.Number(13, 4) + kLittle.Number(13, 4) +
                          kLittle.Padded(data);
  const Reading reading = Read(kLittle.Section() + kLittle.OurInterface() + kLittle.Block(2, old) +
                               kLittle.Block(3, kLittle.Number(13, 4) + kLittle.Padded(data)));
  EXPECT_THAT(reading.rows, ElementsAre("from 7 06", "from 3000004 06"));
  EXPECT_THAT(reading.damage, IsEmpty());
}

TEST(CaptureReader, TellsOfSimplePacketsThatItCannotTake) {
  const std::string simple = kLittle.Block(3, kLittle.Number(1, 4) + kLittle.Padded("\x06"));
  // Before any interface, and longer than its block.
  EXPECT_THAT(Read(kLittle.Section() + simple).damage,
              ElementsAre("holds 1 packet that is broken"));
  const std::string too_long = kLittle.Block(3, kLittle.Number(9, 4) + kLittle.Padded("\x06"));
  const Reading cut = Read(kLittle.Section() + kLittle.OurInterface() + too_long);
  EXPECT_THAT(cut.rows, IsEmpty());
  EXPECT_THAT(cut.damage, ElementsAre("holds 1 packet that is broken"));
  // On a network.
  const Reading foreign = Read(kLittle.Section() + kLittle.Interface(1) + simple);
  EXPECT_THAT(foreign.damage, IsEmpty());
  EXPECT_THAT(foreign.notes, ElementsAre("holds 1 interface of another link type, passed over with "
                                         "1 packet on it"));
}

TEST(CaptureReader, TakesNoMoreInterfacesThanAnyLineHas) {
  std::string capture = kLittle.Section();
  for (int i = 0; i < 65536; ++i) capture += kLittle.OurInterface();
  EXPECT_THAT(Read(capture).damage, IsEmpty());
  EXPECT_THAT(Read(capture + kLittle.OurInterface()).damage,
              ElementsAre("holds a broken description of itself"));
}

TEST(CaptureReader, GivesWhatWrittenRowsWere) {
  std::string capture = CaptureStart({"/dev/pts/7", 19200});
  AppendPacket(capture, {WallTime(1767349230123456us), Direction::kFromConsole, FromHex("02210322"),
                         "fault: status 22"});
  AppendPacket(capture, {WallTime(1767349230123457us), Direction::kFromPrinter, FromHex("FF"), {}});
  for (std::size_t portion = 1; portion < 9; ++portion) {
    const Reading reading = Read(capture, portion);
    EXPECT_THAT(reading.rows, ElementsAre("to 1767349230123456 02 21 03 22 (fault: status 22)",
                                          "from 1767349230123457 FF"));
    EXPECT_THAT(reading.damage, IsEmpty());
    EXPECT_EQ(reading.line, (CapturedLine{"/dev/pts/7", 19200}));
  }
}

TEST(CaptureReader, GivesWhatWasWholeOfAFileCutAtAnyByte) {
  const std::string start = kLittle.Section() + kLittle.OurInterface();
  const std::string first = start + kLittle.Serial(0, 1, 1, "02210322");
  const std::string whole = first + kLittle.Serial(0, 2, 2, "06");
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const Reading reading = Read(whole.substr(0, length));
    const std::size_t rows = length == whole.size() ? 2 : length >= first.size() ? 1 : 0;
    EXPECT_EQ(reading.rows.size(), rows) << length;
    const bool at_end = length == kLittle.Section().size() || length == start.size() ||
                        length == first.size() || length == whole.size();
    EXPECT_EQ(reading.damage.empty(), at_end) << length;
  }
}

}  // namespace
}  // namespace vantrel::log
