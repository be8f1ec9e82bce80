// SPDX-License-Identifier: MIT

#include "log/line_log.h"

#include "link/frame.h"
#include "log/save_log.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <sstream>
#include <string>
#include <vector>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class LineLogTest : public testing::Test {
 protected:
  LineLogTest() {
    setenv("TZ", "UTC", 1);
    tzset();
  }

  void Console(std::string hex) { Add(protocol::Direction::kFromConsole, std::move(hex)); }
  void Printer(std::string hex) { Add(protocol::Direction::kFromPrinter, std::move(hex)); }
  void Add(protocol::Direction direction, std::string hex) {
    std::erase(hex, ' ');
    log_.Append(direction, link::BytesOf(hex), now_);
  }

  // "received 02 21 03 22" of each entry.
  std::vector<std::string> Entries() const {
    std::vector<std::string> entries;
    for (std::size_t i = log_.First(); i < log_.End(); ++i)
      entries.push_back(std::string(DirectionInWords(log_.At(i).direction)) + ' ' +
                        HexOf(log_.At(i)));
    return entries;
  }

  LineLog log_;
  // 2026-01-02 10:20:30.123 UTC.
  WallTime now_ =
      std::chrono::sys_days{std::chrono::year{2026} / 1 / 2} + 10h + 20min + 30s + 123ms;
};

// The system's own clock ends in the year 2262.
TEST_F(LineLogTest, TellsOfEveryDayThatAFileCan) {
  using std::chrono::sys_days;
  using std::chrono::year;
  EXPECT_EQ(DateInWords(sys_days{year{0} / 1 / 1}), "0000-01-01");
  EXPECT_EQ(DateInWords(sys_days{year{1676} / 12 / 31}), "1676-12-31");
  EXPECT_EQ(DateInWords(sys_days{year{2300} / 2 / 28}), "2300-02-28");
  const WallTime last = sys_days{year{10000} / 1 / 1} - 1us;
  EXPECT_EQ(DateInWords(last), "9999-12-31");
  EXPECT_EQ(TimeInWords(last), "23:59:59.999");
  setenv("TZ", "LINT-14", 1);
  tzset();
  EXPECT_EQ(DateInWords(last - 1s), "9999-01-01");
  EXPECT_EQ(TimeInWords(last - 1s), "13:59:58.999");
}

TEST_F(LineLogTest, KeepsAFrameAndAControlCharacterAsTwoEntries) {
  Console("02 21 03 22");
  Printer("06 02 21 22 03 00");
  EXPECT_THAT(Entries(), ElementsAre("received 02 21 03 22", "sent 06", "sent 02 21 22 03 00"));
  EXPECT_EQ(log_.Settled(), 3U);
}

TEST_F(LineLogTest, JoinsAFrameThatComesInParts) {
  Console("02 21");
  EXPECT_EQ(log_.End(), 1U);
  EXPECT_EQ(log_.Settled(), 0U);
  now_ += 499ms;
  Console("03");
  now_ += 499ms;
  Console("22 02 51 03 52");
  EXPECT_THAT(Entries(), ElementsAre("received 02 21 03 22", "received 02 51 03 52"));
  EXPECT_EQ(log_.Settled(), 2U);
  EXPECT_EQ(TimeInWords(log_.At(0).time), "10:20:30.123");
  EXPECT_EQ(TimeInWords(log_.At(1).time), "10:20:31.121");
}

TEST_F(LineLogTest, EndsAHalfFrameAfterSilence) {
  Console("02 21");
  now_ += 500ms;
  Console("03 22");
  EXPECT_THAT(Entries(), ElementsAre("received 02 21", "received 03 22"));
  log_.Settle(now_ + 499ms);
  EXPECT_EQ(log_.Settled(), 1U);
  log_.Settle(now_ + 500ms);
  EXPECT_EQ(log_.Settled(), 2U);
}

TEST_F(LineLogTest, EndsAHalfFrameWithTheNextStx) {
  Console("02 21 02 21 03 22");
  EXPECT_THAT(Entries(), ElementsAre("received 02 21", "received 02 21 03 22"));
}

TEST_F(LineLogTest, TakesAnStxAsBlockCheck) {
  // 21h, 20h and ETX give 02h.
  Console("02 21 20 03 02 02");
  EXPECT_THAT(Entries(), ElementsAre("received 02 21 20 03 02", "received 02"));
}

TEST_F(LineLogTest, KeepsNoiseApartFromFramesAndControlCharacters) {
  Printer("FF 00 06 02 51 20 03 72 55 15");
  EXPECT_THAT(Entries(),
              ElementsAre("sent FF 00", "sent 06", "sent 02 51 20 03 72", "sent 55", "sent 15"));
}

