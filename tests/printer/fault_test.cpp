#include "printer/fault.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <stdexcept>
#include <string>

namespace vantrel {
namespace {

using Kind = Fault::Kind;

Fault Make(Kind kind, unsigned value = 0, std::optional<unsigned> commands = 1) {
  return {kind, value, {}, commands};
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
  noise.noise = {0xFF, 0x00};
  EXPECT_EQ(ParseFault("  noise   Ff00 "), noise);
}

TEST(Fault, IsWrittenAsItsText) {
  EXPECT_EQ(TextOf(Make(Kind::kStatus, 0x0A)), "status 0A next");
  EXPECT_EQ(TextOf(Make(Kind::kDelay, 2000, 3)), "delay 2000 for 3");
  EXPECT_EQ(TextOf(Make(Kind::kSilence, 0, std::nullopt)), "silence until cleared");
  Fault noise = Make(Kind::kNoise);
  noise.noise = {0xFF, 0x00};
  EXPECT_EQ(TextOf(noise), "noise FF00 next");
}

TEST(Fault, OfEveryKindIsReadAsItIsWritten) {
  for (const FaultRow& row : FaultRows()) {
    Fault fault = Make(row.kind, 0, 7);
    if (row.value == FaultValue::kNumber) fault.value = row.most;
    if (row.value == FaultValue::kHexByte) fault.value = 0x55;
    if (row.value == FaultValue::kHexBytes) fault.noise = Bytes(row.most, 0xA5);
    EXPECT_EQ(ParseFault(TextOf(fault)), fault) << row.word;
    EXPECT_FALSE(row.in_words.empty());
  }
}

struct BadText {
  const char* name;
  const char* text;
  const char* words;
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
                    BadText{"NoCount", "silence for", "not 'for'"},
                    BadText{"ACountOfNothing", "silence for 0", "'for' needs a number from 1"},
                    BadText{"AnUnknownCount", "silence until noon", "not 'until noon'"},
                    BadText{"AValueTooMany", "silence 5", "not '5'"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Fault, TakesAsMuchNoiseAs256Bytes) {
  EXPECT_EQ(ParseFault("noise " + std::string(512, 'A')).noise.size(), 256U);
  EXPECT_THROW(ParseFault("noise " + std::string(514, 'A')), std::invalid_argument);
}

}  // namespace
}  // namespace vantrel
