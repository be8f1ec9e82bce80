#include "printer/outgoing_line.h"
#include "tests/printer/printer_bench.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using namespace std::chrono_literals;

TEST(OutgoingLine, WithoutASpeedTakesNoTime) {
  OutgoingLine line;
  line.Put({1, 2, 3}, 0ms, 50ms);
  EXPECT_EQ(line.Deadline(), Moment(50ms));
  EXPECT_EQ(line.Take(50ms), (Bytes{1, 2, 3}));
  EXPECT_TRUE(line.IsEmpty());
  EXPECT_FALSE(line.Take(1s));
}

TEST(OutgoingLine, GivesAChunkWhenItsLastByteWouldHaveArrived) {
  OutgoingLine line;
  line.SetSpeed(2400);
  // 24 bytes of ten bits at 2400 bits a second.
  line.Put(Bytes(24, 0x41), 0ms, 1000ms);
  EXPECT_FALSE(line.Take(1099ms));
  EXPECT_EQ(line.Take(1100ms), Bytes(24, 0x41));
}

TEST(OutgoingLine, SendsOneChunkAfterTheOther) {
  OutgoingLine line;
  line.SetSpeed(1000);
  line.Put({1}, 0ms, 0ms);
  line.Put({2}, 0ms, 5ms);
  EXPECT_EQ(line.Take(10ms), Bytes{1});
  EXPECT_EQ(line.Deadline(), Moment(20ms));
  EXPECT_EQ(line.Take(20ms), Bytes{2});
  line.Put({3}, 0ms, 100ms);
  EXPECT_EQ(line.Deadline(), Moment(110ms));
}

TEST(OutgoingLine, RoundsUpToMilliseconds) {
  OutgoingLine line;
  line.SetSpeed(9600);
  line.Put({1}, 0ms, 0ms);  // 1.04 ms
  EXPECT_EQ(line.Deadline(), Moment(2ms));
}

TEST(OutgoingLine, LosesWhatIsPutWhileTooMuchWaits) {
  OutgoingLine line;
  line.SetSpeed(1000);
  line.Put(Bytes(4095, 1), 0ms, 0ms);
  line.Put({2, 3}, 0ms, 0ms);
  line.Put({4}, 0ms, 0ms);
  EXPECT_EQ(line.Take(1h), Bytes(4095, 1));
  EXPECT_EQ(line.Take(1h), Bytes{2});
  EXPECT_TRUE(line.IsEmpty());
  line.Put({5}, 0ms, 1h);
  EXPECT_EQ(line.Take(2h), Bytes{5});
}

TEST(OutgoingLine, WithoutASpeedTakesAsMuchAsThereIs) {
  OutgoingLine line;
  line.Put(Bytes(200000, 1), 0ms, 0ms);
  EXPECT_EQ(line.Take(0ms), Bytes(200000, 1));
}

// The levels that are told are those of a line that rests at 1: start 0, bits 0 to 7, stop 1.
TEST(HeardAtAnotherSpeed, IsTheSameAtTheSameSpeed) {
  Bytes all(256);
  for (std::size_t i = 0; i < 256; ++i) all[i] = static_cast<std::uint8_t>(i);
  EXPECT_EQ(HeardAtAnotherSpeed(all, 9600, 9600), all);
  EXPECT_EQ(HeardAtAnotherSpeed({}, 9600, 9600), Bytes{});
}

TEST(HeardAtAnotherSpeed, OfTwiceTheSpeedEachBitComesTwice) {
  // 06h is 0 0110 0000 1, lowest bit first, and 00 0011 1100 0000 0000 11 at twice the speed: after
  // the start bit 0 come the data 0001 1110, and the stop bit is 0; nothing falls after the rest.
  EXPECT_EQ(HeardAtAnotherSpeed({0x06}, 9600, 19200), (Bytes{0x78}));
  // FFh is 0 1111 1111 1: 00 11 11 11 11 ..., the second half of the start bit is data.
  EXPECT_EQ(HeardAtAnotherSpeed({0xFF}, 9600, 19200), (Bytes{0xFE}));
}

