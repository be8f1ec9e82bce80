// SPDX-License-Identifier: MIT

#include "printer/model/fault.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <stdexcept>
#include <string>

namespace vantrel::printer {
namespace {

using Kind = Fault::Kind;

Fault Make(Kind kind, unsigned value = 0, std::optional<unsigned> strikes = 1) {
  Fault fault;
  fault.kind = kind;
  fault.value = value;
  fault.strikes = strikes;
  return fault;
}

TEST(Fault, IsReadFromItsText) {
  EXPECT_EQ(ParseFault("status 38"), Make(Kind::kStatus, 0x38));
  EXPECT_EQ(ParseFault("status ff next"), Make(Kind::kStatus, 0xFF));
  EXPECT_EQ(ParseFault("silence"), Make(Kind::kSilence));
  EXPECT_EQ(ParseFault("delay 2000 for 3"), Make(Kind::kDelay, 2000, 3));
  EXPECT_EQ(ParseFault("bad-bcc until cleared"), Make(Kind::kBadCheck, 0, std::nullopt));
  EXPECT_EQ(ParseFault("wrong-echo"), Make(Kind::kWrongEcho));
  EXPECT_EQ(ParseFault("truncate"), Make(Kind::kTruncate));
  EXPECT_EQ(ParseFault("resend 2"), Make(Kind::kResend, 2));
  EXPECT_EQ(ParseFault("reject"), Make(Kind::kReject));
  EXPECT_EQ(ParseFault("unknown-control 55"), Make(Kind::kUnknownControl, 0x55));
  EXPECT_EQ(ParseFault("split 5"), Make(Kind::kSplit, 5));
  EXPECT_EQ(ParseFault("join"), Make(Kind::kJoin));
  EXPECT_EQ(ParseFault("vanish"), Make(Kind::kVanish));
  Fault noise = Make(Kind::kNoise);
  noise.bytes = {0xFF, 0x00};
  EXPECT_EQ(ParseFault("  noise   Ff00 "), noise);
}

TEST(Fault, OfTheLaterKindsIsReadFromItsText) {
  EXPECT_EQ(ParseFault("mute"), Make(Kind::kMute));
  EXPECT_EQ(ParseFault("late"), Make(Kind::kLate, 1000));
  EXPECT_EQ(ParseFault("late 50 for 2"), Make(Kind::kLate, 50, 2));
  EXPECT_EQ(ParseFault("late until cleared"), Make(Kind::kLate, 1000, std::nullopt));
  EXPECT_EQ(ParseFault("drop 3"), Make(Kind::kDrop, 3));
  EXPECT_EQ(ParseFault("bad-bcc inverted"), Make(Kind::kBadCheck, Fault::kInverted));
  EXPECT_EQ(ParseFault("bad-bcc zero next"), Make(Kind::kBadCheck, Fault::kZero));
  EXPECT_EQ(ParseFault("bad-bcc others"), Make(Kind::kBadCheck, Fault::kOthers));
  EXPECT_EQ(ParseFault("extra 0a0B").bytes, (link::Bytes{0x0A, 0x0B}));
}

// What it does to the command is told behind its text, each kind by words of its own.
TEST(Fault, TellsWhatItDoes) {
  struct Case {
    const char* text;
    const char* words;
  };
  for (const Case& row : {
           Case{"status 3a on 21", "status 3A (status 3Ah answers in place of the work)"},
           {"silence for 3", "silence (the command is left undone and unanswered)"},
           {"mute", "mute (the work is done and not answered)"},
           {"delay 2000", "delay 2000 (the reply is kept back for 2000 ms)"},
           {"late",
            "late 1000 (the reply is kept back until 1000 ms after the console has given it up)"},
           {"bad-bcc", "bad-bcc (the reply goes with each bit of its block check turned)"},
           {"bad-bcc zero",
            "bad-bcc zero (the reply goes with the block check 00h, FFh where 00h is good)"},
           {"bad-bcc others",
            "bad-bcc others (the reply goes with the block check of other bytes: with STX, without "
            "ETX)"},
           {"wrong-echo", "wrong-echo (the reply goes with the highest bit of its code turned)"},
           {"truncate", "truncate (the reply goes without its last two bytes)"},
           {"drop 3", "drop 3 (the answer goes without its byte 3)"},
           {"extra 0A0B", "extra 0A0B (the noise 0A0B follows the answer)"},
           {"resend 2", "resend 2 (15h asks for the frame again)"},
           {"reject", "reject (10h answers and the command is left undone)"},
           {"unknown-control 55",
            "unknown-control 55 (55h alone answers and the command is left undone)"},
           {"noise FF00", "noise FF00 (the noise FF00 goes before the answer)"},
           {"split 5", "split 5 (the answer goes byte by byte, 5 ms apart)"},
           {"join", "join (the answer is kept back for the next one)"},
           {"vanish", "vanish (the device goes and the command is left undone)"},
       })
    EXPECT_EQ(StruckInWords(ParseFault(row.text)), row.words);
}

TEST(Fault, IsAimedAndCounted) {
  Fault aimed = Make(Kind::kSilence);
  aimed.code = 0x5F;
  EXPECT_EQ(ParseFault("silence on 5F"), aimed);
  EXPECT_EQ(ParseFault("silence on 5fh next"), aimed);
  aimed.after = 3;
  EXPECT_EQ(ParseFault("silence on 5F after 3"), aimed);
  EXPECT_EQ(ParseFault("silence after 3 next on 5F"), aimed);
  aimed.after = 1;
  aimed.every = 4;
  aimed.strikes = 2;
  EXPECT_EQ(ParseFault("silence on 5F after 1 every 4 for 2"), aimed);
  aimed.after = 4;
  aimed.strikes = std::nullopt;
  EXPECT_EQ(ParseFault("silence on 5F every 4"), aimed);
}

TEST(Fault, AtRandomIsAnyOfSome) {
  const Fault fault = ParseFault("random 42 10 silence, status 38,delay,bad-bcc zero on 21 for 9");
  EXPECT_EQ(fault.kind, Kind::kRandom);
  EXPECT_EQ(fault.value, 42U);
  EXPECT_EQ(fault.percent, 10U);
  EXPECT_EQ(fault.code, 0x21);
  EXPECT_EQ(fault.strikes, 9U);
  // What has no value here has that of the list.
  EXPECT_EQ(fault.choices,
            (std::vector<Fault>{Make(Kind::kSilence), Make(Kind::kStatus, 0x38),
                                Make(Kind::kDelay, 2000), Make(Kind::kBadCheck, Fault::kZero)}));
  EXPECT_FALSE(ParseFault("random 1 100 reject").strikes);
}

TEST(Fault, WithItsAimIsWrittenAsItsText) {
  for (const char* text :
       {"mute next", "late 1000 next", "bad-bcc next", "bad-bcc zero next", "drop 2 next",
        "status 38 on 21 after 2 every 3 for 4", "silence every 2 until cleared",
        "silence after 1 every 2 until cleared", "silence after 2 next",
        "random 7 20 silence,status 22,bad-bcc others until cleared"})
    EXPECT_EQ(TextOf(ParseFault(text)), text);
  EXPECT_EQ(KindTextOf(ParseFault("status 38 on 21 every 2")), "status 38");
}

TEST(Fault, IsWrittenAsItsText) {
  EXPECT_EQ(TextOf(Make(Kind::kStatus, 0x0A)), "status 0A next");
  EXPECT_EQ(TextOf(Make(Kind::kDelay, 2000, 3)), "delay 2000 for 3");
  EXPECT_EQ(TextOf(Make(Kind::kSilence, 0, std::nullopt)), "silence until cleared");
  Fault noise = Make(Kind::kNoise);
  noise.bytes = {0xFF, 0x00};
  EXPECT_EQ(TextOf(noise), "noise FF00 next");
}

TEST(Fault, OfEveryKindIsReadAsItIsWritten) {
  for (const FaultRow& row : FaultRows()) {
    Fault fault = Make(row.kind, 0, 7);
    if (row.value == FaultValue::kNumber) fault.value = row.most;
    if (row.value == FaultValue::kOptionalNumber) fault.value = row.least;
    if (row.value == FaultValue::kHexByte) fault.value = 0x55;
    if (row.value == FaultValue::kBadCheck) fault.value = row.most;
    if (row.value == FaultValue::kRandom) fault.choices = {Make(Kind::kJoin)};
    if (row.value == FaultValue::kHexBytes) fault.bytes = link::Bytes(row.most, 0xA5);
    EXPECT_EQ(ParseFault(TextOf(fault)), fault) << row.word;
    EXPECT_FALSE(row.in_words.empty());
  }
}

struct BadText {
  const char* name;
  const char* text;
  const char* words;

