// SPDX-License-Identifier: MIT

// The data of commands as values, and what no printer takes.

#include "protocol/command_data.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace vantrel::protocol {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

// The value of data that must be good and of this type.
template <typename Data>
Data ValueOf(std::uint8_t code, std::string_view data) {
  return std::get<Data>(Parse(code, data).value());
}

bool IsTaken(std::uint8_t code, std::string_view data) { return Parse(code, data).has_value(); }

TEST(Parse, TakesNoDataWhereThereIsNone) {
  for (const int code : {0x40, 0x49, 0x51, 0x52, 0x53, 0x54, 0x55, 0x58, 0x59, 0x5F, 0x95, 0x96}) {
    const auto byte = static_cast<std::uint8_t>(code);
    EXPECT_TRUE(std::holds_alternative<NoData>(Parse(byte, "").value())) << code;
    EXPECT_FALSE(IsTaken(byte, "0")) << code;
  }
}

TEST(Parse, KnowsNoOtherCode) {
  for (const int code : {0x00, 0x20, 0x24, 0x28, 0x2C, 0x30, 0x4C, 0x4F, 0x56, 0x90, 0xFF})
    EXPECT_FALSE(IsTaken(static_cast<std::uint8_t>(code), "")) << code;
}

TEST(Parse, TellsTheTrackOfARead) {
  const std::vector<int> codes{0x21, 0x22, 0x23, 0x25, 0x26, 0x27, 0x29, 0x2A, 0x2B};
  const std::vector<std::size_t> tracks{0, 1, 2, 0, 1, 2, 0, 1, 2};
  for (std::size_t i = 0; i < codes.size(); ++i) {
    const auto code = static_cast<std::uint8_t>(codes[i]);
    EXPECT_EQ(ValueOf<TrackRead>(code, "").track, tracks[i]) << codes[i];
    EXPECT_FALSE(IsTaken(code, "1")) << codes[i];
  }
}

TEST(Parse, ReadsTheTracksToWriteFromTheBitsOfADigit) {
  EXPECT_THAT(ValueOf<TrackChoice>(0x31, "1").tracks, ElementsAre(true, false, false));
  EXPECT_THAT(ValueOf<TrackChoice>(0x31, "6").tracks, ElementsAre(false, true, true));
  EXPECT_THAT(ValueOf<TrackChoice>(0x32, "7").tracks, ElementsAre(true, true, true));
  for (const char* data : {"", "0", "8", "11", "a"}) EXPECT_FALSE(IsTaken(0x31, data)) << data;
}

TEST(Parse, ReadsWhatATrackIsToHold) {
  const auto second = ValueOf<TrackPreset>(0x39, "A\x01~");
  EXPECT_EQ(second.track, 1U);
  EXPECT_EQ(second.contents, "A\x01~");
  const auto third = ValueOf<TrackPreset>(0x3D, "0123");
  EXPECT_EQ(third.track, 2U);
  EXPECT_EQ(third.contents, "0123");
}

TEST(Parse, TurnsTheReverseSetsRound) {
  EXPECT_EQ(ValueOf<TrackPreset>(0x35, "ABC").contents, "CBA");
  EXPECT_EQ(ValueOf<TrackPreset>(0x36, "ABC").track, 1U);
  EXPECT_EQ(ValueOf<TrackPreset>(0x37, "ABC").track, 2U);
}

TEST(Parse, TakesTheCharactersOfEachTrackUpToItsLength) {
  const auto text = [](std::size_t length) { return std::string(length, '0'); };
  struct Case {
    std::uint8_t code;
    std::size_t most;
    char first;
    char last;
  };
  for (const auto& [code, most, first, last] :
       {Case{0x35, 69, 0x01, 0x7E}, Case{0x3A, 69, 0x01, 0x7E}, Case{0x3B, 76, 0x20, 0x5E},
        Case{0x3C, 37, 0x30, 0x3E}, Case{0x3D, 104, 0x30, 0x3E}}) {
    EXPECT_TRUE(IsTaken(code, text(most))) << unsigned{code};
    EXPECT_FALSE(IsTaken(code, text(most + 1))) << unsigned{code};
    EXPECT_FALSE(IsTaken(code, "")) << unsigned{code};
    EXPECT_TRUE(IsTaken(code, std::string{first, last})) << unsigned{code};
    EXPECT_FALSE(IsTaken(code, std::string(1, static_cast<char>(first - 1)))) << unsigned{code};
    EXPECT_FALSE(IsTaken(code, std::string(1, static_cast<char>(last + 1)))) << unsigned{code};
    for (const char* byte : {"\x02", "\x03", "\x80", "\xFF"})
      EXPECT_FALSE(IsTaken(code, byte)) << unsigned{code};
  }
}

