// SPDX-License-Identifier: MIT

// Every parameter's both ends and what is beyond them.

#include "link/port.h"
#include "send/settings.h"
#include "tests/send/command_lines.h"

#include <gtest/gtest.h>

namespace vantrel::send {
namespace {

// Command lines that are taken, and those that are refused with a sentence.
void ExpectTaken(const std::vector<Words>& lines) {
  for (const Words& words : lines) EXPECT_EQ(Refusal(words), "");
}

void ExpectRefused(const std::vector<Words>& lines, const std::string& sentence) {
  for (const Words& words : lines) EXPECT_EQ(Refusal(words), sentence) << words.back();
}

TEST(Parameters, ChooseTracksFrom1To7) {
  ExpectTaken({{"31", "1"}, {"31", "7"}, {"32", "1"}, {"32", "7"}});
  ExpectRefused({{"31", "0"}, {"32", "0"}}, "TRACKS is a number from 1 to 7, not '0'.");
  ExpectRefused({{"31", "8"}, {"32", "8"}}, "TRACKS is a number from 1 to 7, not '8'.");
  ExpectRefused({{"31"}}, "The parameter TRACKS is missing.");
}

TEST(Parameters, HoldTrackDataWithinTheCommandsCharacters) {
  for (const char* code : {"35", "36", "37", "38", "39", "3A"}) {
    ExpectTaken({{code, "\x01\x04~ "}, {code, std::string(500, 'a')}});
    for (const char* bad : {"\x02", "\x03", "\x7F", "é"})
      EXPECT_EQ(Refusal({code, bad}),
                "TEXT has characters other than 01h - 7Eh without 02h and 03h.");
  }
  ExpectTaken({{"3B", " ^"}, {"3C", "0>"}, {"3D", "0>"}});
  ExpectRefused({{"3B", "\x1F"}, {"3B", "_"}, {"3B", "a"}},
                "TEXT has characters other than 20h - 5Eh.");
  ExpectRefused({{"3C", "/"}, {"3C", "?"}, {"3C", " "}, {"3D", "/"}, {"3D", "?"}},
                "TEXT has characters other than 30h - 3Eh.");
  ExpectRefused({{"35", ""}, {"3B", ""}, {"3D", ""}}, "TEXT is empty.");
}

TEST(Parameters, PlacePrintDataOnTheCard) {
  for (const Words& rest : {Words{"41", "T"}, Words{"42", "0"}, Words{"4A", "0", "0", "0"}}) {
    const auto refusal = [&](const Words& options) {
      Words words = rest;
      words.insert(words.end(), options.begin(), options.end());
      return Refusal(words);
    };
    for (const char* direction : {"0", "2"}) {
      EXPECT_EQ(refusal({"--direction", direction, "--x", "319", "--y", "479"}), "");
      EXPECT_EQ(refusal({"--direction", direction, "--x", "320"}),
                "X Coordinate should be within 0 - 319 if the printing direction is vertical.");
    }
    for (const char* direction : {"1", "3"}) {
      EXPECT_EQ(refusal({"--direction", direction, "--x", "479", "--y", "319"}), "");
      EXPECT_EQ(refusal({"--direction", direction, "--y", "320"}),
                "Y Coordinate should be within 0 - 319 if the printing direction is horizontal.");
    }
    EXPECT_EQ(refusal({"--x", "480"}), "--x is a number from 0 to 479, not '480'.");
    EXPECT_EQ(refusal({"--y", "480"}), "--y is a number from 0 to 479, not '480'.");
    EXPECT_EQ(refusal({"--direction", "4"}), "--direction is 0, 1, 2 or 3, not '4'.");
  }
}

TEST(Parameters, EscapeBytesOfPrintText) {
  ExpectTaken({{"41", "\\x00\\x01\\x04\\xfF"}});
  ExpectRefused({{"41", "a\\"}}, "TEXT ends inside an escape.");
  ExpectRefused({{"41", "\\x"}, {"41", "\\x1"}, {"41", "\\x1g"}},
                "In TEXT, \\x needs two hex digits after it.");
  ExpectRefused({{"41", "\\t"}}, "TEXT has no escape \\t; there are \\n, \\e, \\\\ and \\xHH.");
  ExpectRefused({{"41", "\\x02"}, {"41", "\\x03"}, {"41", "a\x02"}, {"91", "\x03"}},
                "TEXT cannot hold the bytes 02h and 03h.");
}

TEST(Parameters, ChooseImagesAndRegisters) {
  ExpectTaken({{"42", "0"}, {"42", "1999"}, {"4A", "0", "0", "0"}, {"4A", "f", "479", "479"}});
  ExpectRefused({{"42", "2000"}}, "IMAGE is a number from 0 to 1999, not '2000'.");
  ExpectRefused({{"4A", "G", "0", "0"}}, "REGISTER is a digit from 0 to F, not 'G'.");
  ExpectRefused({{"4A", "", "0", "0"}}, "REGISTER is a digit from 0 to F, not ''.");
  ExpectRefused({{"4A", "0", "0", "480"}}, "LAST is a number from 0 to 479, not '480'.");
  ExpectRefused({{"4A", "0", "6", "5"}}, "LAST is a number from FIRST to 479, not '5'.");
}

TEST(Parameters, KeepImagesInTheImageArea) {
  const std::string line(80, 'F');
  ExpectTaken({{"43", line}, {"43", "--x", "479", "--y", "39", "00"}});
  ExpectRefused({{"43", line + "00"}}, "HEX has 41 bytes; from byte 0 on, 40 fit.");
  ExpectRefused({{"43", "--y", "39", "0000"}}, "HEX has 2 bytes; from byte 39 on, 1 fit.");
  ExpectRefused({{"43", "--x", "480", "00"}}, "--x is a number from 0 to 479, not '480'.");
  ExpectRefused({{"4D", "--y", "40", "00"}}, "--y is a number from 0 to 39, not '40'.");
  for (const char* bad : {"", "0", "0g", "00 00"})
    EXPECT_EQ(Refusal({"43", bad}), "HEX is one or more pairs of hex digits.");

  ExpectTaken({{"4D", "--line-bytes", "40", std::string(38400, '0')},
               {"4D", "--x", "479", "--line-bytes", "1", "00"}});
  ExpectRefused({{"4D", "--line-bytes", "40", std::string(38480, '0')}},
                "HEX has 481 lines; from line 0 on, 480 fit.");
  ExpectRefused({{"4D", "--x", "479", "--line-bytes", "1", "0000"}},
                "HEX has 2 lines; from line 479 on, 1 fit.");
  ExpectRefused({{"4D", "00"}}, "HEX has 1 byte, which are no whole lines of 5.");
  ExpectRefused({{"4D", "--line-bytes", "0", "00"}},
                "--line-bytes is a number from 1 to 40, not '0'.");
  ExpectRefused({{"4D", "--line-bytes", "41", "00"}, {"4D", "00", "--line-bytes", "41"}},
                "--line-bytes is a number from 1 to 40, not '41'.");
  ExpectRefused({{"4D", "--y", "38", "--line-bytes", "3", "000000"}},
                "--line-bytes is a number from 1 to 2 here, not '3'.");
  ExpectRefused({{"43"}, {"4D"}}, "The parameter HEX or the option --picture is missing.");
}

TEST(Parameters, TakeCharactersOfExactlyTheirSize) {
  const auto hex = [](std::size_t bytes) { return std::string(2 * bytes, '0'); };
  ExpectTaken({{"44", "0", hex(72)},
               {"44", "F", "--size", "16", hex(32)},
               {"45", "0", hex(36)},
               {"45", "F", "--size", "16", hex(16)}});
  ExpectRefused({{"44", "0", hex(71)}}, "HEX has 71 bytes; the character has 72.");
  ExpectRefused({{"45", "0", "--size", "16", hex(17)}}, "HEX has 17 bytes; the character has 16.");
  ExpectRefused({{"44", "0", "--size", "12", hex(72)}}, "--size is 24 or 16, not '12'.");
  ExpectRefused({{"45", "10", hex(36)}}, "REGISTER is a digit from 0 to F, not '10'.");
}

TEST(Parameters, KeepBarcodesWithinTheConsolesLimits) {
  const auto code = [](const char* type, const std::string& data) {
    return Words{"4E", "--type", type, data};
  };
  ExpectTaken({code("code128", std::string(11, 'A')), code("code39", std::string(10, '0')),
               code("itf", std::string(20, '1')), code("codabar", std::string(13, ':'))});
  EXPECT_EQ(Refusal(code("code128", std::string(12, 'A'))),
            "DATA has 12 symbols, code changes included; at most 11 fit.");
  EXPECT_EQ(Refusal(code("code128", std::string(11, 'a'))),
            "DATA has 12 symbols, code changes included; at most 11 fit.");
  EXPECT_EQ(Refusal(code("code39", std::string(11, '0'))),
            "DATA has 11 characters; at most 10 fit.");
  EXPECT_EQ(Refusal(code("itf", std::string(21, '0'))), "DATA has 21 characters; at most 20 fit.");
  EXPECT_EQ(Refusal(code("codabar", std::string(14, '0'))),
            "DATA has 14 characters; at most 13 fit.");
  EXPECT_EQ(Refusal(code("code39", "A")),
            "DATA of this barcode has these characters alone: 0 1 2 3 4 5 6 7 8 9 - . blank $ / + "
            "%.");
  EXPECT_EQ(Refusal(code("itf", "1a")),
            "DATA of this barcode has these characters alone: 0 1 2 3 4 5 6 7 8 9.");
  EXPECT_EQ(Refusal(code("code128", "é")), "DATA of a Code 128 has characters 00h to 7Fh alone.");
  EXPECT_EQ(Refusal(code("itf", "")), "DATA is empty.");
  EXPECT_EQ(Refusal(code("ean", "1")), "--type is code128, code39, itf or codabar, not 'ean'.");

  ExpectTaken({{"4E", "--top", "319", "--bottom", "319", "A"}});
  ExpectRefused({{"4E", "--top", "320", "A"}}, "--top is a number from 0 to 319, not '320'.");
  ExpectRefused({{"4E", "--bottom", "320", "A"}}, "--bottom is a number from 0 to 319, not '320'.");
  ExpectRefused({{"4E", "--top", "48", "A"}}, "--bottom is a number from --top to 319, not '47'.");
  ExpectRefused({{"4E", "--set", "D", "A"}}, "--set is A, B or C, not 'D'.");
  ExpectRefused({{"4E", "--type", "itf", "--set", "A", "1"}}, "--set is for code128 alone.");
  ExpectRefused({{"4E", "--start", "A", "1"}}, "--start is for codabar alone.");
  ExpectRefused({{"4E", "--type", "codabar", "--stop", "E", "1"}},
                "--stop is A, B, C or D, not 'E'.");
}

TEST(Parameters, ChooseHowToDischarge) {
  ExpectTaken({{"46", "0"}, {"47", "2"}, {"48", "2"}, {"50", "0"}, {"50", "1"}});
  ExpectRefused({{"46", "3"}, {"47", "3"}, {"48", "3"}},
                "METHOD is a number from 0 to 2, not '3'.");
  ExpectRefused({{"50", "2"}, {"5B", "2"}}, "HOW is 0 or 1, not '2'.");
}

TEST(Parameters, AreNoneForMostCommands) {
  for (const char* code : {"21", "22", "23", "25", "26", "27", "29", "2A", "2B", "40", "49",
                           "51", "52", "53", "54", "55", "58", "59", "5F", "95", "96"})
    EXPECT_EQ(Refusal({code, "1"}), "Unexpected argument '1'.");
  ExpectRefused({{"5A", "1"}}, "Unexpected argument '1'.");
  ExpectRefused({{"5A", "--led", "buzzing"}},
                "--led is off, on, flashing, one-cycle, three-cycles or keep, not 'buzzing'.");
}

TEST(Parameters, CanAllBeReplacedByData) {
  EXPECT_EQ(Composed({"41", "--data", "0203"}).frames, Words{"024102030343"});
  ExpectRefused({{"41", "--data", "0"}, {"41", "--data", "0x"}},
                "--data is one or more pairs of hex digits.");
  ExpectRefused({{"41", "--data", "00", "--x", "1"}},
                "--data stands in place of options such as --x.");
  ExpectRefused({{"41", "T", "--data", "00"}}, "--data stands in place of parameters such as 'T'.");
}

TEST(Parameters, OfTheProgramHaveTheirRangesToo) {
  ExpectTaken({{"58", "--speed", "50"},
               {"58", "--speed", "4000000"},
               {"58", "--repeat", "1"},
               {"58", "--repeat", "1000000000"},
               {"58", "--time-limit", "1"},
               {"58", "--time-limit", "3600000"}});
  for (const char* good : {"1", "1000000000"})
    EXPECT_NO_THROW(commandline::Parse(SendTable(), Words{"-", "--from", good}));
  ExpectRefused({{"58", "--speed", "4000001"}},
                "--speed is a number from 50 to 4000000, not '4000001'.");
  ExpectRefused({{"58", "--repeat", "1000000001"}},
                "--repeat is a number from 1 to 1000000000, not '1000000001'.");
  ExpectRefused({{"-", "--from", "1000000001"}},
                "--from is a number from 1 to 1000000000, not '1000000001'.");
  for (const char* bad : {"+1", "-1", "0x10", "1e3", " 1", "1.0", ""})
    EXPECT_EQ(Refusal({"58", "--time-limit", bad}),
              std::string("--time-limit is a number from 1 to 3600000, not '") + bad + "'.");
}

TEST(Parameters, NameTheStatusesThatAreExpected) {
  const Job job = Composed({"58", "--expect", "22,4c"});
  EXPECT_TRUE(job.IsExpected(0x22));
  EXPECT_TRUE(job.IsExpected(0x4C));
  EXPECT_FALSE(job.IsExpected(0x20));
  EXPECT_TRUE(Composed({"58"}).IsExpected(0x20));
  EXPECT_FALSE(Composed({"58"}).IsExpected(0x22));
  for (const char* bad : {"", "2", "22,", ",22", "22 23", "222", "2g"})
    EXPECT_EQ(
        Refusal({"58", "--expect", bad}),
        std::string("--expect is statuses of two hex digits with commas between them, not '") +
            bad + "'.");
}

TEST(Parameters, NameTheConsolesFirstPortIfNoneIsTold) {
  const Settings settings = ReadSettings(commandline::Parse(SendTable(), Words{"58"}));
  EXPECT_EQ(settings.address, link::SystemDevice(1));
  EXPECT_EQ(settings.speed, 9600);
}

}  // namespace
}  // namespace vantrel::send
