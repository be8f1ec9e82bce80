// SPDX-License-Identifier: MIT

#include "protocol/command_table.h"

#include "link/frame.h"
#include "protocol/frame_words.h"
#include "protocol/status.h"

#include <gtest/gtest.h>

#include <string>

namespace vantrel::protocol {
namespace {

TEST(AllCommands, StandByRisingCode) {
  int before = -1;
  for (const CommandEntry& entry : AllCommands()) {
    EXPECT_GT(entry.code, before);
    before = entry.code;
    EXPECT_EQ(FindEntry(entry.code), &entry);
  }
  EXPECT_NE(before, -1);
}

TEST(AllCommands, HaveANameAndBothReaders) {
  for (const CommandEntry& entry : AllCommands()) {
    EXPECT_FALSE(entry.name.empty()) << unsigned{entry.code};
    EXPECT_NE(entry.parse, nullptr) << entry.name;
    EXPECT_NE(entry.words, nullptr) << entry.name;
  }
}

TEST(FindEntry, FindsACodeAndNoOther) {
  ASSERT_NE(FindEntry(0x4E), nullptr);
  EXPECT_EQ(FindEntry(0x4E)->name, "barcode");
  EXPECT_EQ(FindEntry(0x20), nullptr);
  EXPECT_EQ(FindEntry(0xFF), nullptr);
}

// What a printer takes can always be told in words.
TEST(AllCommands, TellOfEverythingThatTheyParse) {
  const std::string samples[] = {"",
                                 "0",
                                 "2",
                                 "7",
                                 "111",
                                 " 2 ",
                                 "AB",
                                 "12",
                                 "2,0,47,Test\033E22",
                                 "1,479,319,5",
                                 "0,319,479,1999",
                                 "100,0,0100000080",
                                 "0,36,4,00FF00FF",
                                 "1,10,20,A,0,39",
                                 "+,FFFC",
                                 "f,00",
                                 "0,47,1,A,0066",
                                 "0,47,07,AB,1",
                                 "0,47,2,1",
                                 "0,47,5,1234"};
  int parsed = 0;
  for (const CommandEntry& entry : AllCommands()) {
    for (const std::string& data : samples) {
      if (!Parse(entry.code, data)) continue;
      ++parsed;
      // The one exception: a type of two digits, which no console sends.
      if (data == "0,47,07,AB,1" && entry.code == 0x4E) continue;
      EXPECT_TRUE(entry.words(data)) << unsigned{entry.code} << " " << data;
    }
  }
  EXPECT_GT(parsed, 100);
}

TEST(Statuses, HaveTheirMeanings) {
  EXPECT_EQ(StatusMeaning(0x20), "normal status");
  EXPECT_EQ(StatusMeaning(0x22), "no targeted Card");
  EXPECT_EQ(StatusMeaning(0x23), "no magnetic stripe or other error");
  EXPECT_EQ(StatusMeaning(0x31), "parity Error");
  EXPECT_EQ(StatusMeaning(0x32), "no Start code or End code");
  EXPECT_EQ(StatusMeaning(0x33), "LRC Error");
  EXPECT_EQ(StatusMeaning(0x34), "erroneous character");
  EXPECT_EQ(StatusMeaning(0x37), "magnetic Stripe writing error");
  EXPECT_EQ(StatusMeaning(0x38), "card jam");
  EXPECT_EQ(StatusMeaning(0x40), "cover open");
  EXPECT_EQ(StatusMeaning(0x41), "invalid command");
  EXPECT_EQ(StatusMeaning(0x42), "CAM motor error");
  EXPECT_EQ(StatusMeaning(0x43), "erase head temperature error");
  EXPECT_EQ(StatusMeaning(0x45), "EEPROM error");
  EXPECT_EQ(StatusMeaning(0x4C), "non-Compatible BMP file data");
  EXPECT_EQ(StatusMeaning(0x51), "expansion buffer overflow error");
  EXPECT_EQ(StatusMeaning(0x21), "unknown response");
}

TEST(Statuses, AreThereByRisingCode) {
  std::string codes;
  for (const StatusEntry& entry : AllStatuses()) codes += link::HexOf(entry.status) + " ";
  EXPECT_EQ(codes, "20 22 23 31 32 33 34 37 38 40 41 42 43 45 4C 51 ");
}

}  // namespace
}  // namespace vantrel::protocol
