// SPDX-License-Identifier: MIT

#include "link/typed_number.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>

namespace vantrel::link {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct NumberCase {
  const char* name;
  std::string text;
  double value;
};

void PrintTo(const NumberCase& row, std::ostream* out) { *out << row.name; }

class LeadingNumberTest : public testing::TestWithParam<NumberCase> {};

TEST_P(LeadingNumberTest, Reads) {
  EXPECT_EQ(LeadingNumber(GetParam().text), GetParam().value) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LeadingNumberTest,
    testing::Values(
        NumberCase{"Digits", "12", 12}, NumberCase{"LeadingZeros", "0012", 12},
        NumberCase{"LeadingBlanks", "   7", 7}, NumberCase{"Plus", "+7", 7},
        NumberCase{"Minus", "-7", -7}, NumberCase{"BlankAfterSign", "- 7", 0},
        NumberCase{"TwoSigns", "--7", 0}, NumberCase{"DecimalPoint", "2.5", 2.5},
        NumberCase{"PointFirst", ".5", 0.5}, NumberCase{"PointLast", "5.", 5},
        NumberCase{"PointAlone", ".", 0}, NumberCase{"SignAlone", "-", 0},
        NumberCase{"SignAndPoint", "-.", 0}, NumberCase{"TwoPoints", "1.2.3", 1.2},
        NumberCase{"Comma", "1,5", 1}, NumberCase{"TrailingLetters", "12abc", 12},
        NumberCase{"LettersFirst", "abc12", 0}, NumberCase{"BlankInside", "1 2", 1},
        NumberCase{"Tab", "\t3", 0}, NumberCase{"Empty", "", 0},
        NumberCase{"BlanksAlone", "   ", 0}, NumberCase{"Exponent", "1e1", 10},
        NumberCase{"UpperExponent", "1E+2", 100}, NumberCase{"ExponentD", "15d-1", 1.5},
        NumberCase{"UpperExponentD", "2D2", 200}, NumberCase{"ExponentWithoutDigits", "3e", 3},
        NumberCase{"ExponentSignAlone", "3e+x", 3}, NumberCase{"ExponentAlone", "e5", 0},
        NumberCase{"PointThenExponent", "5.e1", 50}, NumberCase{"FractionalExponent", "1e1.5", 10},
        NumberCase{"HexPrefix", "0x10", 0}, NumberCase{"WordInf", "inf", 0},
        NumberCase{"WordNan", "nan", 0}, NumberCase{"FullWidthDigit", "\uFF11", 0},
        NumberCase{"TooLarge", "1e999", kInfinity},
        NumberCase{"TooLargeNegative", "-1e999", -kInfinity}, NumberCase{"TooSmall", "1e-999", 0},
        NumberCase{"HugeExponent", "1e99999999999", kInfinity},
        NumberCase{"ZeroWithHugeExponent", "0e999", 0},
        NumberCase{"TooManyDigits", std::string(400, '9'), kInfinity},
        NumberCase{"TooSmallWithoutExponent", "0." + std::string(400, '0') + "1", 0},
        NumberCase{"LongDigitsWithNegativeExponent", "1" + std::string(800, '0') + "e-300",
                   kInfinity},
        NumberCase{"LongFractionWithPositiveExponent", "0." + std::string(800, '0') + "1e300", 0},
        NumberCase{"LongDigitsThatTheExponentUndoes", "1" + std::string(400, '0') + "e-400", 1}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(TypedInteger, RoundsHalvesToEven) {
  EXPECT_EQ(TypedInteger("12.5"), 12);
  EXPECT_EQ(TypedInteger("13.5"), 14);
  EXPECT_EQ(TypedInteger("0.5"), 0);
  EXPECT_EQ(TypedInteger("1.5"), 2);
  EXPECT_EQ(TypedInteger("-0.5"), 0);
  EXPECT_EQ(TypedInteger("-1.5"), -2);
  EXPECT_EQ(TypedInteger("-2.5"), -2);
}

TEST(TypedInteger, RoundsToTheNearest) {
  EXPECT_EQ(TypedInteger("12.4999"), 12);
  EXPECT_EQ(TypedInteger("12.5001"), 13);
  EXPECT_EQ(TypedInteger("-12.5001"), -13);
}

TEST(TypedInteger, HoldsTheWhole16BitRange) {
  EXPECT_EQ(TypedInteger("32767"), 32767);
  EXPECT_EQ(TypedInteger("-32768"), -32768);
}

TEST(TypedInteger, IsEmptyOutside16Bits) {
  EXPECT_EQ(TypedInteger("32768"), std::nullopt);
  EXPECT_EQ(TypedInteger("-32769"), std::nullopt);
  EXPECT_EQ(TypedInteger("1e5"), std::nullopt);
  EXPECT_EQ(TypedInteger("1e999"), std::nullopt);
  EXPECT_EQ(TypedInteger("-1e999"), std::nullopt);
}

TEST(TypedInteger, RoundsBeforeItLooksAtTheRange) {
  EXPECT_EQ(TypedInteger("32767.4"), 32767);
  EXPECT_EQ(TypedInteger("32767.5"), std::nullopt);
  EXPECT_EQ(TypedInteger("-32768.5"), -32768);
  EXPECT_EQ(TypedInteger("-32768.6"), std::nullopt);
}

TEST(TypedInteger, IsZeroForWhatCannotBeRead) {
  EXPECT_EQ(TypedInteger(""), 0);
  EXPECT_EQ(TypedInteger("card"), 0);
}

TEST(EqualsTwo, TakesEveryWritingOfTheNumber) {
  for (const char* text : {"2", " 2", "2 ", "  2  ", "+2", "2.0", "2.", "02", "20e-1", "0.2D1"})
    EXPECT_TRUE(EqualsTwo(text)) << '"' << text << '"';
}

TEST(EqualsTwo, RefusesEverythingElse) {
  for (const char* text : {"", " ", "2x", "x2", "21", "12", "2 2", "-2", "2.1", "1.9999", "+ 2",
                           "2e", "2e+", "\uFF12", "two", "2\t"})
    EXPECT_FALSE(EqualsTwo(text)) << '"' << text << '"';
}

}  // namespace
}  // namespace vantrel::link
