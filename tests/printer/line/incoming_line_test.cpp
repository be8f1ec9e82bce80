// SPDX-License-Identifier: MIT

#include "printer/line/incoming_line.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;
using Part = IncomingLine::Part;

TEST(IncomingLine, WithoutASpeedTakesNoTime) {
  IncomingLine line;
  EXPECT_FALSE(line.Deadline());
  line.Put(link::Bytes{1, 2, 3, 4, 5}, 50ms);
  EXPECT_EQ(line.Deadline(), protocol::Moment(50ms));
  EXPECT_EQ(line.Take(50ms), (std::vector<Part>{{{1, 2, 3, 4, 5}, 50ms}}));
  EXPECT_FALSE(line.Deadline());
}

TEST(IncomingLine, GivesEachByteAtItsTime) {
  IncomingLine line;
  line.SetSpeed(4000);  // 2.5 ms a byte
  line.Put(link::Bytes{1, 2, 3}, 10ms);
  EXPECT_EQ(line.Waiting(), 3U);
  EXPECT_EQ(line.Deadline(), protocol::Moment(18ms));
  EXPECT_EQ(line.Take(12ms), std::vector<Part>{});
  EXPECT_EQ(line.Take(13ms), (std::vector<Part>{{{1}, 13ms}}));
  EXPECT_EQ(line.Take(1s), (std::vector<Part>{{{2}, 15ms}, {{3}, 18ms}}));
  EXPECT_EQ(line.Waiting(), 0U);
}

TEST(IncomingLine, GivesFastBytesTogether) {
  IncomingLine line;
  line.SetSpeed(20000);  // 0.5 ms a byte
  line.Put(link::Bytes{1, 2, 3}, 0ms);
  EXPECT_EQ(line.Take(2ms), (std::vector<Part>{{{1, 2}, 1ms}, {{3}, 2ms}}));
}

TEST(IncomingLine, CarriesOneByteAfterTheOther) {
  IncomingLine line;
  line.SetSpeed(1000);
  line.Put(link::Bytes{1}, 0ms);
  line.Put(link::Bytes{2}, 3ms);
  line.Put(link::Bytes{4}, 100ms);
  EXPECT_EQ(line.Take(1s), (std::vector<Part>{{{1}, 10ms}, {{2}, 20ms}, {{4}, 110ms}}));
}

TEST(IncomingLine, AsksToBeLookedAtWhenAFrameMayBeComplete) {
  IncomingLine line;
  line.SetSpeed(1000);
  line.Put(link::Bytes{0x02, 0x95, 0x03, 0x96, 0x02, 0x96, 0x03}, 0ms);
  EXPECT_EQ(line.Deadline(), protocol::Moment(40ms));
  line.Take(40ms);
  EXPECT_EQ(line.Deadline(), protocol::Moment(70ms));
  line.Put(link::Bytes{0x95, 0x41}, 40ms);
  line.Take(70ms);
  EXPECT_EQ(line.Deadline(), protocol::Moment(80ms));
}

TEST(IncomingLine, AsksToBeLookedAtFourTimesASecondOfALongFrame) {
  IncomingLine line;
  line.SetSpeed(1000);
  line.Put(link::Bytes(100, 0x41), 0ms);
  EXPECT_EQ(line.Deadline(), protocol::Moment(250ms));
  EXPECT_EQ(line.Take(250ms).size(), 25U);
  EXPECT_EQ(line.Deadline(), protocol::Moment(500ms));
  // A byte that takes longer is one by itself.
  IncomingLine slow;
  slow.SetSpeed(10);
  slow.Put(link::Bytes{0x41, 0x41}, 0ms);
  EXPECT_EQ(slow.Deadline(), protocol::Moment(1s));
}

TEST(IncomingLine, KeepsApartWhatIsMisheard) {
  IncomingLine line;
  line.Put(link::Bytes{1}, 0ms);
  line.Put(link::Bytes{2}, 0ms, true);
  line.Put(link::Bytes{3}, 0ms, true);
  EXPECT_EQ(line.Take(0ms), (std::vector<Part>{{{1}, 0ms, false}, {{2, 3}, 0ms, true}}));
}

TEST(IncomingLine, LosesWhatThereIsNoRoomFor) {
  IncomingLine line;
  line.SetSpeed(1000);
  line.Put(link::Bytes(kMostUnheard - 1, 1), 0ms);
  line.Put(link::Bytes{2, 3}, 0ms);
  EXPECT_EQ(line.Waiting(), kMostUnheard);
  line.Clear();
  EXPECT_EQ(line.Waiting(), 0U);
  EXPECT_FALSE(line.Deadline());
}

}  // namespace
}  // namespace vantrel::printer
