// SPDX-License-Identifier: MIT

#include "protocol/frame_words.h"

#include "link/frame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace vantrel::protocol {
namespace {

// Words of bytes given as hex with blanks.
std::string Words(Direction direction, std::string hex) {
  std::erase(hex, ' ');
  return MeaningInWords(direction, link::BytesOf(hex));
}

std::string FromConsole(const std::string& hex) { return Words(Direction::kFromConsole, hex); }

std::string FromPrinter(const std::string& hex) { return Words(Direction::kFromPrinter, hex); }

TEST(FrameWords, TellsACommand) {
  EXPECT_EQ(FromConsole("02 21 03 22"), "21h first track read");
  // "2,0,47,A", and the exclusive-or of all after STX.
  EXPECT_EQ(FromConsole("02 41 32 2C 30 2C 34 37 2C 41 03 2E"),
            "41h print data: direction 2, X 0, Y 47, \"A\"");
}

TEST(FrameWords, TellsAReply) {
  EXPECT_EQ(FromPrinter("02 21 20 41 42 43 03 42"), "reply 21h: 20h normal status, \"ABC\"");
  EXPECT_EQ(FromPrinter("02 51 20 03 72"), "reply 51h: 20h normal status");
  EXPECT_EQ(FromPrinter("02 25 22 03 04"), "reply 25h: 22h no targeted Card");
  EXPECT_EQ(FromPrinter("02 31 33 03 01"), "reply 31h: 33h LRC Error");
  EXPECT_EQ(FromPrinter("02 31 42 03 70"), "reply 31h: 42h CAM motor error");
  EXPECT_EQ(FromPrinter("02 31 21 03 13"), "reply 31h: 21h unknown response");
  EXPECT_EQ(FromPrinter("02 21 03 22"), "reply 21h: no status");
}

TEST(FrameWords, TellsThePrintersControlCharacters) {
  EXPECT_EQ(FromPrinter("06"), "06h acknowledge");
  EXPECT_EQ(FromPrinter("15"), "15h resend");
  EXPECT_EQ(FromPrinter("10"), "10h reject");
}

TEST(FrameWords, TellsABadBlockCheck) {
  EXPECT_EQ(FromConsole("02 21 03 23"), "bad block check 23h instead of 22h: 21h first track read");
  EXPECT_EQ(FromPrinter("02 51 20 03 00"),
            "bad block check 00h instead of 72h: reply 51h: 20h normal status");
}

TEST(FrameWords, TellsWhatIsNotWhole) {
  EXPECT_EQ(FromConsole("02"), "cut short after 1 byte");
  EXPECT_EQ(FromConsole("02 21"), "cut short after 2 bytes: 21h first track read");
  EXPECT_EQ(FromConsole("02 21 03"), "cut short after 3 bytes: 21h first track read");
  EXPECT_EQ(FromConsole("02 03 03"), "empty frame");
}

TEST(FrameWords, TellsNoise) {
  EXPECT_EQ(FromConsole("06"), "noise, 1 byte");
  EXPECT_EQ(FromPrinter("55"), "noise, 1 byte");
  EXPECT_EQ(FromPrinter("FF 00"), "noise, 2 bytes");
  EXPECT_EQ(FromPrinter(""), "");
}

// A block check may be any byte, also ETX itself.
TEST(FrameWords, TakesAnEtxAsBlockCheck) {
  // 21h, 21h and ETX give 03h.
  EXPECT_EQ(FromConsole("02 21 21 03 03"), "21h first track read: cannot be read: \"!\"");
}

TEST(PrintTextInWords, TellsEverySequence) {
  EXPECT_EQ(PrintTextInWords("\x1B"
                             "E22\x1B"
                             "Gf\x1B"
                             "d0\x1B"
                             "i1\x1B"
                             "s05\x1B"
                             "B2"),
            "ESC E 22, ESC G f, ESC d 0, ESC i 1, ESC s 05, ESC B 2");
  EXPECT_EQ(PrintTextInWords("\x1B"
                             "D9\x1B"
                             "F1\x1B"
                             "g0\x1B"
                             "I1\x1B"
                             "J0\x1B"
                             "L19"),
            "ESC D 9, ESC F 1, ESC g 0, ESC I 1, ESC J 0, ESC L 19");
  EXPECT_EQ(PrintTextInWords("\x1B"
                             "MF\x1B"
                             "S29\x1B"
                             "V2\x1B"
                             "W1\x1B"
                             "X319\x1B"
                             "Y0011"),
            "ESC M F, ESC S 29, ESC V 2, ESC W 1, ESC X 319, ESC Y 001, \"1\"");
  EXPECT_EQ(PrintTextInWords("\x1B"
                             "e11\x1B"
                             "b0\x1B"
                             "f0\x1B"
                             "j1\x1B"
                             "l01\x1B"
                             "m1"),
            "ESC e 11, ESC b 0, ESC f 0, ESC j 1, ESC l 01, ESC m 1");
  EXPECT_EQ(PrintTextInWords("\x1B"
                             "v1\x1B"
                             "w2\x1B"
                             "x000\x1B"
                             "y001"),
            "ESC v 1, ESC w 2, ESC x 000, ESC y 001");
}

TEST(PrintTextInWords, TellsWhatIsNoSequence) {
  EXPECT_EQ(PrintTextInWords("\x1BQ1"), "ESC, \"Q1\"");
  EXPECT_EQ(PrintTextInWords("A\x1B"), "\"A\", ESC");
  EXPECT_EQ(PrintTextInWords("\x1B"
                             "E2"),
            "ESC E 2");
  EXPECT_EQ(PrintTextInWords("\x1B"
                             "E\r\nA"),
            "ESC E, CR LF, \"A\"");
}

TEST(DataInWords, NamesWhatCannotBePrinted) {
  EXPECT_EQ(DataInWords("A\r\nB\rC\nD"), "\"A\", CR LF, \"B\", CR, \"C\", LF, \"D\"");
  EXPECT_EQ(DataInWords("\x93\xFA"
                        "A"),
            "bytes 93 FA, \"A\"");
  EXPECT_EQ(DataInWords(std::string(1, '\0')), "00h");
  EXPECT_EQ(DataInWords(""), "");
}

TEST(DataInWords, CutsWhatIsVeryLong) {
  EXPECT_EQ(DataInWords(std::string(5000, 'A')),
            '"' + std::string(400, 'A') + "\" ... (5000 bytes)");
  EXPECT_EQ(DataInWords(std::string(401, 'A')), '"' + std::string(400, 'A') + "\" ... (401 bytes)");
  EXPECT_EQ(DataInWords(std::string(400, 'A')), '"' + std::string(400, 'A') + '"');
}

TEST(FrameWords, TakesAnyBytes) {
  // Every code with a byte of each kind, whole and not: no crash, and always something to read.
  for (unsigned code = 0; code < 256; ++code) {
    for (const unsigned byte :
         {0x00U, 0x02U, 0x03U, 0x06U, 0x1BU, 0x20U, 0x30U, 0x39U, 0x41U, 0x7FU, 0x80U, 0xFFU}) {
      const link::Bytes frame{0x02, static_cast<std::uint8_t>(code),
                              static_cast<std::uint8_t>(byte), 0x03, 0x00};
      for (std::size_t size = 1; size <= frame.size(); ++size) {
        const std::span part = std::span(frame).first(size);
        ASSERT_NE(MeaningInWords(Direction::kFromConsole, part), "");
        ASSERT_NE(MeaningInWords(Direction::kFromPrinter, part), "");
      }
    }
  }
}

}  // namespace
}  // namespace vantrel::protocol
