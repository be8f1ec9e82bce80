// SPDX-License-Identifier: MIT

#include "log/comparison.h"

#include "tests/log/capture_bytes.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace vantrel::log {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Rows as "> 02210322" to the printer and "< 06" from it.
std::vector<Exchange> ExchangesOf(std::initializer_list<const char*> rows) {
  ExchangeReader reader;
  for (const std::string row : rows)
    reader.Add(
        {{},
         row.front() == '>' ? protocol::Direction::kFromConsole : protocol::Direction::kFromPrinter,
         FromHex(row.substr(2)),
         {}});
  return reader.Take();
}

std::vector<std::string> DifferencesOf(std::initializer_list<const char*> a,
                                       std::initializer_list<const char*> b, bool json = false) {
  std::vector<std::string> lines;
  EXPECT_TRUE(Compare(ExchangesOf(a), ExchangesOf(b), [&](const FieldDifference& difference) {
    lines.push_back(json ? JsonOf(difference) : TextOf(difference));
  }));
  return lines;
}

TEST(Comparison, GivesARejectedCommandNoLaterReply) {
  // 21h is rejected; a reply with its code comes behind 22h.
  const auto exchanges = ExchangesOf({"> 02210322", "< 10", "> 02220321", "< 06", "< 0221200302"});
  // The first of all stands for what comes before any command.
  ASSERT_EQ(exchanges.size(), 3U);
  EXPECT_EQ(exchanges[1].statuses, "");
  EXPECT_EQ(exchanges[2].statuses, "\x20");
}

TEST(Comparison, FindsNothingInWhatIsEqual) {
  EXPECT_THAT(
      DifferencesOf({"> 02210322", "< 06", "< 0221200302"}, {"> 02210322", "< 06", "< 0221200302"}),
      IsEmpty());
  EXPECT_THAT(DifferencesOf({}, {}), IsEmpty());
}

TEST(Comparison, TellsAStatus) {
  EXPECT_THAT(
      DifferencesOf({"> 02210322", "< 06", "< 0221200302"}, {"> 02210322", "< 06", "< 0221220300"}),
      ElementsAre("exchange 1, 21h: status 22h instead of 20h"));
  EXPECT_THAT(DifferencesOf({"> 02210322", "< 06", "< 0221200302"},
                            {"> 02210322", "< 06", "< 0221220300"}, true),
              ElementsAre("{\"exchange\":1,\"command\":\"21\",\"field\":\"status\",\"a\":\"20\","
                          "\"b\":\"22\"}"));
}

TEST(Comparison, TellsEachFieldOnce) {
  // 5Ah with "1" and "2".
  EXPECT_THAT(DifferencesOf({"> 025A310368"}, {"> 025A32036B"}),
              ElementsAre("exchange 1, 5Ah: data \"2\" instead of \"1\""));
  EXPECT_THAT(DifferencesOf({"> 02210322", "< 06"}, {"> 02210322", "< 10"}),
              ElementsAre("exchange 1, 21h: controls 10h instead of 06h"));
  // "A" and "B" of track 1.
  EXPECT_THAT(DifferencesOf({"> 02210322", "< 022120410343"}, {"> 02210322", "< 022120420340"}),
              ElementsAre("exchange 1, 21h: reply data \"B\" instead of \"A\""));
  EXPECT_THAT(DifferencesOf({"> 02210322", "< 0221200302"}, {"> 02210322", "< 0221200303"}),
              ElementsAre("exchange 1, 21h: check bad instead of good"));
  EXPECT_THAT(DifferencesOf({"> 02210322", "< 0221200303"}, {"> 02210322", "< 0221200302"}),
              IsEmpty());
  EXPECT_THAT(DifferencesOf({"> 02210322", "< 0221200302"}, {"> 02210322"}),
              ElementsAre("exchange 1, 21h: status none instead of 20h"));
}

