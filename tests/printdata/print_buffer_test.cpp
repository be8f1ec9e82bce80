// SPDX-License-Identifier: MIT

#include "printdata/print_buffer.h"

#include "link/common.h"

#include <gtest/gtest.h>

namespace vantrel::printdata {
namespace {

TEST(ImageExpansion, IsDirectionXYAndImageNumberAsTyped) {
  const std::string data = ComposeImageExpansion({"2", "0", "47"}, "15");
  EXPECT_EQ(data, "2,0,47,15");
  // '2' ',' '0' ',' '4' '7' ',' '1' '5' by the ASCII table.
  EXPECT_EQ(link::StrToHex(data, link::CodePage::kWestern), "322C302C34372C3135");
}

TEST(ImageExpansion, NeitherPadsNorStripsZeros) {
  EXPECT_EQ(ComposeImageExpansion({"1", "007", "0479"}, "00012"), "1,007,0479,00012");
}

TEST(ImageExpansion, TakesTextsOutOfRangeAsTheyStand) {
  EXPECT_EQ(ComposeImageExpansion({"0", "999", "480"}, "2000"), "0,999,480,2000");
}

TEST(PrintHeader, EndsWithAComma) {
  EXPECT_EQ(ComposePrintHeader({"2", "0", "47"}), "2,0,47,");
  EXPECT_EQ(ComposePrintHeader({"3", "479", "319"}), "3,479,319,");
}

TEST(PrintHeader, HasTwoCommasInARowWhereAFieldIsEmpty) {
  EXPECT_EQ(ComposePrintHeader({"2", "", "47"}), "2,,47,");
  EXPECT_EQ(ComposePrintHeader({"2", "0", ""}), "2,0,,");
  EXPECT_EQ(ComposePrintHeader({"2", "", ""}), "2,,,");
}

TEST(IsVertical, OfTheFourDirections) {
  EXPECT_TRUE(IsVertical("0"));
  EXPECT_FALSE(IsVertical("1"));
  EXPECT_TRUE(IsVertical("2"));
  EXPECT_FALSE(IsVertical("3"));
}

struct RangeCase {
  const char* name;
  Axis axis;
  const char* direction;
  const char* last;    // the largest number accepted
  const char* beyond;  // the smallest one refused
  const char* title;
  const char* message;
};

void PrintTo(const RangeCase& param, std::ostream* out) { *out << param.name; }

class CoordinateRange : public testing::TestWithParam<RangeCase> {};

TEST_P(CoordinateRange, AcceptsBothEndsAndRefusesWhatLiesBeyond) {
  const RangeCase& param = GetParam();
  for (const char* text : {"0", "", "000", "abc", param.last})
    EXPECT_FALSE(CheckCoordinate(param.axis, text, param.direction)) << text;
  for (const char* text : {param.beyond, "-1", "-0.5", "99999", "99999999999999999999"}) {
    const auto error = CheckCoordinate(param.axis, text, param.direction);
    ASSERT_TRUE(error) << text;
    EXPECT_EQ(error->title, param.title);
    EXPECT_EQ(error->message, param.message);
  }
  // Judged as a double: a fraction beyond the end is refused, not rounded.
  EXPECT_TRUE(CheckCoordinate(param.axis, std::string(param.last) + ".25", param.direction));
}

constexpr RangeCase kRangeCases[] = {
    {"XVerticalOverwrite", Axis::kX, "0", "319", "320", "Invalid X coordinate",
     "X Coordinate should be within 0 - 319 if the printing direction is vertical"},
    {"XHorizontalOverwrite", Axis::kX, "1", "479", "480", "Invalid X coordinate",
     "X Coordinate should be within 0 - 479 if the printing direction is horizontal"},
    {"XVerticalAdded", Axis::kX, "2", "319", "320", "Invalid X coordinate",
     "X Coordinate should be within 0 - 319 if the printing direction is vertical"},
    {"XHorizontalAdded", Axis::kX, "3", "479", "480", "Invalid X coordinate",
     "X Coordinate should be within 0 - 479 if the printing direction is horizontal"},
    {"YVerticalOverwrite", Axis::kY, "0", "479", "480", "Invalid Y coordinate",
     "Y Coordinate should be within 0 - 479 if the printing direction is vertical"},
    {"YHorizontalOverwrite", Axis::kY, "1", "319", "320", "Invalid Y coordinate",
     "Y Coordinate should be within 0 - 319 if the printing direction is horizontal"},
    {"YVerticalAdded", Axis::kY, "2", "479", "480", "Invalid Y coordinate",
     "Y Coordinate should be within 0 - 479 if the printing direction is vertical"},
    {"YHorizontalAdded", Axis::kY, "3", "319", "320", "Invalid Y coordinate",
     "Y Coordinate should be within 0 - 319 if the printing direction is horizontal"},
};

INSTANTIATE_TEST_SUITE_P(Directions, CoordinateRange, testing::ValuesIn(kRangeCases),
                         [](const auto& param_info) { return param_info.param.name; });

TEST(ImageNoRange, KeepsTheTitleInvalidXCoordinateOnPurpose) {
  for (const char* text : {"0", "", "1999"}) EXPECT_FALSE(CheckImageNo(text)) << text;
  for (const char* text : {"2000", "-1", "1999.5", "99999"}) {
    const auto error = CheckImageNo(text);
    ASSERT_TRUE(error) << text;
    EXPECT_EQ(error->title, "Invalid X coordinate");
    EXPECT_EQ(error->message,
              "Image No should be within 0 - 1999.\r\n"
              "If the printer does not have the corresponding image, a rejected response will be "
              "issued");
  }
}

}  // namespace
}  // namespace vantrel::printdata
