// What is told of exchanges, without a printer.

#include "send/answers.h"
#include "send/json.h"
#include "send/progress.h"
#include "send/tally.h"

#include <gtest/gtest.h>

namespace vantrel::send {
namespace {

Exchange Replied(unsigned status, double milliseconds) {
  Exchange exchange;
  exchange.command = "58";
  exchange.status = status;
  exchange.is_success = status == 0x20;
  exchange.milliseconds = milliseconds;
  return exchange;
}

Exchange Failed(Outcome outcome) {
  Exchange exchange;
  exchange.outcome = outcome;
  return exchange;
}

TEST(Json, EscapesWhatCannotStandInAString) {
  EXPECT_EQ(JsonObject().Add("a", "\"\\\n\x7Fé").Add("b", 5L).AddNull("c").Text(),
            "{\"a\": \"\\\"\\\\\\u000A\\u007Fé\", \"b\": 5, \"c\": null}");
  EXPECT_EQ(JsonObject().Add("t", 1.0 / 3).Text(), "{\"t\": 0.333}");
}

TEST(Json, HasNoBytesThatAreNoUtf8) {
  EXPECT_EQ(ValidUtf8("a\xFF\xC3z\xE2\x82"), "a\uFFFD\uFFFDz\uFFFD\uFFFD");
  EXPECT_EQ(ValidUtf8("é€\U0001F600"), "é€\U0001F600");
  EXPECT_EQ(ValidUtf8("\xC0\x80"), "\uFFFD\uFFFD");
  EXPECT_EQ(ValidUtf8("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
}

TEST(Told, ShowsControlCharactersOfTheCodePageToo) {
  Exchange exchange = Replied(0x20, 0);
  exchange.meaning = "20h: Normal Status";
  exchange.sent = "0221";
  exchange.label = "L: ";
  exchange.data = "\x1F\x81";
  exchange.text = "\x1F\xC2\x81";
  EXPECT_EQ(Told(exchange, Format::kText), "sent      02 21\n20h: Normal Status\nL: \\x1F\\x81\n");
  EXPECT_EQ(Told(exchange, Format::kQuiet), "\x1F\x81\n");
}

TEST(Tally, CountsOutcomesAndStatuses) {
  Tally tally;
  for (const double milliseconds : {10.0, 30.0, 20.0, 12.0}) tally.Add(Replied(0x20, milliseconds));
  tally.Add(Replied(0x22, 11));
  tally.Add(Failed(Outcome::kTimeUp));
  tally.Add(Failed(Outcome::kRefused));
  EXPECT_EQ(tally.Exchanges(), 6);
  EXPECT_EQ(tally.Failures(), 3);
  EXPECT_EQ(tally.Summary().Text(),
            "{\"summary\": {\"exchanges\": 6, \"failures\": 3, "
            "\"outcomes\": {\"reply\": 5, \"time-up\": 1}, "
            "\"statuses\": {\"20\": 4, \"22\": 1}, "
            "\"medianMilliseconds\": 12.000, \"slowestMilliseconds\": 30.000}}");
  EXPECT_EQ(tally.InWords(),
            "6 exchanges, 3 failures (22h: 1, refused: 1, time-up: 1); median 12.0 ms, slowest "
            "30.0 ms.");
}

TEST(Tally, IsEmptyAtFirst) {
  EXPECT_EQ(Tally().InWords(), "0 exchanges, 0 failures; median 0.0 ms, slowest 0.0 ms.");
}

TEST(ProgressLine, TellsHowFarItIs) {
  Tally tally;
  for (int i = 0; i < 50; ++i) tally.Add(Replied(0x20, 1));
  EXPECT_EQ(ProgressLine(tally, 100, 2.0),
            "[##########..........] 50 of 100, 25.0 a second, 0 failures, 0:02 left");
  tally.Add(Replied(0x22, 1));
  EXPECT_EQ(ProgressLine(tally, std::nullopt, 2.0), "51, 25.5 a second, 1 failure");
  EXPECT_EQ(ProgressLine(Tally(), 100000, 0),
            "[....................] 0 of 100000, 0.0 a second, 0 failures");
}

}  // namespace
}  // namespace vantrel::send