TEST(Comparison, TellsExchangesThatStandAlone) {
  EXPECT_THAT(DifferencesOf({"> 02210322", "> 0258035B", "> 02510352"},
                            {"> 02210322", "> 02510352", "> 0259035A"}),
              ElementsAre("exchange 2, 58h: missing in B", "exchange 4, 59h: only in B"));
  EXPECT_THAT(DifferencesOf({"> 0258035B"}, {}, true),
              ElementsAre("{\"exchange\":1,\"command\":\"58\",\"field\":\"exchange\",\"a\":\"58\","
                          "\"b\":null}"));
}

TEST(Comparison, CountsWhatCameBeforeTheFirstFrameAsExchange0) {
  EXPECT_THAT(DifferencesOf({"< 15", "> 02210322"}, {"> 02210322"}),
              ElementsAre("exchange 0: controls none instead of 15h"));
}

TEST(Comparison, KeepsAResendInItsExchange) {
  EXPECT_THAT(DifferencesOf({"> 02210322", "< 15", "> 02210322", "< 06"}, {"> 02210322", "< 06"}),
              ElementsAre("exchange 1, 21h: controls 06h instead of 15h 06h"));
}

TEST(Comparison, GivesAReplyToTheEarlierCommandThatItEchoes) {
  // The reply to 21h comes after 58h was sent and answered.
  EXPECT_THAT(
      DifferencesOf({"> 02210322", "< 06", "> 0258035B", "< 06", "< 0258200378", "< 0221200302"},
                    {"> 02210322", "< 06", "> 0258035B", "< 06", "< 0258200378", "< 0221220300"}),
      ElementsAre("exchange 1, 21h: status 22h instead of 20h"));
}

TEST(Comparison, GoesOnInStepWhereTooMuchDiffers) {
  std::vector<Exchange> a(1);
  std::vector<Exchange> b(1);
  for (int i = 0; i < 20000; ++i) {
    a.push_back({0x41, "a" + std::to_string(i), {}, {}, {}, false});
    b.push_back({0x42, "b" + std::to_string(i), {}, {}, {}, false});
  }
  std::size_t told = 0;
  EXPECT_FALSE(Compare(a, b, [&told](const FieldDifference&) { ++told; }));
  // Command and data of each, or two that stand alone.
  EXPECT_EQ(told, 40000U);
}

TEST(Comparison, FindsWhatIsMissingByCodeWhereAllDataDiffer) {
  std::vector<Exchange> a(1);
  std::vector<Exchange> b(1);
  for (int i = 0; i < 20000; ++i) {
    const std::uint8_t code = i % 7 == 0 ? 0x21 : 0x41;
    a.push_back({code, "a" + std::to_string(i), {}, {}, {}, false});
    if (i != 10000) b.push_back({code, "b" + std::to_string(i), {}, {}, {}, false});
  }
  std::size_t missing = 0;
  EXPECT_TRUE(Compare(a, b, [&missing](const FieldDifference& difference) {
    if (difference.field == FieldDifference::Field::kExchange) ++missing;
  }));
  EXPECT_EQ(missing, 1U);
}

TEST(Comparison, TellsTheFieldsOfACommandThatWasSpoiltOnceAsItWasMeant) {
  // 5Ah with "1" came as 5Bh, was asked for again and came well.
  EXPECT_THAT(
      DifferencesOf({"> 025A310368", "< 06"}, {"> 025B310368", "< 15", "> 025A310368", "< 06"}),
      ElementsAre("exchange 1, 5Ah: controls 15h 06h instead of 06h",
                  "exchange 1, 5Ah: check bad instead of good"));
  // Another command after a 15h is no resend.
  EXPECT_THAT(DifferencesOf({"> 025A310368", "< 15", "> 025A310368"},
                            {"> 025A310368", "< 15", "> 025A32036B"}),
              ElementsAre("exchange 2, 5Ah: only in B"));
}

}  // namespace
}  // namespace vantrel::log