  friend void PrintTo(const BadText& bad, std::ostream* out) { *out << bad.text; }
};

class BadFault : public testing::TestWithParam<BadText> {};

TEST_P(BadFault, IsRefusedInWords) {
  try {
    ParseFault(GetParam().text);
    FAIL() << GetParam().text;
  } catch (const std::invalid_argument& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr(GetParam().words));
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, BadFault,
    testing::Values(BadText{"Nothing", "  ", "begins with its name"},
                    BadText{"NoSuchName", "jam", "no fault 'jam'"},
                    BadText{"NoValue", "status", "two hex digits, not ''"},
                    BadText{"NoHexByte", "status 3G", "two hex digits, not '3G'"},
                    BadText{"TooLongAByte", "status 380", "two hex digits, not '380'"},
                    BadText{"AFramesEndAsStatus", "status 03", "02h and 03h"},
                    BadText{"AKnownControlCharacter", "unknown-control 15", "06h, 10h and 15h"},
                    BadText{"NoNumber", "delay soon", "from 1 to 3600000, not 'soon'"},
                    BadText{"ANegativeNumber", "delay -5", "not '-5'"},
                    BadText{"TooGreatANumber", "split 1001", "from 1 to 1000, not '1001'"},
                    BadText{"ANumberPastAllNumbers", "resend 99999999999", "from 1 to 1000"},
                    BadText{"OddNoise", "noise FFF", "pairs of hex digits"},
                    BadText{"NoCount", "silence for", "'for' needs a number"},
                    BadText{"ACountOfNothing", "silence for 0", "'for' needs a number from 1"},
                    BadText{"AnUnknownCount", "silence until noon", "not 'until noon'"},
                    BadText{"AValueTooMany", "silence 5", "not '5'"},
                    BadText{"NoCode", "silence on", "two hex digits, not ''"},
                    BadText{"NoHexCode", "silence on 2G", "two hex digits, not '2G'"},
                    BadText{"TooLongACode", "silence on 210", "two hex digits, not '210'"},
                    BadText{"NoFirst", "silence after x", "'after' needs a number from 1"},
                    BadText{"EveryNone", "silence every 0", "'every' needs a number from 1"},
                    BadText{"TwoAims", "silence on 21 on 22", "'on' tells again"},
                    BadText{"TwoCounts", "silence next for 2", "'for' tells again"},
                    BadText{"NoSuchCheck", "bad-bcc odd", "not 'odd'"},
                    BadText{"NoLateNumber", "late soon", "from 1 to 3600000, not 'soon'"},
                    BadText{"NoDrop", "drop 0", "from 1 to 1000, not '0'"},
                    BadText{"NoSeed", "random", "from 0 to 4294967295, not ''"},
                    BadText{"TooManyPercent", "random 1 101 silence", "from 1 to 100, not '101'"},
                    BadText{"NothingAtRandom", "random 1 20", "needs faults"},
                    BadText{"NothingAtRandomButACount", "random 1 20 for 3", "needs faults"},
                    BadText{"NoFaultAtRandom", "random 1 20 silence,jam", "no fault 'jam'"},
                    BadText{"NoCommaAtRandom", "random 1 20 silence truncate", "not 'truncate'"},
                    BadText{"NothingAfterAComma", "random 1 20 silence,", "begins with"},
                    BadText{"NothingBetweenCommas", "random 1 20 silence,,join", "begins with"},
                    BadText{"RandomAtRandom", "random 1 20 random", "can be none"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Fault, TakesAsMuchNoiseAs256Bytes) {
  EXPECT_EQ(ParseFault("noise " + std::string(512, 'A')).bytes.size(), 256U);
  EXPECT_THROW(ParseFault("noise " + std::string(514, 'A')), std::invalid_argument);
}

}  // namespace
}  // namespace vantrel::printer
