// SPDX-License-Identifier: MIT

// 35h to 3Dh: loading a track's data into the printer. The sample data are those of
// 20 November 2026, 21:05:03. Frames are the texts' ASCII codes, their block checks the
// exclusive-or of command, data and ETX, computed apart from this program.

#include "tests/console/command_fixture.h"

namespace vantrel::console {
namespace {

using testing::ElementsAre;

constexpr const char* kReverse =
    "Set JIS(7-bit) format data (01h,04h - 7Eh) in reverse direction, Max 69 Bytes";
constexpr const char* kForward = "Set JIS(7-bit) format data (01h,04h - 7Eh), Max 69 Bytes";

struct DataSetCase {
  const char* button;
  const char* hints;
  const char* panel1;
  const char* title;         // of the input box; the question's ends with one more blank
  const char* sample_frame;  // sent when the user declines to type
  const char* typed;         // accepted by the range
  const char* typed_frame;
  const char* refused;  // refused by the range

  friend void PrintTo(const DataSetCase& data_set, std::ostream* stream) {
    *stream << data_set.button;
  }
};

class DataSets : public CommandFixture, public testing::WithParamInterface<DataSetCase> {
 protected:
  Exchange Waiting(const std::string& frame) const {
    return {frame, 5000, GetParam().hints, GetParam().panel1, "Send 31h or 32h to write the data",
            false};
  }
  std::vector<std::string> TextsAnd(std::initializer_list<std::string> boxes) const {
    std::vector<std::string> lines = {"LblHints = " + std::string(GetParam().hints),
                                      "Panel1 = " + std::string(GetParam().panel1),
                                      "Panel2 = Send 31h or 32h to write the data"};
    lines.insert(lines.end(), boxes);
    return lines;
  }
  void ExpectNormalStatusAndEmptyPanels() const {
    EXPECT_EQ(Hints(), std::string(GetParam().hints) + "\r\n20h: Normal Status");
    EXPECT_EQ(Panel1(), "");
    EXPECT_EQ(Panel2(), "");
  }
  const std::string question = std::string(GetParam().title) + " ";
  const std::string input = GetParam().title;
  const std::string prompt = std::string("Please input the data :-\r\n\r\n") + GetParam().panel1;
};

TEST_P(DataSets, SendTheSampleWhenTheUserDeclinesToType) {
  dialogs.Answers(dialogs::Answer::kNo);
  Press(GetParam().button);
  EXPECT_THAT(BeforeExchange(), testing::ElementsAreArray(TextsAnd({"box: " + question})));
  EXPECT_EQ(dialogs.Last().prompt, "Do you want to input the data?");
  EXPECT_EQ(dialogs.Last().buttons, dialogs::Buttons::kYesNo);
  EXPECT_EQ(dialogs.Last().icon, dialogs::Icon::kNone);
  EXPECT_THAT(printer.Exchanges(), ElementsAre(Waiting(GetParam().sample_frame)));
  ExpectNormalStatusAndEmptyPanels();
}

TEST_P(DataSets, SendWhatIsTyped) {
  dialogs.Answers(dialogs::Answer::kYes);
  dialogs.Types(GetParam().typed);
  Press(GetParam().button);
  EXPECT_THAT(BeforeExchange(),
              testing::ElementsAreArray(TextsAnd({"box: " + question, "input: " + input})));
  EXPECT_EQ(dialogs.Last().prompt, prompt);
  EXPECT_EQ(dialogs.Last().default_text, "");
  EXPECT_THAT(printer.Exchanges(), ElementsAre(Waiting(GetParam().typed_frame)));
  ExpectNormalStatusAndEmptyPanels();
}

TEST_P(DataSets, AskAgainEmptyAndSilentAfterARefusedText) {
  dialogs.Answers(dialogs::Answer::kYes);
  dialogs.Types(GetParam().refused);
  dialogs.Types(GetParam().typed);
  Press(GetParam().button);
  EXPECT_THAT(BeforeExchange(), testing::ElementsAreArray(TextsAnd(
                                    {"box: " + question, "input: " + input, "input: " + input})));
  EXPECT_EQ(dialogs.Last().prompt, prompt);
  EXPECT_EQ(dialogs.Last().default_text, "");
  EXPECT_THAT(Frames(), ElementsAre(GetParam().typed_frame));
}

TEST_P(DataSets, SendTheSampleAfterCancel) {
  dialogs.Answers(dialogs::Answer::kYes);
  dialogs.CancelsInput();
  Press(GetParam().button);
  EXPECT_THAT(Frames(), ElementsAre(GetParam().sample_frame));
}

// "Track 1 Data    Date: 20.11.26" and "Track 3 Data    Time: 21:05:03".
INSTANTIATE_TEST_SUITE_P(
    Reverse, DataSets,
    testing::Values(
        DataSetCase{"Cmd35",
                    "         Send: STX 35h 'Write Data String' ETX BCC\r\n"
                    "Response: STX 35h Status ETX BCC",
                    kReverse, "Track 1 - Magnetic Stripe",
                    "0235547261636B2031204461746120202020446174653A2032302E31312E32360350",
                    "\x01\x04", "023501040333", "a\x02z"},
        DataSetCase{"Cmd36",
                    "         Send: STX 36h 'Write Data String' ETX BCC\r\n"
                    "Response: STX 36h Status ETX BCC",
                    kReverse, "Track 2 - Magnetic Stripe",
                    "02364F7276656C2D4E6F7220546563686E6F6C6F6779204C74642E2054656C203535353020"
                    "3031303020363431313233313233313233313233414141414141414141410337",
                    "ab", "023661620336", "\x03"},
        DataSetCase{"Cmd37",
                    "         Send: STX 37h 'Write Data String' ETX BCC\r\n"
                    "Response: STX 37h Status ETX BCC",
                    kReverse, "Track 3 - Magnetic Stripe",
                    "0237547261636B203320446174612020202054696D653A2032313A30353A30330352", "~",
                    "02377E034A", "\x7F"}),
    NameBy<&DataSetCase::button>());

INSTANTIATE_TEST_SUITE_P(
    Forward, DataSets,
    testing::Values(
        DataSetCase{"Cmd38",
                    "         Send: STX 38h 'Write Data String' ETX BCC\r\n"
                    "Response: STX 38h Status ETX BCC",
                    kForward, "Track 1 - Magnetic Stripe",
                    "0238547261636B2031204461746120202020446174653A2032302E31312E3236035D",
                    "\x01\x04", "02380104033E", "\x02"},
        DataSetCase{"Cmd39",
                    "         Send: STX 39h 'Write Data String' ETX BCC\r\n"
                    "Response: STX 39h Status ETX BCC",
                    kForward, "Track 2 - Magnetic Stripe",
                    "02394F7276656C2D4E6F7220546563686E6F6C6F6779204C74642E2054656C203535353020"
                    "3031303020363431313233313233313233313233414141414141414141410338",
                    "ab", "023961620339", "\x03z"},
        DataSetCase{"Cmd3A",
                    "         Send: STX 3Ah 'Write Data String' ETX BCC\r\n"
                    "Response: STX 3Ah Status ETX BCC",
                    kForward, "Track 3 - Magnetic Stripe",
                    "023A547261636B203320446174612020202054696D653A2032313A30353A3033035F", "~",
                    "023A7E0347", "\x7F"}),
    NameBy<&DataSetCase::button>());

// "TRACK1 DATA     DATE: 20.11.26     TIME: 21:05:03", the 37 digits and 104 times "2".
INSTANTIATE_TEST_SUITE_P(
    TrackCharacters, DataSets,
    testing::Values(
        DataSetCase{"Cmd3B",
                    "         Send: STX 3Bh 'Write data string' ETX BCC\r\n"
                    "Response: STX 3Bh Status ETX BCC",
                    "Set data(20h - 5Eh) for Track 1: Max 76 Bytes", "Track 1 - Magnetic Stripe",
                    "023B545241434B3120444154412020202020444154453A2032302E31312E3236202020202054"
                    "494D453A2032313A30353A30330374",
                    " ^", "023B205E0346", "\x1F"},
        DataSetCase{"Cmd3C",
                    "         Send: STX 3Ch 'Write data string' ETX BCC\r\n"
                    "Response: STX 3Ch Status ETX BCC",
                    "Set data(30h - 3Eh) for Track 2: Max 37 Bytes", "Track 2 - Magnetic Stripe",
                    "023C31323334353637383930313233343536373839303132333435363738393031323334353637"
                    "030E",
                    "0>", "023C303E0331", "/"},
        DataSetCase{"Cmd3D",
                    "         Send: STX 3Dh Write data string ETX BCC\r\n"
                    "Response: STX 3Dh Status ETX BCC",
                    "Set data(30h - 3Eh) for Track 3: Max 104 Bytes", "Track 3 - Magnetic Stripe",
                    "023D32323232323232323232323232323232323232323232323232323232323232323232323232"
                    "323232323232323232323232323232323232323232323232323232323232323232323232323232"
                    "32323232323232323232323232323232323232323232323232323232033E",
                    "0>", "023D303E0330", "?"}),
    NameBy<&DataSetCase::button>());

class DataSetEdges : public CommandFixture {
 protected:
  // Types these texts into the input box of the command, one after the other.
  void Type(std::string_view button, std::initializer_list<const char*> texts) {
    dialogs.Answers(dialogs::Answer::kYes);
    for (const char* text : texts) dialogs.Types(text);
    Press(button);
  }
  // The first bytes of the only frame.
  std::string Start(std::size_t bytes) const {
    return Frames().size() == 1 ? Frames()[0].substr(0, bytes * 2) : "";
  }
};

TEST_F(DataSetEdges, Cmd3BAnsweredNoSendsDateAndTimeWithin5000) {
  dialogs.Answers(dialogs::Answer::kNo);
  Press("Cmd3B");
  EXPECT_THAT(Frames(), ElementsAre("023B"
                                    "545241434B3120444154412020202020444154453A20"  // up to DATE:
                                    "32302E31312E3236"                              // 20.11.26
                                    "202020202054494D453A20"                        // TIME:
                                    "32313A30353A3033"                              // 21:05:03
                                    "0374"));
  EXPECT_EQ(printer.Exchanges().back().time_limit, 5000);
}

TEST_F(DataSetEdges, SamplesOf3ChAnd3DhFillTheirTracksAndThatOf36hAnd39hStaysBelow69) {
  std::vector<std::size_t> lengths;
  for (const char* button : {"Cmd3C", "Cmd3D", "Cmd36", "Cmd39"}) {
    dialogs.Answers(dialogs::Answer::kNo);
    Press(button);
    // STX, command, ETX and block check are four bytes.
    lengths.push_back(Frames().back().size() / 2 - 4);
  }
  EXPECT_THAT(lengths, ElementsAre(37U, 104U, 65U, 65U));
}

TEST_F(DataSetEdges, Cmd3DAnsweredNoSends32h104Times) {
  dialogs.Answers(dialogs::Answer::kNo);
  Press("Cmd3D");
  std::string twos;
  for (int i = 0; i < 104; ++i) twos += "32";
  // An even number of 32h cancel out: 3Dh ^ 03h = 3Eh.
  EXPECT_THAT(Frames(), ElementsAre("023D" + twos + "033E"));
}

TEST_F(DataSetEdges, Cmd3CWithABlankAmongItsDigitsAsksAgain) {
  Type("Cmd3C", {"12 34", "12"});
  EXPECT_THAT(Frames(), ElementsAre("023C3132033C"));
}

TEST_F(DataSetEdges, Cmd3CWithBlanksAloneAsksAgain) {
  // The range is judged before blanks count as nothing typed.
  Type("Cmd3C", {"   ", ""});
  EXPECT_EQ(dialogs.All().size(), 3U);
}

TEST_F(DataSetEdges, Cmd35Refuses02hAnd03hAndTakes01hAnd04h) {
  Type("Cmd35", {"\x02", "\x03", "\x01\x04"});
  EXPECT_THAT(Frames(), ElementsAre("023501040333"));
}

TEST_F(DataSetEdges, Cmd3BWithLowerCaseLettersAsksAgain) {
  Type("Cmd3B", {"abc", "ABC"});
  // 3Bh ^ 41h ^ 42h ^ 43h ^ 03h = 78h.
  EXPECT_THAT(Frames(), ElementsAre("023B4142430378"));
}

TEST_F(DataSetEdges, Cmd3BWithThreeBlanksSendsTheSample) {
  Type("Cmd3B", {"   "});
  EXPECT_EQ(Start(8), "023B545241434B31");
}

TEST_F(DataSetEdges, Cmd3BSendsBlanksAroundABAsTyped) {
  Type("Cmd3B", {" AB "});
  EXPECT_THAT(Frames(), ElementsAre("023B20414220033B"));
}

TEST_F(DataSetEdges, Cmd35SendsATabulatorAloneBecauseItIsNoBlank) {
  Type("Cmd35", {"\t"});
  EXPECT_THAT(Frames(), ElementsAre("023509033F"));
}

TEST_F(DataSetEdges, Cmd35RefusesEveryCharacterBeyond7Eh) {
  // The last one is a character that the code page lacks; the "?" it would become is not judged.
  Type("Cmd35", {"\x7F", "\u00E9", "\u20AC", "\uFF21", "\u65E5", "A"});
  EXPECT_EQ(dialogs.All().size(), 7U);
  EXPECT_THAT(Frames(), ElementsAre("0235410377"));
}

TEST_F(DataSetEdges, LengthIsLeftToThePrinter) {
  // Eighty times 78h; an even number of them cancel out: 36h ^ 03h = 35h.
  Type("Cmd36", {std::string(80, 'x').c_str()});
  std::string data;
  for (int i = 0; i < 80; ++i) data += "78";
  EXPECT_THAT(Frames(), ElementsAre("0236" + data + "0335"));
}

TEST_F(DataSetEdges, SampleIsComposedWhenTheButtonIsClicked) {
  dialogs.Answers(dialogs::Answer::kYes, [this] { date.local = "21.11.26"; });
  dialogs.Types("", [this] { date.local = "22.11.26"; });
  Press("Cmd35");
  EXPECT_THAT(Frames(),
              ElementsAre("0235547261636B2031204461746120202020446174653A2032302E31312E32360350"));
}

TEST_F(DataSetEdges, PromptHoldsThePanelAsItStandsAtThatMoment) {
  dialogs.Answers(dialogs::Answer::kYes,
                  [this] { display.SetText(link::Field::Panel1, "changed meanwhile"); });
  dialogs.Types("?", [this] { display.SetText(link::Field::Panel1, "changed again"); });
  dialogs.Types("1");
  Press("Cmd3C");
  EXPECT_THAT(PromptsOf("Track 2 - Magnetic Stripe"),
              ElementsAre("Please input the data :-\r\n\r\nchanged meanwhile",
                          "Please input the data :-\r\n\r\nchanged again"));
}

TEST_F(DataSetEdges, NumbersAreTextLikeAnyOther) {
  // 2Dh 33h: 38h ^ 2Dh ^ 33h ^ 03h = 25h.
  Type("Cmd38", {"-3"});
  EXPECT_THAT(Frames(), ElementsAre("02382D330325"));
}

}  // namespace
}  // namespace vantrel::console
