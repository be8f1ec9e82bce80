// SPDX-License-Identifier: MIT

// What is told of exchanges, without a printer.

#include "commandline/parse.h"
#include "send/answers.h"
#include "send/input_file.h"
#include "send/progress.h"
#include "send/report.h"
#include "send/tally.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

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

TEST(Told, ShowsControlCharactersOfTheCodePageToo) {
  Exchange exchange = Replied(0x20, 0);
  exchange.meaning = "20h: Normal Status";
  exchange.sent = "0221";
  exchange.label = "L: ";
  exchange.data = "\x1F\x81\x9F\xA0";
  exchange.text = "\x1F\xC2\x81\xC2\x9F\xC2\xA0";
  EXPECT_EQ(Told(exchange, Format::kText),
            "sent      02 21\n20h: Normal Status\nL: \\x1F\\x81\\x9F\u00A0\n");
  EXPECT_EQ(Told(exchange, Format::kQuiet), "\x1F\x81\x9F\xA0\n");
}

TEST(Told, ShowsInARefusalWhatIsNoText) {
  Exchange refused = Failed(Outcome::kRefused);
  refused.meaning = "There is no command '\x1B\xFF'.";
  EXPECT_EQ(Told(refused, Format::kText), "refused   There is no command '\\x1B\uFFFD'.\n");
  EXPECT_EQ(Told(refused, Format::kQuiet), "");
}

TEST(Tally, CountsOutcomesAndStatuses) {
  Tally tally;
  for (const double milliseconds : {10.0, 30.0, 20.0, 12.0}) tally.Add(Replied(0x20, milliseconds));
  tally.Add(Replied(0x22, 11));
  tally.Add(Failed(Outcome::kTimeUp));
  tally.Add(Failed(Outcome::kRefused));
  EXPECT_EQ(tally.Exchanges(), 6);
  EXPECT_EQ(tally.Failures(), 3);
  EXPECT_EQ(
      tally.Summary().Text(),
      R"({"summary":{"exchanges":6,"failures":3,"outcomes":{"reply":5,"time-up":1},)"
      R"("statuses":{"20":4,"22":1},"medianMilliseconds":12.000,"slowestMilliseconds":30.000}})");
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
  // What is left of the last second is a second.
  EXPECT_TRUE(ProgressLine(tally, 51, 20.0).ends_with(", 0:01 left"));
  EXPECT_TRUE(ProgressLine(tally, 100, 101.0).ends_with(", 1:41 left"));
  tally.Add(Replied(0x22, 1));
  EXPECT_EQ(ProgressLine(tally, std::nullopt, 2.0), "51, 25.5 a second, 1 failure");
  EXPECT_EQ(ProgressLine(Tally(), 100000, 0),
            "[....................] 0 of 100000, 0.0 a second, 0 failures");
}

TEST(JUnitReport, HoldsNoCharacterThatXmlHasNot) {
  const std::string path = testing::TempDir() + "junit-" + std::to_string(getpid()) + ".xml";
  Exchange refused = Failed(Outcome::kRefused);
  refused.meaning = "No command '\x01\"<&>'.";
  const auto report = OpenReport(path, false);
  report->Add(refused);
  report->Finish();
  std::stringstream text;
  text << std::ifstream(path).rdbuf();
  std::filesystem::remove(path);
  EXPECT_NE(text.str().find("message=\"No command '\\x01&quot;&lt;&amp;&gt;'.\""),
            std::string::npos)
      << text.str();
}

TEST(ReadInputFile, RefusesAFileThatGrowsWhileItIsRead) {
  // The system tells no length of it and then gives bytes.
  const std::string path = "/proc/self/status";
  try {
    ReadInputFile(path, 10);
    ADD_FAILURE();
  } catch (const commandline::WrongUse& error) {
    EXPECT_EQ(error.what(), path + " grows while it is read.");
  }
}

}  // namespace
}  // namespace vantrel::send
