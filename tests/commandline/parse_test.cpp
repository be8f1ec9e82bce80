// SPDX-License-Identifier: MIT

#include "commandline/parse.h"

#include "tests/commandline/sample_program.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vantrel::commandline {
namespace {

using Words = std::vector<std::string>;

Parsed Order(const Words& words) { return Parse(Dispenser(), words); }

// The sentence with which a command line is refused; "" where it is taken.
std::string Refusal(const Words& words, const Program& program = Dispenser()) {
  try {
    Parse(program, words);
    return "";
  } catch (const WrongUse& error) {
    return error.what();
  }
}

TEST(Parse, TakesOptionsAnywhereAndInBothSpellings) {
  for (const Words& words : {Words{"--speed", "57", "2A", "--milk=oat", "3"},
                             Words{"--milk", "oat", "2A", "3", "--speed=57"},
                             Words{"2A", "3", "-s", "57", "--milk", "oat"}}) {
    const Parsed parsed = Order(words);
    EXPECT_EQ(parsed.Command()->name, "2A");
    EXPECT_EQ(parsed.Parameters(), Words{"3"});
    EXPECT_EQ(parsed.Number("speed"), 57);
    EXPECT_EQ(parsed.Value("milk"), "oat");
    EXPECT_FALSE(parsed.Has("quiet"));
  }
}

TEST(Parse, GivesDefaultsForWhatIsNotGiven) {
  const Parsed parsed = Order({"2A", "1"});
  EXPECT_EQ(parsed.Number("speed"), 9600);
  EXPECT_EQ(parsed.Value("milk"), "none");
  EXPECT_EQ(parsed.Value("log"), "");
  EXPECT_FALSE(parsed.Has("speed"));
  EXPECT_EQ(parsed.Values("log"), Words{});
}

TEST(Parse, KeepsTheValuesOfARepeatedOptionAndTheLastOfAnother) {
  const Parsed parsed = Order({"--log=a", "46", "--log", "b=c", "-s", "50", "-s", "60"});
  EXPECT_EQ(parsed.Values("log"), (Words{"a", "b=c"}));
  EXPECT_EQ(parsed.Number("speed"), 60);
}

TEST(Parse, TakesEverythingAfterTwoDashesAsParameters) {
  const Parsed parsed = Order({"46", "-q", "--", "--sugar", "--", "-"});
  EXPECT_TRUE(parsed.Has("quiet"));
  EXPECT_FALSE(parsed.Has("sugar"));
  EXPECT_EQ(parsed.Parameters(), (Words{"--sugar", "--", "-"}));
}

TEST(Parse, TakesADashAloneAndAnEmptyWordAsParameters) {
  EXPECT_EQ(Order({"-"}).Command()->name, "-");
  EXPECT_EQ(Order({"46", "-", ""}).Parameters(), (Words{"-", ""}));
}

TEST(Parse, IgnoresTheCaseOfCommandsWhereTheTableSaysSo) {
  EXPECT_EQ(Order({"2a", "1"}).Command()->name, "2A");
  Program strict = Dispenser();
  strict.commands_ignore_case = false;
  EXPECT_EQ(Refusal({"2a", "1"}, strict), "There is no command '2a'.");
}

TEST(Parse, TakesNumbersToBothEndsAndWithoutLeadingZeros) {
  EXPECT_EQ(Order({"2A", "1"}).Parameters(), Words{"1"});
  EXPECT_EQ(Order({"2A", "007"}).Parameters(), Words{"7"});
  EXPECT_EQ(Order({"-s", "50", "46"}).Number("speed"), 50);
  EXPECT_EQ(Order({"-s", "4000", "46"}).Number("speed"), 4000);
}

TEST(Parse, RefusesWhatIsNoNumberInTheRange) {
  for (const char* bad : {"0", "8", "+1", "1.0", " 1", "1 ", "0x1", "", "one", "99999999999"})
    EXPECT_EQ(Refusal({"2A", bad}),
              std::string("CUPS is a number from 1 to 7, not '") + bad + "'.");
  EXPECT_EQ(Refusal({"-s", "49", "46"}), "--speed is a number from 50 to 4000, not '49'.");
  EXPECT_EQ(Refusal({"--speed=-50", "46"}), "--speed is a number from 50 to 4000, not '-50'.");
}

TEST(Parse, RefusesWhatTheTableDoesNotHave) {
  EXPECT_EQ(Refusal({}), "A command is missing.");
  EXPECT_EQ(Refusal({"99"}), "There is no command '99'.");
  EXPECT_EQ(Refusal({"2A", "1", "--haste"}), "Unknown option 'haste'.");
  EXPECT_EQ(Refusal({"2A", "1", "--haste=2"}), "Unknown option 'haste'.");
  EXPECT_EQ(Refusal({"2A", "-1"}), "Unknown option '1'.");
  EXPECT_EQ(Refusal({"46", "--milk", "oat"}), "Command 46 takes no option --milk.");
  EXPECT_EQ(Refusal({"2A", "1", "--milk", "soy"}), "--milk is cow, oat or none, not 'soy'.");
  EXPECT_EQ(Refusal({"46", "--sugar=2"}), "--sugar takes no value.");
  EXPECT_EQ(Refusal({"46", "--speed"}), "Missing value after '--speed'.");
  EXPECT_EQ(Refusal({"2A"}), "The parameter CUPS is missing.");
  EXPECT_EQ(Refusal({"2A", "1", "Ada", "Bo"}), "Unexpected argument 'Bo'.");
}

TEST(Parse, LetsAnOptionReplaceTheParameters) {
  EXPECT_EQ(Order({"2A", "--raw", "00"}).Value("raw"), "00");
  EXPECT_EQ(Refusal({"2A", "1", "--raw", "00"}),
            "--raw stands in place of parameters such as '1'.");
}

TEST(Parse, ReadsAProgramWithoutCommands) {
  const Words words{"a.txt", "here"};
  const Parsed parsed = Parse(Copier(), words);
  EXPECT_EQ(parsed.Command(), nullptr);
  EXPECT_EQ(parsed.Parameters(), words);
  EXPECT_EQ(Refusal({"a.txt", "away"}, Copier()), "TO is here or there, not 'away'.");
  EXPECT_EQ(Refusal({"a.txt"}, Copier()), "The parameter TO is missing.");
}

class BeginTest : public testing::Test {
 protected:
  std::optional<int> EndOf(std::vector<const char*> words) {
    words.insert(words.begin(), "/usr/bin/test-dispenser");
    return Begin(Dispenser(), static_cast<int>(words.size()), words.data(), out_, errors_).end;
  }
  std::ostringstream out_;
  std::ostringstream errors_;
};

TEST_F(BeginTest, GoesOnWithAGoodCommandLine) {
  EXPECT_EQ(EndOf({"2A", "1"}), std::nullopt);
  EXPECT_EQ(out_.str() + errors_.str(), "");
}

TEST_F(BeginTest, TellsTheVersion) {
  EXPECT_EQ(EndOf({"-v"}), 0);
  EXPECT_EQ(out_.str(), "test-dispenser 3.14\n");
  EXPECT_EQ(errors_.str(), "");
}

TEST_F(BeginTest, FailsWhereWhatWasAskedForCannotBeWritten) {
  for (const char* option : {"--help", "--version"}) {
    out_.setstate(std::ios::badbit);
    errors_.str("");
    EXPECT_EQ(EndOf({option}), 1) << option;
    EXPECT_EQ(errors_.str(), "test-dispenser: Standard output cannot be written.\n");
  }
}

TEST_F(BeginTest, HelpsEvenWhereACommandIsMissing) {
  EXPECT_EQ(EndOf({"--quiet", "--help", "--haste"}), 0);
  EXPECT_TRUE(out_.str().starts_with("Usage: test-dispenser [OPTIONS] COMMAND [PARAMETERS]\n"));
}

TEST_F(BeginTest, TellsWrongUseInOneSentence) {
  EXPECT_EQ(EndOf({"--haste", "--help"}), 2);
  EXPECT_EQ(out_.str(), "");
  EXPECT_EQ(errors_.str(),
            "test-dispenser: Unknown option 'haste'. "
            "Try 'test-dispenser --help'.\n");
}

}  // namespace
}  // namespace vantrel::commandline
