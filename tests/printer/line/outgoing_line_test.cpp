// SPDX-License-Identifier: MIT

#include "printer/line/outgoing_line.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

TEST(OutgoingLine, WithoutASpeedTakesNoTime) {
  OutgoingLine line;
  line.Put({1, 2, 3}, 0ms, 50ms);
  EXPECT_EQ(line.Deadline(), protocol::Moment(50ms));
  EXPECT_EQ(line.Take(50ms), (link::Bytes{1, 2, 3}));
  EXPECT_TRUE(line.IsEmpty());
  EXPECT_FALSE(line.Take(1s));
}

TEST(OutgoingLine, GivesAChunkWhenItsLastByteWouldHaveArrived) {
  OutgoingLine line;
  line.SetSpeed(2400);
  // 24 bytes of ten bits at 2400 bits a second.
  line.Put(link::Bytes(24, 0x41), 0ms, 1000ms);
  EXPECT_FALSE(line.Take(1099ms));
  EXPECT_EQ(line.Take(1100ms), link::Bytes(24, 0x41));
}

TEST(OutgoingLine, SendsOneChunkAfterTheOther) {
  OutgoingLine line;
  line.SetSpeed(1000);
  line.Put({1}, 0ms, 0ms);
  line.Put({2}, 0ms, 5ms);
  EXPECT_EQ(line.Take(10ms), link::Bytes{1});
  EXPECT_EQ(line.Deadline(), protocol::Moment(20ms));
  EXPECT_EQ(line.Take(20ms), link::Bytes{2});
  line.Put({3}, 0ms, 100ms);
  EXPECT_EQ(line.Deadline(), protocol::Moment(110ms));
}

TEST(OutgoingLine, RoundsUpToMilliseconds) {
  OutgoingLine line;
  line.SetSpeed(9600);
  line.Put({1}, 0ms, 0ms);  // 1.04 ms
  EXPECT_EQ(line.Deadline(), protocol::Moment(2ms));
}

TEST(OutgoingLine, LosesWhatIsPutWhileTooMuchWaits) {
  OutgoingLine line;
  line.SetSpeed(1000);
  line.Put(link::Bytes(4095, 1), 0ms, 0ms);
  line.Put({2, 3}, 0ms, 0ms);
  line.Put({4}, 0ms, 0ms);
  EXPECT_EQ(line.Take(1h), link::Bytes(4095, 1));
  EXPECT_EQ(line.Take(1h), link::Bytes{2});
  EXPECT_TRUE(line.IsEmpty());
  line.Put({5}, 0ms, 1h);
  EXPECT_EQ(line.Take(2h), link::Bytes{5});
}

TEST(OutgoingLine, WithoutASpeedTakesAsMuchAsThereIs) {
  OutgoingLine line;
  line.Put(link::Bytes(200000, 1), 0ms, 0ms);
  EXPECT_EQ(line.Take(0ms), link::Bytes(200000, 1));
}

// The levels that are told are those of a line that rests at 1: start 0, bits 0 to 7, stop 1.
TEST(HeardAtAnotherSpeed, IsTheSameAtTheSameSpeed) {
  link::Bytes all(256);
  for (std::size_t i = 0; i < 256; ++i) all[i] = static_cast<std::uint8_t>(i);
  EXPECT_EQ(HeardAtAnotherSpeed(all, 9600, 9600), all);
  EXPECT_EQ(HeardAtAnotherSpeed({}, 9600, 9600), link::Bytes{});
}

TEST(HeardAtAnotherSpeed, OfTwiceTheSpeedEachBitComesTwice) {
  // 06h is 0 0110 0000 1, lowest bit first, and 00 0011 1100 0000 0000 11 at twice the speed: after
  // the start bit 0 come the data 0001 1110, and the stop bit is 0; nothing falls after the rest.
  EXPECT_EQ(HeardAtAnotherSpeed({0x06}, 9600, 19200), (link::Bytes{0x78}));
  // FFh is 0 1111 1111 1: 00 11 11 11 11 ..., the second half of the start bit is data.
  EXPECT_EQ(HeardAtAnotherSpeed({0xFF}, 9600, 19200), (link::Bytes{0xFE}));
}

TEST(HeardAtAnotherSpeed, OfHalfTheSpeedBitsAreMissed) {
  // AAh is 0 0101 0101 1, lowest bit first. Of half the speed every second one is seen: after the
  // start bit, those at 3, 5 and 7, which are 0, the stop bit and then the line at rest.
  EXPECT_EQ(HeardAtAnotherSpeed({0xAA}, 19200, 9600), (link::Bytes{0xF8}));
}

TEST(HeardAtAnotherSpeed, MakesNoMoreThanFiveBytesOfAByte) {
  for (const int heard : {110, 2400, 19200, 4000000}) {
    for (unsigned byte = 0; byte < 256; ++byte) {
      const link::Bytes bytes(10, static_cast<std::uint8_t>(byte));
      EXPECT_LE(HeardAtAnotherSpeed(bytes, 9600, heard).size(), 50U) << byte << " " << heard;
    }
  }
}

}  // namespace
}  // namespace vantrel::printer