TEST(HeardAtAnotherSpeed, OfHalfTheSpeedBitsAreMissed) {
  // AAh is 0 0101 0101 1, lowest bit first. Of half the speed every second one is seen: after the
  // start bit, those at 3, 5 and 7, which are 0, the stop bit and then the line at rest.
  EXPECT_EQ(HeardAtAnotherSpeed({0xAA}, 19200, 9600), (Bytes{0xF8}));
}

TEST(HeardAtAnotherSpeed, MakesNoMoreThanFiveBytesOfAByte) {
  for (const int heard : {110, 2400, 19200, 4000000}) {
    for (unsigned byte = 0; byte < 256; ++byte) {
      const Bytes bytes(10, static_cast<std::uint8_t>(byte));
      EXPECT_LE(HeardAtAnotherSpeed(bytes, 9600, heard).size(), 50U) << byte << " " << heard;
    }
  }
}

class Pacing : public testing::Test {
 protected:
  Pacing() { bench_.model.SetPacing(true); }

  PrinterBench bench_;
};

TEST_F(Pacing, SendsAtTheSpeedOfTheLine) {
  bench_.model.SetSpeed(1000);
  // Seven bytes of ten bits.
  EXPECT_EQ(bench_.Send("02 95 03 96"), Chunks{});
  EXPECT_EQ(bench_.Pass(69ms), Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), Chunks{"06 02 95 20 30 03 86"});
  EXPECT_FALSE(bench_.model.NextAdvance());
}

TEST_F(Pacing, KeepsTheGapBehindWhatHasGoneOut) {
  bench_.model.SetSpeed(1000);
  bench_.model.SetInstantWork(true);
  bench_.model.SetTrack(0, "ABC");
  bench_.Send("02 21 03 22");
  bench_.InsertCard();
  EXPECT_EQ(bench_.Pass(10ms), Chunks{"06"});
  // 20 ms of gap and eight bytes.
  EXPECT_EQ(bench_.Pass(99ms), Chunks{});
  EXPECT_EQ(bench_.Pass(1ms), Chunks{"02 21 20 41 42 43 03 42"});
}

TEST_F(Pacing, SendsNoMoreThanTheLineTakes) {
  bench_.model.SetSpeed(1000);
  for (int i = 0; i < 20000; ++i) bench_.Send("02 95 03 96");
  const std::size_t chunks = bench_.Pass(24h).size();
  // 585 answers of seven bytes, and one more byte, are 4096 bytes.
  EXPECT_EQ(chunks, 586U);
}

TEST_F(Pacing, HearsNothingInWhatComesAtAnotherSpeed) {
  bench_.model.SetConsoleSpeed(19200);
  EXPECT_EQ(bench_.Send("02 95 03 96"), Chunks{});
  EXPECT_EQ(bench_.Pass(1min), Chunks{});
  bench_.model.SetConsoleSpeed(9600);
  bench_.Send("02 95 03 96");
  EXPECT_EQ(bench_.Pass(1min), Chunks{"06 02 95 20 30 03 86"});
}

TEST_F(Pacing, AnswersAsNoiseAConsoleThatHasChangedItsSpeed) {
  bench_.Send("02 21 03 22");
  EXPECT_EQ(bench_.Pass(1s), Chunks{"06"});
  bench_.model.SetConsoleSpeed(19200);
  bench_.InsertCard();
  const Chunks sent = bench_.Pass(1s);
  ASSERT_EQ(sent.size(), 1U);
  // A track with nothing on it would be answered so.
  EXPECT_NE(sent.front(), "02 21 23 03 01");
}

TEST_F(Pacing, SwitchedOffUnderstandsEverySpeed) {
  bench_.model.SetPacing(false);
  bench_.model.SetConsoleSpeed(2400);
  EXPECT_EQ(bench_.Send("02 95 03 96"), Chunks{"06 02 95 20 30 03 86"});
}

TEST_F(Pacing, FollowsThePrintersOwnSpeed) {
  bench_.model.SetSpeed(38400);
  bench_.model.SetConsoleSpeed(9600);
  bench_.Send("02 95 03 96");
  EXPECT_EQ(bench_.Pass(1s), Chunks{});
  bench_.model.SetConsoleSpeed(38400);
  bench_.Send("02 95 03 96");
  EXPECT_EQ(bench_.Pass(1s), Chunks{"06 02 95 20 30 03 86"});
}

}  // namespace
}  // namespace vantrel
