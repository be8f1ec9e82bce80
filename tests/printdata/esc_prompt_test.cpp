// SPDX-License-Identifier: MIT

#include "tests/printdata/esc_form_double.h"
#include "tests/support/scripted_dialogs.h"

#include <gtest/gtest.h>

namespace vantrel::printdata {
namespace {

// One row a button and orientation, written out by hand.
struct PromptCase {
  const char* button;
  const char* caption;
  bool vertical;
  const char* title;
  const char* prompt;
  const char* panel1;
  const char* panel2;  // "kept": the button leaves panel 2 as it was
  std::vector<std::string> accepted;
  std::vector<std::string> refused;
};

void PrintTo(const PromptCase& param, std::ostream* out) { *out << param.button; }

class EscPromptTable : public testing::TestWithParam<PromptCase> {};

TEST_P(EscPromptTable, TitleTextHintsAndAcceptedNumbers) {
  const PromptCase& param = GetParam();
  const EscSequence& sequence = SequenceOf(param.button);
  EXPECT_EQ(sequence.caption, param.caption);
  for (const std::string& accepted : param.accepted) {
    EscFormDouble form;
    form.vertical = param.vertical;
    form.panels = {"before", "kept"};
    support::ScriptedDialogs dialogs;
    const bool notice = sequence.notice != EscNotice::kNone;
    if (notice) dialogs.Answers(dialogs::Answer::kYes);
    for (const std::string& refused : param.refused) dialogs.Types(refused);
    dialogs.Types(accepted);
    std::string data_string;
    EXPECT_TRUE(RunEscSequence(sequence, form, dialogs, data_string)) << accepted;

    EXPECT_EQ(form.panels[0], param.panel1);
    EXPECT_EQ(form.panels[1], param.panel2);
    EXPECT_EQ(dialogs.All().size(), param.refused.size() + 1 + (notice ? 1 : 0));
    for (std::size_t i = notice ? 1 : 0; i < dialogs.All().size(); ++i) {
      EXPECT_EQ(dialogs.All()[i].title, param.title);
      EXPECT_EQ(dialogs.All()[i].prompt, param.prompt);
      EXPECT_EQ(dialogs.All()[i].default_text, "");
    }
  }
}

const std::vector<std::string> kFifteen = {"0", "15", "", "7"};
const std::vector<std::string> kBeyondFifteen = {"-1", "16", "99999", "-99999", "1e300"};

const PromptCase kPrompts[] = {
    {"Cmd_EscEe",
     "ESC E/e",
     true,
     "ESC E/e : Specifies font size",
     "Normal Size: Input '11'\r\nHorizontal double size: Input '12'\r\nVertical double size: Input "
     "'21'\r\nVertical/Horizontal double Size: Input '22'",
     "Specifies font size",
     "kept",
     {"11", "12", "21", "22"},
     {"", "0", "10", "13", "20", "23", "1", "2", "-11", "99999"}},
    {"Cmd_EscG", "ESC G", true,
     "ESC G : Expands a specified 24 dot 2-byte external character font in print buffer",
     "Input '0 - 15' for specifying 24 dot 2-byte external character",
     "Expands a specified 24 dot 2-byte external character font in print buffer", "kept", kFifteen,
     kBeyondFifteen},
    {"CmdEsc_d", "ESC d", true, "ESC d : Sets the dot space for gaps in one-byte character",
     "Input '0 - 15' for specifying the dots space",
     "Sets the dot space for gaps in one-byte character",
     "Dots spaces are applied to the right side of character", kFifteen, kBeyondFifteen},
    {"CmdEsc_i", "ESC i", true,
     "ESC i : Expands a specified 16 dot 1-byte external character font in print buffer",
     "Input '0 - 15' for specifying 16 dot 1-byte external character",
     "Expands a specified 16 dot 1-byte external character font in print buffer", "kept", kFifteen,
     kBeyondFifteen},
    {"CmdEsc_s",
     "ESC s",
     true,
     "ESC s : Moves the next print character to the right an N character amount ",
     "Input '0 - 59' for specifying the dots space",
     "Moves the next print character to the right an N character amount ",
     "by calculating the position to expand the expansion buffer memory in one byte",
     {"0", "59", ""},
     {"-1", "60", "99999"}},
    {"CmdESCBb",
     "ESC B/b",
     true,
     "ESC B/b : Specifies the line width of ANK characters",
     "Input '0' for specifying normal narrow gothic fonts or '1' for enhanced gothic fonts or '2' "
     "for double-enhanced gothic fonts",
     "Specifies the line width of ANK characters",
     "kept",
     {"0", "1", "2", ""},
     {"-1", "3", "99999"}},
    {"CmdEscD", "ESC D", true, "ESC D : Sets the dot space for gaps in two-byte character",
     "Input '0 - 15' for setting the dot spaces for gaps in two-byte character",
     "Sets the dot space for gaps in two-byte character",
     "Dots spaces are applied to the right side of character", kFifteen, kBeyondFifteen},
    {"CmdEscFf",
     "ESC F/f",
     true,
     "ESC F/f : Sets 24/16 dot fonts for ANK character",
     "Input '1' for specifying 24 dots fonts or '0' for 16 dots fonts",
     "Sets 24/16 dot fonts for ANK character",
     "Invalid command for DBSC",
     {"0", "1", ""},
     {"-1", "2", "99999"}},
    {"CmdEscg", "ESC g", true,
     "ESC g : Expands a specified 24 dot 1-byte external character font in print buffer",
     "Input '0 - 15' for specifying 24 dot 1-byte external character",
     "Expands a specified 24 dot 1-byte external character font in print buffer", "kept", kFifteen,
     kBeyondFifteen},
    {"CmdEscI", "ESC I", true,
     "ESC I : Expands a specified 16 dot 2-byte external character font in print buffer",
     "Input '0 - 15' for specifying 16 dot 2-byte external character",
     "Expands a specified 16 dot 2-byte external character font in print buffer", "kept", kFifteen,
     kBeyondFifteen},
    {"CmdESCJj",
     "ESC J/j",
     true,
     "ESC J/j : Sets double/single byte fonts as ANK character",
     "Input '1' for specifying single-byte gothic fonts or '0' for two-byte gothic fonts",
     "Sets double/single byte fonts as ANK character",
     "Valid only in Japanese model",
     {"0", "1", ""},
     {"-1", "2", "99999"}},
    {"CmdEscLI",
     "ESC L/I",
     true,
     "ESC L/l : Moves the next print character to below the N line (including line space)",
     "Input '0 - 19' for specifying the dots space",
     "Moves the next print character to below the N line (including line space)",
     "by calculating the position to expand the expansion buffer memory",
     {"0", "19", ""},
     {"-1", "20", "99999"}},
    {"CmdEscMm", "ESC M/m", true, "ESC M/m : Sets the dot space between lines",
     "Input '0 - 15' for specifying the dots space between lines",
     "Sets the dot space between lines", "kept", kFifteen, kBeyondFifteen},
    {"CmdEscS",
     "ESC S",
     true,
     "ESC S : Moves the next print character to the right an N character amount ",
     "Input '0 - 29' for specifying the dots space",
     "Moves the next print character to the right an N character amount ",
     "by calculating the position to expand the expansion buffer memory in one byte",
     {"0", "29", ""},
     {"-1", "30", "99999"}},
    {"CmdEscVv",
     "ESC V/v",
     true,
     "ESC V/v : Sets the vertical size of characters to expand",
     "Input '1' for specifying normal height fonts or '2' for double height fonts",
     "Sets the vertical size of characters to expand",
     "kept",
     {"1", "2"},
     {"", "0", "3", "-1", "99999"}},
    {"CmdESCWw",
     "ESC W/w",
     true,
     "ESC W/w : Sets the width size of characters to expand",
     "Input '1' for specifying normal width fonts or '2' for double width fonts",
     "Sets the width size of characters to expand",
     "kept",
     {"1", "2"},
     {"", "0", "3", "-1", "99999"}},
    {"CmdEscXx",
     "ESC X/x",
     true,
     "ESC X/x : Sets the Y coordinate to expand character",
     "Input '000 - 319' for setting the Y coordinate",
     "Sets the Y coordinate to expand character",
     "kept",
     {"0", "319", ""},
     {"-1", "320", "479", "99999"}},
    {"CmdEscXx",
     "ESC X/x",
     false,
     "ESC X/x : Sets the Y coordinate to expand character",
     "Input '000 - 479' for setting the Y coordinate",
     "Sets the Y coordinate to expand character",
     "kept",
     {"0", "320", "479", ""},
     {"-1", "480", "99999"}},
    {"CmdEscYy",
     "ESC Y/y",
     true,
     "ESC Y/y : Sets the Y coordinate to expand character",
     "Input '000 - 479' for setting the Y coordinate",
     "Sets the Y coordinate to expand character",
     "kept",
     {"0", "320", "479", ""},
     {"-1", "480", "99999"}},
    {"CmdEscYy",
     "ESC Y/y",
     false,
     "ESC Y/y : Sets the Y coordinate to expand character",
     "Input '000 - 319' for setting the Y coordinate",
     "Sets the Y coordinate to expand character",
     "kept",
     {"0", "319", ""},
     {"-1", "320", "479", "99999"}},
};

INSTANTIATE_TEST_SUITE_P(Buttons, EscPromptTable, testing::ValuesIn(kPrompts),
                         [](const auto& param_info) {
                           return std::string(param_info.param.button) +
                                  (param_info.param.vertical ? "_Vertical" : "_Horizontal");
                         });

std::string BodyFor(const std::string& button, const std::string& reply) {
  EscFormDouble form;
  support::ScriptedDialogs dialogs;
  dialogs.Types(reply);
  std::string data_string;
  EXPECT_TRUE(RunEscSequence(SequenceOf(button), form, dialogs, data_string));
  return data_string;
}

TEST(EscPromptReply, ThereAreEighteenButtons) { EXPECT_EQ(EscSequences().size(), 18U); }

TEST(EscPromptReply, CancelReturnsThePromptOfEscEeVvAndWw) {
  for (const char* button : {"Cmd_EscEe", "CmdEscVv", "CmdESCWw"}) {
    EscFormDouble form;
    support::ScriptedDialogs dialogs;
    dialogs.CancelsInput();
    dialogs.CancelsInput();
    dialogs.Types(std::string(button) == "Cmd_EscEe" ? "11" : "1");
    std::string data_string;
    EXPECT_TRUE(RunEscSequence(SequenceOf(button), form, dialogs, data_string));
    EXPECT_EQ(dialogs.All().size(), 3U);
  }
}

TEST(EscPromptReply, CancelIsZeroInAllOthers) {
  EXPECT_EQ(BodyFor("Cmd_EscG", ""), "\x1BG0");
  EXPECT_EQ(BodyFor("CmdEscYy", ""), "\x1BY0000");
}

TEST(EscPromptReply, OfTwelveAndAHalfBecomesTwelveAndOfThirteenAndAHalfFourteen) {
  EXPECT_EQ(BodyFor("Cmd_EscG", "12.5"), "\x1BGC");
  EXPECT_EQ(BodyFor("Cmd_EscG", "13.5"), "\x1BGE");
}

TEST(EscPromptReply, OfLettersBecomesZero) {
  EXPECT_EQ(BodyFor("Cmd_EscG", "0x"), "\x1BG0");
  EXPECT_EQ(BodyFor("Cmd_EscG", "abc"), "\x1BG0");
}

TEST(EscPromptReply, JustBeyondTheRangeIsJudgedAfterRounding) {
  EXPECT_EQ(BodyFor("Cmd_EscG", "-0.5"), "\x1BG0");
  EXPECT_EQ(BodyFor("Cmd_EscG", "15.4"), "\x1BGF");
  EscFormDouble form;
  support::ScriptedDialogs dialogs;
  dialogs.Types("15.5");  // 16
  dialogs.Types("15");
  std::string data_string;
  EXPECT_TRUE(RunEscSequence(SequenceOf("Cmd_EscG"), form, dialogs, data_string));
}

TEST(EscPromptTitle, CarriesThePanelsTextAsItIsAtThatMoment) {
  EscFormDouble form;
  support::ScriptedDialogs dialogs;
  dialogs.Types("99", [&form] { form.panels[0] = "changed"; });
  dialogs.Types("9");
  std::string data_string;
  EXPECT_TRUE(RunEscSequence(SequenceOf("CmdEscMm"), form, dialogs, data_string));
  EXPECT_EQ(dialogs.All()[0].title, "ESC M/m : Sets the dot space between lines");
  EXPECT_EQ(dialogs.All()[1].title, "ESC M/m : changed");
}

TEST(EscNoticeBox, AsksYesNoBeforeEscSmallIAndEscCapitalIAlone) {
  for (const EscSequence& sequence : EscSequences()) {
    const bool asks = sequence.name == "CmdEsc_i" || sequence.name == "CmdEscI";
    EXPECT_EQ(sequence.notice != EscNotice::kNone, asks) << sequence.name;
  }
  EscFormDouble form;
  support::ScriptedDialogs dialogs;
  dialogs.Answers(dialogs::Answer::kNo, [&form] { EXPECT_EQ(form.panels[0], ""); });
  std::string data_string;
  EXPECT_FALSE(RunEscSequence(SequenceOf("CmdEscI"), form, dialogs, data_string));
  EXPECT_EQ(dialogs.Last().title, "Notice");
  EXPECT_EQ(dialogs.Last().prompt,
            "This command is invalid for the printer with Japan, China, Taiwan & HK version.\r\n"
            "Will you proceed to execute this command?");
  EXPECT_EQ(dialogs.Last().buttons, dialogs::Buttons::kYesNo);
  EXPECT_EQ(form.panels[0], "");
}

TEST(EscNoticeBox, NoLeavesDataStringEmptyForSmallIAndAsItWasForCapitalI) {
  EscFormDouble form;
  support::ScriptedDialogs dialogs;
  dialogs.Answers(dialogs::Answer::kNo);
  std::string data_string = "Test Print";
  EXPECT_FALSE(RunEscSequence(SequenceOf("CmdEscI"), form, dialogs, data_string));
  EXPECT_EQ(data_string, "Test Print");
  dialogs.Answers(dialogs::Answer::kNo);
  EXPECT_FALSE(RunEscSequence(SequenceOf("CmdEsc_i"), form, dialogs, data_string));
  EXPECT_EQ(data_string, "");
}

}  // namespace
}  // namespace vantrel::printdata
