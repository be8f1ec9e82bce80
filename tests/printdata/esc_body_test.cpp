// SPDX-License-Identifier: MIT

#include "link/common.h"
#include "printdata/esc_prompt.h"
#include "printdata/print_buffer.h"
#include "tests/printdata/esc_form_double.h"
#include "tests/support/scripted_dialogs.h"

#include <gtest/gtest.h>

namespace vantrel::printdata {
namespace {

// The data field of 41h after a press of the button, header included, with X "0" and Y "47".
std::string DataField(const std::string& button, const std::string& reply,
                      const std::string& print_text, bool vertical) {
  EscFormDouble form;
  form.print_text = print_text;
  form.vertical = vertical;
  support::ScriptedDialogs dialogs;
  const EscSequence& sequence = SequenceOf(button);
  if (sequence.notice != EscNotice::kNone) dialogs.Answers(dialogs::Answer::kYes);
  dialogs.Types(reply);
  std::string data_string = "left by another form";
  EXPECT_TRUE(RunEscSequence(sequence, form, dialogs, data_string));
  return ComposePrintHeader({vertical ? "2" : "3", "0", "47"}) + data_string;
}

struct BodyCase {
  const char* button;
  const char* reply;
  // What follows the header, written out by hand with the print text "Tt"; \x1B is split off so
  // that no following letter is taken for a hexadecimal digit.
  std::string body;
};

void PrintTo(const BodyCase& param, std::ostream* out) { *out << param.button; }

class EscBody : public testing::TestWithParam<BodyCase> {};

TEST_P(EscBody, ByteForByteInBothOrientations) {
  const BodyCase& param = GetParam();
  EXPECT_EQ(DataField(param.button, param.reply, "Tt", true), "2,0,47," + param.body);
  EXPECT_EQ(DataField(param.button, param.reply, "Tt", false), "3,0,47," + param.body);
}

std::string CaseName(const testing::TestParamInfo<BodyCase>& info) {
  return std::string(info.param.button) + "_" + info.param.reply;
}

const BodyCase kBodies[] = {
    {"Cmd_EscEe", "11",
     "Tt\r\n\r\n\r\n\r\n\x1B"
     "E11Tt"},
    {"Cmd_EscEe", "12",
     "Tt\r\n\r\n\r\n\r\n\x1B"
     "E12Tt"},
    {"Cmd_EscEe", "21",
     "Tt\r\n\r\n\r\n\r\n\x1B"
     "E21Tt"},
    {"Cmd_EscEe", "22",
     "Tt\r\n\r\n\r\n\r\n\x1B"
     "E22Tt"},
    {"Cmd_EscG", "0", "\x1BG0"},
    {"Cmd_EscG", "9", "\x1BG9"},
    {"Cmd_EscG", "10", "\x1BGA"},
    {"Cmd_EscG", "15", "\x1BGF"},
    {"CmdEsc_d", "0",
     "Tt\r\n\x1B"
     "d0Tt"},
    {"CmdEsc_d", "15",
     "Tt\r\n\x1B"
     "dFTt"},
    {"CmdEsc_i", "0", "\x1Bi0"},
    {"CmdEsc_i", "11", "\x1BiB"},
    {"CmdEsc_s", "0", "Tt\x1Bs00Tt"},
    {"CmdEsc_s", "7", "Tt\x1Bs07Tt"},
    {"CmdEsc_s", "59", "Tt\x1Bs59Tt"},
    {"CmdESCBb", "0",
     "Tt\r\n\r\n\x1B"
     "B0Tt"},
    {"CmdESCBb", "2",
     "Tt\r\n\r\n\x1B"
     "B2Tt"},
    {"CmdEscD", "0",
     "Tt     0\r\n\x1B"
     "D0TtTt"},
    {"CmdEscD", "15",
     "Tt     15\r\n\x1B"
     "DFTtTt"},
    {"CmdEscFf", "0",
     "Tt\x1B"
     "F0Tt"},
    {"CmdEscFf", "1",
     "Tt\x1B"
     "F1Tt"},
    {"CmdEscg", "0", "\x1Bg0"},
    {"CmdEscg", "14", "\x1BgE"},
    {"CmdEscI", "0", "\x1BI0"},
    {"CmdEscI", "13", "\x1BID"},
    {"CmdESCJj", "0", "Tt\x1BJ0Tt"},
    {"CmdESCJj", "1", "Tt\x1BJ1Tt"},
    {"CmdEscLI", "0", "Tt\x1BL00Tt"},
    {"CmdEscLI", "19", "Tt\x1BL19Tt"},
    {"CmdEscMm", "0", "\x1BM00\r\nTt\r\nTt\r\nTt\r\nTt"},
    {"CmdEscMm", "9", "\x1BM99\r\nTt\r\nTt\r\nTt\r\nTt"},
    {"CmdEscMm", "12", "\x1BMC12\r\nTt\r\nTt\r\nTt\r\nTt"},
    {"CmdEscS", "0", "Tt\x1BS00Tt"},
    {"CmdEscS", "29", "Tt\x1BS29Tt"},
    {"CmdEscVv", "1", "Tt\r\n\r\n\x1BV1Tt"},
    {"CmdEscVv", "2", "Tt\r\n\r\n\x1BV2Tt"},
    {"CmdESCWw", "1", "Tt\r\n\r\n\x1BW1Tt"},
    {"CmdESCWw", "2", "Tt\r\n\r\n\x1BW2Tt"},
    {"CmdEscXx", "0", "\x1BX0000"},
    {"CmdEscXx", "5", "\x1BX0055"},
    {"CmdEscXx", "47", "\x1BX04747"},
    {"CmdEscXx", "319", "\x1BX319319"},
    {"CmdEscYy", "0", "\x1BY0000"},
    {"CmdEscYy", "99", "\x1BY09999"},
    {"CmdEscYy", "319", "\x1BY319319"},
};

INSTANTIATE_TEST_SUITE_P(Buttons, EscBody, testing::ValuesIn(kBodies), CaseName);

TEST(EscXAndY, TheLongSideOfTheCardIsReachedInOneOrientationEach) {
  EXPECT_EQ(DataField("CmdEscXx", "479", "Tt", false), "3,0,47,\x1BX479479");
  EXPECT_EQ(DataField("CmdEscYy", "479", "Tt", true), "2,0,47,\x1BY479479");
}

TEST(EscDataField, WorkedExamples) {
  EXPECT_EQ(DataField("Cmd_EscEe", "22", "Test Print", true),
            "2,0,47,Test Print\r\n\r\n\r\n\r\n\x1B"
            "E22Test Print");
  const std::string x = DataField("CmdEscXx", "5", "Test Print", true);
  EXPECT_EQ(x, "2,0,47,\x1BX0055");
  EXPECT_EQ(link::StrToHex(x, link::CodePage::kWestern), "322C302C34372C1B5830303535");
  EXPECT_EQ(DataField("Cmd_EscG", "12", "Test Print", true), "2,0,47,\x1BGC");
}

TEST(EscDataField, AnEmptyPrintTextLeavesTheSequenceAlone) {
  EXPECT_EQ(DataField("CmdEscFf", "1", "", true),
            "2,0,47,\x1B"
            "F1");
  EXPECT_EQ(DataField("CmdEscMm", "3", "", true), "2,0,47,\x1BM33\r\n\r\n\r\n\r\n");
}

TEST(EscDataField, TextWithSignsOfMarkupAndFiveHundredCharactersGoesOutAsItIs) {
  EXPECT_EQ(DataField("CmdEscS", "1", "a&b <b>\"q\" 'q', ", true),
            "2,0,47,a&b <b>\"q\" 'q', \x1BS01a&b <b>\"q\" 'q', ");
  const std::string long_text(500, 'x');
  EXPECT_EQ(DataField("CmdEscS", "1", long_text, true),
            "2,0,47," + long_text + "\x1BS01" + long_text);
}

TEST(EscDataField, TextAbove7FhAndTwoByteCharactersGoOutAsTheCodePageGivesThem) {
  // e with acute accent: E9h in code page 1252.
  EXPECT_EQ(link::StrToHex(DataField("CmdEscS", "1", "\u00E9", true), link::CodePage::kWestern),
            "322C302C34372CE91B533031E9");
  // U+65E5: 93h FAh in code page 932.
  EXPECT_EQ(link::StrToHex(DataField("CmdEscS", "1", "\u65E5", true), link::CodePage::kJapanese),
            "322C302C34372C93FA1B53303193FA");
}

TEST(EscDataField, ThePrintTextIsReadAfterThePrompt) {
  EscFormDouble form;
  support::ScriptedDialogs dialogs;
  dialogs.Types("1", [&form] { form.print_text = "New"; });
  std::string data_string;
  EXPECT_TRUE(RunEscSequence(SequenceOf("CmdEscFf"), form, dialogs, data_string));
  EXPECT_EQ(data_string,
            "New\x1B"
            "F1New");
}

}  // namespace
}  // namespace vantrel::printdata