TEST_F(LineLogTest, KeepsControlCharactersInAFrame) {
  Printer("02 21 20 06 10 15 03 01");
  EXPECT_THAT(Entries(), ElementsAre("sent 02 21 20 06 10 15 03 01"));
}

TEST_F(LineLogTest, LetsTheNextAnswerStandAloneAfterAReplyThatWasCutShort) {
  // The reply to 21h lacks ETX and block check; 06h answers 51h.
  Console("02 21 03 22");
  Printer("06 02 21 20 41 42");
  Console("02 51 03 52");
  Printer("06");
  Printer("02 51 20 03 72");
  EXPECT_THAT(Entries(), ElementsAre("received 02 21 03 22", "sent 06", "sent 02 21 20 41 42",
                                     "received 02 51 03 52", "sent 06", "sent 02 51 20 03 72"));
  EXPECT_EQ(log_.Settled(), 6U);
}

TEST_F(LineLogTest, LetsResendAndRejectStandAloneToo) {
  Printer("02 21 20 41");
  Console("02 51 03 53");  // a bad block check
  Printer("15");
  Printer("02 21 20 03");  // nothing but the block check is missing
  Console("02 50 39 03 6A");
  Printer("10");
  EXPECT_THAT(Entries(), ElementsAre("sent 02 21 20 41", "received 02 51 03 53", "sent 15",
                                     "sent 02 21 20 03", "received 02 50 39 03 6A", "sent 10"));
}

TEST_F(LineLogTest, KeepsControlCharactersInAReplyThatBeganAfterTheCommand) {
  Console("02 21 03 22");
  Printer("06 02 21 20 06 15");
  Printer("03 11");
  EXPECT_THAT(Entries(),
              ElementsAre("received 02 21 03 22", "sent 06", "sent 02 21 20 06 15 03 11"));
}

TEST_F(LineLogTest, KeepsControlCharactersInAReplyWhileTheNextCommandIsNotWhole) {
  Printer("02 21 20 41");
  Console("02 51 03");
  Printer("06 03 45");
  EXPECT_THAT(Entries(), ElementsAre("sent 02 21 20 41 06 03 45", "received 02 51 03"));
}

TEST_F(LineLogTest, LetsAReplyGoOnThatACommandCrossesWithoutAnAnswer) {
  Printer("02 21 20 41");
  Console("02 54 03 57");
  Printer("42 03 01");
  EXPECT_THAT(Entries(), ElementsAre("sent 02 21 20 41 42 03 01", "received 02 54 03 57"));
}

TEST_F(LineLogTest, KeepsBothDirectionsApartAtOnce) {
  Console("02 21");
  Printer("02 51");
  Console("03 22");
  Printer("20 03 72");
  EXPECT_THAT(Entries(), ElementsAre("received 02 21 03 22", "sent 02 51 20 03 72"));
}

TEST_F(LineLogTest, LosesNoByte) {
  std::string all;
  for (unsigned i = 0; i < 5000; ++i) {
    const auto byte = static_cast<std::uint8_t>((i * 7919U) >> 3U);
    all += static_cast<char>(byte);
    log_.Append(protocol::Direction::kFromPrinter, link::Bytes{byte}, now_);
  }
  std::string kept;
  for (std::size_t i = log_.First(); i < log_.End(); ++i) kept += log_.At(i).bytes;
  EXPECT_EQ(kept, all);
}

TEST_F(LineLogTest, GoesOnInANewEntryAfterTheLongest) {
  const link::Bytes much(150000, 'A');
  log_.Append(protocol::Direction::kFromConsole, much, now_);
  ASSERT_EQ(log_.End(), 3U);
  EXPECT_EQ(log_.At(0).bytes.size(), LineLog::kLongestGroup);
}

TEST_F(LineLogTest, DropsTheOldestEighthPastItsBoundOfEntries) {
  log_ = LineLog({.entries = 16});
  for (int i = 0; i < 16; ++i) Console("02 21 03 22");
  EXPECT_EQ(log_.First(), 0U);
  Console("02 51 03 52");
  EXPECT_EQ(log_.First(), 3U);  // an eighth of 17, and one more
  EXPECT_EQ(log_.End(), 17U);
  EXPECT_EQ(HexOf(log_.At(16)), "02 51 03 52");
  EXPECT_THROW(log_.At(2), std::out_of_range);
}

TEST_F(LineLogTest, DropsTheOldestEighthPastItsBoundOfBytes) {
  log_ = LineLog({.bytes = 64});
  for (int i = 0; i < 16; ++i) Console("02 21 03 22");
  EXPECT_EQ(log_.First(), 0U);
  Printer("06");
  EXPECT_EQ(log_.First(), 3U);
  // What was dropped counts no more.
  Console("02 21 03 22 02 21 03 22");
  EXPECT_EQ(log_.First(), 3U);
}

