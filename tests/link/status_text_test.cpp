// SPDX-License-Identifier: MIT

#include "link/status_text.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace vantrel::link {
namespace {

constexpr CodePage kWestern = CodePage::kWestern;

TEST(StatusText, HasTheWordsOfEachCodeAndUnknownResponseForTheRest) {
  const std::map<unsigned, std::string> table = {
      {0x20, "20h: Normal Status"},
      {0x22, "22h: No targeted Card"},
      {0x23, "23h: No magnetic stripe or other error"},
      {0x31, "31h: Parity Error"},
      {0x32, "32h: No Start code or End code"},
      {0x33, "33h: LRC Error"},
      {0x34, "34h: Erroneous character"},
      {0x37, "37h: Magnetic Stripe writing error"},
      {0x38, "38h: Card jam"},
      {0x40, "40h: Cover open"},
      {0x41, "41h: Invalid command"},
      {0x42, "42h: CAM motor error"},
      {0x43, "43h: Erase head temperature error"},
      {0x45, "45h: EEPROM error"},
      {0x4C, "4Ch: Non-Compatible BMP file data"},
      {0x51, "51h: Expansion buffer overflow error"},
  };
  for (unsigned code = 0; code <= 0xFF; ++code) {
    const auto row = table.find(code);
    EXPECT_EQ(StatusText(code), row == table.end() ? "Unknown response" : row->second) << code;
  }
}

TEST(ReplyMeaning, OfARomVersionIsTheLabelAndTheVersionText) {
  // "V1.01"; 58h ^ 20h ^ 56h ^ 31h ^ 2Eh ^ 30h ^ 31h ^ 03h = 33h.
  EXPECT_EQ(ReplyMeaning("ROM Version: ", "0602582056312E30310333", kWestern),
            "ROM Version: V1.01");
}

TEST(ReplyMeaning, OfATrackReadWithoutACardIsTheLabelAndTheStatus) {
  EXPECT_EQ(ReplyMeaning("First Track: ", "060221220300", kWestern),
            "First Track: 22h: No targeted Card");
}

TEST(ReplyMeaning, WithoutALabelNamesTheNormalStatus) {
  // 40h ^ 20h ^ 03h = 63h.
  EXPECT_EQ(ReplyMeaning("", "060240200363", kWestern), "20h: Normal Status");
}

TEST(ReplyMeaning, WithALabelLeavesTheNormalStatusOut) {
  EXPECT_EQ(ReplyMeaning("First Track: ", "060221200302", kWestern), "First Track: ");
}

TEST(ReplyMeaning, OfStatus21hIsUnknownResponse) {
  EXPECT_EQ(ReplyMeaning("", "060240210362", kWestern), "Unknown response");
  EXPECT_EQ(ReplyMeaning("First Track: ", "060221210303", kWestern),
            "First Track: Unknown response");
}

TEST(ReplyMeaning, ShowsCountBytesAsCharacters) {
  // "00012345"; 96h ^ 20h ^ (30h, 30h, 30h, 31h to 35h) ^ 03h = 84h.
  EXPECT_EQ(ReplyMeaning("Print Count: ", "06029620303030313233343503B4", kWestern),
            "Print Count: 00012345");
}

TEST(ReplyMeaning, PutsDataBehindTheWordsOfAnErrorToo) {
  EXPECT_EQ(ReplyMeaning("First Track: ", "06022131414203FF", kWestern),
            "First Track: 31h: Parity ErrorAB");
}

TEST(ReplyMeaning, AppendsUnprintableBytesAllTheSame) {
  EXPECT_EQ(ReplyMeaning("L: ", "06022120010A0D1B7F03FF", kWestern), "L: \x01\n\r\x1B\x7F");
}

TEST(ReplyMeaning, AppendsByte00hToo) {
  using namespace std::string_literals;
  EXPECT_EQ(ReplyMeaning("L: ", "0602212041004203FF", kWestern), "L: A\0B"s);
}

TEST(ReplyMeaning, ShowsBytesAbove7FhAsTheWesternPagesCharacters) {
  // 80h is the euro sign there, E9h is e with acute; 81h has no character and shows as U+0081.
  EXPECT_EQ(ReplyMeaning("L: ", "0602212080E9FF8103FF", kWestern), "L: \u20AC\u00E9\u00FF\u0081");
}

TEST(ReplyMeaning, ShowsBytesAbove7FhOneByOneInTheJapanesePage) {
  // B1h is half-width U+FF71. 93h and FAh are one character together, but each byte counts alone.
  EXPECT_EQ(ReplyMeaning("L: ", "06022120B193FA03FF", CodePage::kJapanese),
            "L: \uFF71\u0093\u00FA");
}

TEST(ReplyMeaning, OfAReplyCutShortHasNoData) {
  EXPECT_EQ(ReplyMeaning("", "0602212003", kWestern), "20h: Normal Status");
  EXPECT_EQ(ReplyMeaning("", "060221", kWestern), "Unknown response");
  EXPECT_EQ(ReplyMeaning("", "", kWestern), "Unknown response");
}

}  // namespace
}  // namespace vantrel::link
