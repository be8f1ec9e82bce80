// SPDX-License-Identifier: MIT

// Rows of a capture with their exchanges, and two captures side by side.

#include "log/capture_rows.h"

#include "log/row_alignment.h"
#include "tests/log/log_rows.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto kNone = AlignedLine::kNothing;

const std::string k21 = "\x02\x21\x03\x22";
const std::string k21Bad = "\x02\x21\x03\x23";
const std::string k22 = "\x02\x22\x03\x21";
const std::string k23 = "\x02\x23\x03\x20";
const std::string kReply21 = "\x02\x21\x20\x41\x03\x43";
const std::string kOther21 = "\x02\x21\x31\x03\x13";

CaptureRows RowsOf(std::vector<LogEntry> entries) {
  CaptureRows rows;
  rows.Append(std::move(entries));
  return rows;
}

std::vector<std::string> TimesOf(const CaptureRows& rows) {
  std::vector<std::string> words;
  for (std::size_t i = 0; i < rows.Size(); ++i) words.push_back(TimeInWords(rows.TimeOf(i)));
  return words;
}

TEST(CaptureRows, TellsHowLongExchangesAndWaitsTook) {
  const CaptureRows rows =
      RowsOf({From(0ms, "noise"), To(10ms, k21), From(12ms, "\x06"), From(2322ms, kReply21),
              To(9000ms, k22), From(9003ms, "\x06"), To(9999ms, k23)});
  EXPECT_THAT(TimesOf(rows), ElementsAre("", "2.312 s slow", "+0.002 s", "+2.310 s wait", "0.003 s",
                                         "+0.003 s", "no answer"));
}

TEST(CaptureRows, TakesASecondForLong) {
  EXPECT_THAT(TimesOf(RowsOf({To(0ms, k21), From(1000ms, kReply21)})),
              ElementsAre("1.000 s slow", "+1.000 s wait"));
  EXPECT_THAT(TimesOf(RowsOf({To(0ms, k21), From(999ms, kReply21)})),
              ElementsAre("0.999 s", "+0.999 s"));
}

TEST(CaptureRows, LengthensAnExchangeAsItsRowsCome) {
  CaptureRows rows = RowsOf({To(0ms, k21)});
  EXPECT_THAT(TimesOf(rows), ElementsAre("no answer"));
  rows.Append({From(5ms, "\x06")});
  EXPECT_THAT(TimesOf(rows), ElementsAre("0.005 s", "+0.005 s"));
  rows.Append({From(700ms, kReply21)});
  EXPECT_THAT(TimesOf(rows), ElementsAre("0.700 s", "+0.005 s", "+0.695 s"));
}

TEST(CaptureRows, KeepsAFrameThatIsSentAgainInItsExchange) {
  const CaptureRows rows =
      RowsOf({To(0ms, k21Bad), From(1ms, "\x15"), To(2ms, k21), From(3ms, "\x15"), To(4ms, k21),
              From(5ms, "\x06"), To(6ms, k21), From(7ms, "\x15"), To(8ms, k22)});
  EXPECT_THAT(rows.Starts(), ElementsAre(0, 6, 8));
}

TEST(AlignRows, PutsTheSameRowsBesideEachOther) {
  const CaptureRows rows = RowsOf({To(0ms, k21), From(1ms, "\x06"), From(2ms, kReply21)});
  EXPECT_THAT(AlignRows(rows, rows).lines,
              ElementsAre(AlignedLine{0, 0}, AlignedLine{1, 1}, AlignedLine{2, 2}));
  EXPECT_THAT(AlignRows(RowsOf({}), RowsOf({})).lines, IsEmpty());
}

TEST(AlignRows, TellsWhatDiffersAndWhatIsMissing) {
  const CaptureRows left = RowsOf({To(0ms, k21), From(1ms, "\x06"), From(2ms, kReply21),
                                   To(3ms, k22), From(4ms, "\x06"), To(5ms, k23)});
  const CaptureRows right = RowsOf({To(0ms, k21), From(1ms, "\x06"), From(2ms, kOther21),
                                    From(3ms, kReply21), To(5ms, k23), To(6ms, k21)});
  EXPECT_THAT(
      AlignRows(left, right).lines,
      ElementsAre(AlignedLine{0, 0}, AlignedLine{1, 1}, AlignedLine{2, 2, Difference::kDiffers},
                  AlignedLine{kNone, 3, Difference::kOnlyRight},
                  AlignedLine{3, kNone, Difference::kOnlyLeft},
                  AlignedLine{4, kNone, Difference::kOnlyLeft}, AlignedLine{5, 4},
                  AlignedLine{kNone, 5, Difference::kOnlyRight}));
}

TEST(AlignRows, PutsOtherDataOfACommandBesideEachOther) {
  const CaptureRows left = RowsOf({To(0ms, "\x02\x46\x30\x03\x75"), To(1ms, k21)});
  const CaptureRows right = RowsOf({To(0ms, "\x02\x46\x31\x03\x74"), To(1ms, k21)});
  EXPECT_THAT(AlignRows(left, right).lines,
              ElementsAre(AlignedLine{0, 0, Difference::kDiffers}, AlignedLine{1, 1}));
}

TEST(AlignRows, TakesNoiseForNoDifference) {
  const CaptureRows left = RowsOf({To(0ms, k21), From(1ms, "xyz"), From(2ms, "\x06")});
  const CaptureRows right = RowsOf({To(0ms, k21), From(1ms, "\x06")});
  EXPECT_THAT(AlignRows(left, right).lines,
              ElementsAre(AlignedLine{0, 0}, AlignedLine{1, kNone}, AlignedLine{2, 1}));
}

TEST(AlignRows, HoldsEveryRowOfWhollyDifferentCapturesOnce) {
  std::vector<LogEntry> a;
  std::vector<LogEntry> b;
  for (int i = 0; i < 3000; ++i) {
    a.push_back(To(std::chrono::milliseconds(i), k21));
    b.push_back(To(std::chrono::milliseconds(i), i % 3 == 0 ? k22 : k23));
  }
  const std::vector<AlignedLine> lines = AlignRows(RowsOf(a), RowsOf(b)).lines;
  std::size_t left = 0;
  std::size_t right = 0;
  for (const AlignedLine& line : lines) {
    if (line.left != kNone) {
      EXPECT_EQ(line.left, left++);
    }
    if (line.right != kNone) {
      EXPECT_EQ(line.right, right++);
    }
  }
  EXPECT_EQ(left, a.size());
  EXPECT_EQ(right, b.size());
}

}  // namespace
}  // namespace vantrel::log