TEST(Parse, ReadsPrintData) {
  const auto data = ValueOf<PrintData>(0x41,
                                       "2,10,479,a,b\x1B"
                                       "E21");
  EXPECT_EQ(data.arrangement.direction, '2');
  EXPECT_EQ(data.arrangement.x, 10);
  EXPECT_EQ(data.arrangement.y, 479);
  EXPECT_EQ(data.items, (std::vector<TextItem>{{'\0', 0, "a,b"}, {'E', 21, ""}}));
  for (const char* refused : {"", "2,0,47", "4,0,0,A", "22,0,0,A", ",0,0,A", "2,,0,A", "2,0,x,A",
                              "2,320,0,A", "2,0,480,A", "1,480,0,A", "1,0,320,A", "2,0,0,\x07"})
    EXPECT_FALSE(IsTaken(0x41, refused)) << refused;
}

TEST(Parse, ReadsTheChoiceOfAnInternalImage) {
  const auto choice = ValueOf<ImageChoice>(0x42, "1,479,319,1999");
  EXPECT_EQ(choice.arrangement.x, 479);
  EXPECT_EQ(choice.number, 1999);
  for (const char* refused : {"1,0,0", "1,0,0,", "1,0,0,2000", "1,0,0,0,", "1,0,0,A"})
    EXPECT_FALSE(IsTaken(0x42, refused)) << refused;
}

TEST(Parse, ReadsTheChoiceOfARegisteredImage) {
  const auto choice = ValueOf<RegisteredImageChoice>(0x4A, "0,5,6,f,7,479");
  EXPECT_EQ(choice.arrangement.y, 6);
  EXPECT_EQ(choice.number, 15U);
  EXPECT_EQ(choice.first, 7);
  EXPECT_EQ(choice.last, 479);
  for (const char* refused : {"0,5,6,f,7", "0,5,6,g,7,8", "0,5,6,10,7,8", "0,5,6,,7,8",
                              "0,5,6,1,8,7", "0,5,6,1,7,480", "0,5,6,1,7,8,", "4,5,6,1,7,8"})
    EXPECT_FALSE(IsTaken(0x4A, refused)) << refused;
}

TEST(Parse, ReadsABarcode) {
  const auto code128 = ValueOf<Barcode>(0x4E, "5,47,1,B,2166");
  EXPECT_EQ(code128.type, Barcode::Type::kCode128);
  EXPECT_TRUE(code128.subscript);
  EXPECT_EQ(code128.start, 5);
  EXPECT_EQ(code128.end, 47);
  EXPECT_EQ(code128.code_set, 'B');
  EXPECT_EQ(code128.data, "\x21\x66");
  const auto codabar = ValueOf<Barcode>(0x4E, "0,319,6,AD,1-2");
  EXPECT_EQ(codabar.type, Barcode::Type::kCodabar);
  EXPECT_FALSE(codabar.subscript);
  EXPECT_EQ(codabar.data, "A1-2D");
}

TEST(Parse, TakesABarcodeUpToItsGreatestLength) {
  for (const char* data : {"0,0,0,A,000102030405060708090A", "319,319,2,01234567-.", "0,47,3, $/+%",
                           "0,47,4,01234567890123456789", "0,47,6,CD,0123-.:$/+456"})
    EXPECT_TRUE(IsTaken(0x4E, data)) << data;
  for (const char* data : {"0,0,0,A,000102030405060708090A0B", "0,319,2,01234567-.0",
                           "0,47,4,012345678901234567890", "0,47,6,CD,0123-.:$/+4567"})
    EXPECT_FALSE(IsTaken(0x4E, data)) << data;
}

TEST(Parse, ReadsWhereACardGoes) {
  for (const int code : {0x46, 0x47, 0x48, 0x50}) {
    const auto byte = static_cast<std::uint8_t>(code);
    EXPECT_EQ(ValueOf<Discharge>(byte, "0"), Discharge::kFront);
    EXPECT_EQ(ValueOf<Discharge>(byte, "1"), Discharge::kExit);
    EXPECT_EQ(ValueOf<Discharge>(byte, "2"), Discharge::kRear);
    for (const char* refused : {"", "3", "11"}) EXPECT_FALSE(IsTaken(byte, refused)) << code;
  }
}

TEST(Parse, ReadsIndicators) {
  const auto setting = ValueOf<IndicatorSetting>(0x5A, " 34");
  EXPECT_EQ(setting.buzzer, ' ');
  EXPECT_EQ(setting.led_colour, '3');
  EXPECT_EQ(setting.led_operation, '4');
  for (const char* refused : {"", "11", "1111", "511", "115", "101", "141", "1 1", "/11"})
    EXPECT_FALSE(IsTaken(0x5A, refused)) << refused;
}

TEST(Parse, ReadsSettings) {
  EXPECT_TRUE(ValueOf<CleaningButton>(0x5B, "1").enabled);
  EXPECT_FALSE(ValueOf<CleaningButton>(0x5B, "0").enabled);
  for (const char* refused : {"", "2", "00"}) EXPECT_FALSE(IsTaken(0x5B, refused)) << refused;
  EXPECT_EQ(ValueOf<VariousSetting>(0x91, "a\0\xFF"s).text, "a\0\xFF"s);
  EXPECT_FALSE(IsTaken(0x91, ""));
}

}  // namespace
}  // namespace vantrel::protocol
