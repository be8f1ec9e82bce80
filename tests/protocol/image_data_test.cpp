// SPDX-License-Identifier: MIT

// The dots of 43h, 44h, 45h, 4Bh and 4Dh as values.

#include "protocol/command_data.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <string>

namespace vantrel::protocol {
namespace {

using testing::ElementsAre;

template <typename Data>
Data ValueOf(std::uint8_t code, std::string_view data) {
  return std::get<Data>(Parse(code, data).value());
}

bool IsTaken(std::uint8_t code, std::string_view data) { return Parse(code, data).has_value(); }

TEST(ImageData, OfALineIsOneLineAsLongAsItsBytes) {
  const auto image = ValueOf<ImageDots>(0x43, "479,37,0a1B80");
  EXPECT_EQ(image.x, 479);
  EXPECT_EQ(image.y, 37);
  EXPECT_EQ(image.bytes_per_line, 3);
  EXPECT_THAT(image.dots, ElementsAre(0x0A, 0x1B, 0x80));
}

TEST(ImageData, OfALineLiesOnTheArea) {
  EXPECT_TRUE(IsTaken(0x43, "0,0," + std::string(80, '0')));
  for (const std::string& refused :
       {"0,0," + std::string(82, '0'), std::string("0,38,000000"), std::string("480,0,00"),
        std::string("0,40,00"), std::string("0,0,"), std::string("0,0,0"), std::string("0,0,0G"),
        std::string("0,00"), std::string(",0,00"), std::string("0,,00"), std::string("0,0,00,")})
    EXPECT_FALSE(IsTaken(0x43, refused)) << refused;
}

TEST(ImageData, OfABlockIsOfWholeLines) {
  const auto image = ValueOf<ImageDots>(0x4D, "478,38,2,00FF01FE");
  EXPECT_EQ(image.x, 478);
  EXPECT_EQ(image.bytes_per_line, 2);
  EXPECT_THAT(image.dots, ElementsAre(0x00, 0xFF, 0x01, 0xFE));
  for (const char* refused : {"479,38,2,00FF01FE", "478,39,2,00FF01FE", "478,38,2,00FF01",
                              "0,0,0,00", "0,0,41,00", "0,0,,00", "0,0,2,", "0,0,1,0", "0,0,1"})
    EXPECT_FALSE(IsTaken(0x4D, refused)) << refused;
}

TEST(ImageData, OfABlockFillsTheAreaAtMost) {
  // 480 lines of 40 bytes.
  EXPECT_TRUE(IsTaken(0x4D, "0,0,40," + std::string(2U * 480 * 40, 'F')));
  EXPECT_FALSE(IsTaken(0x4D, "0,0,40," + std::string(2U * 481 * 40, 'F')));
}

TEST(ExternalCharacterData, HasTheSizeOfItsRegisterAndDigit) {
  struct Case {
    std::uint8_t code;
    char size;
    int width;
    int height;
    std::size_t bytes;
  };
  for (const auto& [code, size, width, height, bytes] :
       {Case{0x44, '0', 24, 24, 72}, Case{0x44, '1', 16, 16, 32}, Case{0x45, '0', 12, 24, 36},
        Case{0x45, '1', 8, 16, 16}}) {
    const std::string start = std::string(1, size) + ",C,";
    const auto character = ValueOf<ExternalCharacter>(code, start + std::string(2 * bytes, '1'));
    EXPECT_EQ(character.number, 12U);
    EXPECT_EQ(character.width, width);
    EXPECT_EQ(character.height, height);
    EXPECT_EQ(character.dots, link::Bytes(bytes, 0x11));
    EXPECT_FALSE(IsTaken(code, start + std::string(2 * bytes - 2, '1')));
    EXPECT_FALSE(IsTaken(code, start + std::string(2 * bytes + 2, '1')));
    EXPECT_FALSE(IsTaken(code, start + std::string(2 * bytes, 'x')));
  }
}

TEST(ExternalCharacterData, NamesARegister) {
  const std::string dots(32, '0');
  EXPECT_TRUE(IsTaken(0x45, "1,f," + dots));
  for (const char* start : {"1,g,", "1,,", "1,10,", "2,0,", ",0,", "1,"})
    EXPECT_FALSE(IsTaken(0x45, start + dots)) << start;
}

TEST(BmpBlockData, BeginsAFileOrGoesOnWithIt) {
  const auto first = ValueOf<BmpBlock>(0x4B, "a,424D");
  EXPECT_EQ(first.number, 10U);
  EXPECT_THAT(first.bytes, ElementsAre(0x42, 0x4D));
  const auto next = ValueOf<BmpBlock>(0x4B, "+,00");
  EXPECT_FALSE(next.number);
  for (const char* refused : {"", "+", "+,", "0,", "0,0", "0,0G", "G,00", "10,00", "++,00", ",00"})
    EXPECT_FALSE(IsTaken(0x4B, refused)) << refused;
}

}  // namespace
}  // namespace vantrel::protocol