TEST_F(LineLogTest, GoesOnInANewEntryWhereAnOpenOneWasDropped) {
  log_ = LineLog({.entries = 8});
  Printer("02 21 20");  // open, and the oldest
  for (int i = 0; i < 7; ++i) Console("02 21 03 22");
  EXPECT_EQ(log_.Settled(), 0U);
  Console("02 51 03 52");
  EXPECT_EQ(log_.First(), 2U);
  EXPECT_EQ(log_.Settled(), 9U);
  EXPECT_EQ(log_.Latest(protocol::Direction::kFromPrinter), std::nullopt);
  Printer("41 03 43");
  EXPECT_EQ(log_.Latest(protocol::Direction::kFromPrinter), 9U);
  EXPECT_EQ(HexOf(log_.At(9)), "41 03 43");
}

TEST_F(LineLogTest, GoesOnInANewEntryWhereAnOpenOneWasTheLastToBeDropped) {
  log_ = LineLog({.entries = 8});
  Console("02 21 03 22");
  Printer("02 21 20");  // open, and the second
  for (int i = 0; i < 6; ++i) Console("02 21 03 22");
  Console("02 51 03 52");
  EXPECT_EQ(log_.First(), 2U);
  EXPECT_EQ(log_.Settled(), 9U);
  Printer("41 03 43");
  EXPECT_EQ(HexOf(log_.At(9)), "41 03 43");
}

TEST_F(LineLogTest, SettlesNoRowBehindTheFirstThatIsOpen) {
  Printer("02 21");
  Console("02 22");
  EXPECT_EQ(log_.Settled(), 0U);
  Printer("20 03 02");
  EXPECT_EQ(log_.Settled(), 1U);
  log_.Clear();
  Console("02 22");
  Printer("02 21");
  EXPECT_EQ(log_.Settled(), log_.First());
}

TEST_F(LineLogTest, TellsSeveralRemarksInOneLine) {
  Console("02 54 03 57");
  log_.Remark(0, "one");
  log_.Remark(0, "two");
  EXPECT_EQ(MeaningOf(log_.At(0)), "54h card insertion wait cancel (one;two)");
}

TEST_F(LineLogTest, ShowsADotForWhatIsNoPrintableCharacter) {
  Console("1F 20 7E 7F 80");
  EXPECT_EQ(CharactersOf(log_.At(0)), ". ~..");
}

TEST_F(LineLogTest, TakesOneReadThatIsPastItsBound) {
  log_ = LineLog({.entries = 8});
  Console("02 21");  // goes on among what is dropped
  std::string much = "03 22";
  for (int i = 0; i < 20; ++i) much += "02 51 03 52";
  Console(much + "02 50 39");
  EXPECT_EQ(log_.First(), 15U);  // 7 entries
  EXPECT_EQ(log_.End(), 22U);
  EXPECT_EQ(log_.Settled(), 21U);
  Console("03 6A");
  EXPECT_EQ(HexOf(log_.At(21)), "02 50 39 03 6A");
}

TEST_F(LineLogTest, GoesOnCountingAfterItWasCleared) {
  Console("02 21 03 22 02");
  log_.Clear();
  EXPECT_EQ(log_.First(), 2U);
  EXPECT_EQ(log_.End(), 2U);
  Console("51 03 52");
  EXPECT_THAT(Entries(), ElementsAre("received 51 03 52"));
}

TEST_F(LineLogTest, IsWrittenAsText) {
  Console("02 21 03 22");
  now_ += 7ms;
  Printer("06");
  std::ostringstream text;
  WriteLog(text, LogFormat::kText, log_);
  EXPECT_EQ(text.str(),
            "2026-01-02 10:20:30.123  received  02 21 03 22  21h first track read\n"
            "2026-01-02 10:20:30.130  sent      06  06h acknowledge\n");
}

TEST_F(LineLogTest, IsWrittenAsCsvWithQuotes) {
  // "a,b" and a double quote, to track 1.
  Console("02 3B 61 2C 62 22 03 35");
  std::ostringstream csv;
  WriteLog(csv, LogFormat::kCsv, log_);
  EXPECT_EQ(csv.str(),
            "Date,Time,Direction,Hex,Characters,Meaning,UTC,Comment\r\n"
            "2026-01-02,10:20:30.123,received,02 3B 61 2C 62 22 03 35,\".;a,b\"\".5\","
            "\"3Bh first track data set: \"\"a,b\\\"\"\"\"\","
            "2026-01-02T10:20:30.123000Z,\r\n");
}

TEST_F(LineLogTest, TellsOfAStreamThatFails) {
  Console("02 21 03 22");
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  WriteLog(out, LogFormat::kText, log_);
  EXPECT_FALSE(out.good());
}

}  // namespace
}  // namespace vantrel::log
