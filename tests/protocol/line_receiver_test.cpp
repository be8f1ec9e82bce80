// SPDX-License-Identifier: MIT

#include "protocol/line_receiver.h"

#include <gtest/gtest.h>

#include <string_view>

namespace vantrel::protocol {
namespace {

// The frame of 21h is 02 21 03 22 and that of 50h with "1" is 02 50 31 03 62: the block check is
// the exclusive-or of all after STX.

constexpr Moment kStart{1000};

std::vector<Arrival> Take(LineReceiver& receiver, std::string_view hex, Moment now = kStart) {
  return receiver.Receive(link::BytesOf(hex), now);
}

TEST(LineReceiver, FindsAFrame) {
  LineReceiver receiver;
  EXPECT_EQ(Take(receiver, "0250310362"), (std::vector<Arrival>{{true, {0x50, 0x31}}}));
  EXPECT_FALSE(receiver.Deadline());
}

TEST(LineReceiver, TakesAFrameByteByByte) {
  LineReceiver receiver;
  for (const std::string_view byte : {"02", "50", "31", "03"}) {
    EXPECT_TRUE(Take(receiver, byte).empty());
  }
  EXPECT_EQ(Take(receiver, "62"), (std::vector<Arrival>{{true, {0x50, 0x31}}}));
}

TEST(LineReceiver, FindsTwoFramesInOneRead) {
  LineReceiver receiver;
  EXPECT_EQ(Take(receiver, "022103220250310362"),
            (std::vector<Arrival>{{true, {0x21}}, {true, {0x50, 0x31}}}));
}

TEST(LineReceiver, SkipsNoiseBetweenFrames) {
  LineReceiver receiver;
  EXPECT_EQ(Take(receiver, "FF0003204102210322FF03"), (std::vector<Arrival>{{true, {0x21}}}));
  EXPECT_EQ(Take(receiver, "02210322"), (std::vector<Arrival>{{true, {0x21}}}));
}

TEST(LineReceiver, ReportsABadBlockCheck) {
  LineReceiver receiver;
  EXPECT_EQ(Take(receiver, "02210323"), (std::vector<Arrival>{{false, {0x21}}}));
}

TEST(LineReceiver, TakesAnyByteAfterEtxForTheBlockCheck) {
  LineReceiver receiver;
  // 01h and 03h give 02h, 00h and 03h give 03h.
  EXPECT_EQ(Take(receiver, "02010302"), (std::vector<Arrival>{{true, {0x01}}}));
  EXPECT_EQ(Take(receiver, "02000303"), (std::vector<Arrival>{{true, {0x00}}}));
}

TEST(LineReceiver, ReportsAFrameWithNothingInIt) {
  LineReceiver receiver;
  EXPECT_EQ(Take(receiver, "020303"), (std::vector<Arrival>{{true, {}}}));
}

TEST(LineReceiver, BeginsAnewAtEveryStx) {
  LineReceiver receiver;
  // A frame that was cut short after its second byte, then a whole one.
  EXPECT_EQ(Take(receiver, "025002210322"), (std::vector<Arrival>{{true, {0x21}}}));
}

TEST(LineReceiver, ForgetsAHalfFrameAfter500MillisecondsOfSilence) {
  LineReceiver receiver;
  Take(receiver, "0221");
  ASSERT_EQ(receiver.Deadline(), Moment{1500});
  receiver.Advance(Moment{1500});
  EXPECT_FALSE(receiver.Deadline());
  EXPECT_TRUE(Take(receiver, "0322", Moment{1501}).empty());
}

TEST(LineReceiver, ForgetsAHalfFrameThatWaitsForItsBlockCheckToo) {
  LineReceiver receiver;
  Take(receiver, "022103");
  EXPECT_EQ(Take(receiver, "02210322", Moment{1500}), (std::vector<Arrival>{{true, {0x21}}}));
}

TEST(LineReceiver, KeepsAHalfFrameThatGoesOnInTime) {
  LineReceiver receiver;
  Take(receiver, "0221");
  Take(receiver, "03", Moment{1499});
  EXPECT_EQ(Take(receiver, "22", Moment{1998}), (std::vector<Arrival>{{true, {0x21}}}));
}

TEST(LineReceiver, ForgetsAFrameThatIsTooLong) {
  LineReceiver receiver;
  link::Bytes endless(100000, 0x41);
  endless[0] = 0x02;
  EXPECT_TRUE(receiver.Receive(endless, kStart).empty());
  // Nothing is kept of it, so there is nothing to forget later.
  EXPECT_FALSE(receiver.Deadline());
  EXPECT_EQ(Take(receiver, "02210322"), (std::vector<Arrival>{{true, {0x21}}}));
}

TEST(LineReceiver, TakesAFrameOfTheGreatestLength) {
  for (const std::size_t length : {kLongestFrame, kLongestFrame + 1}) {
    LineReceiver receiver;
    // Code 41h and an even or odd number of further 41h; the length counts STX and ETX.
    link::Bytes frame(length, 0x41);
    frame.front() = 0x02;
    frame.back() = 0x03;
    // 65534 bytes of 41h cancel each other out, which leaves the 03h of ETX.
    frame.push_back(0x03);
    EXPECT_EQ(receiver.Receive(frame, kStart).size(), length == kLongestFrame ? 1U : 0U);
  }
}

}  // namespace
}  // namespace vantrel::protocol
