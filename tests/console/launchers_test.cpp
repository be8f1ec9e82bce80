// SPDX-License-Identifier: MIT

// 41h to 45h, 4Dh, 4Eh and 5Ah: commands whose data an editing form composes.

#include "tests/console/command_fixture.h"

namespace vantrel::console {
namespace {

using testing::ElementsAre;

struct Launch {
  const char* button;
  const char* hints;
  const char* panel1;
  const char* panel2;
  const char* form;
  // What the form composes, and the frame it goes out in.
  const char* data;
  const char* frame;
  // The panels after the reply.
  const char* panel1_after;
  const char* panel2_after;
  const char* empty_frame;  // with nothing composed

  friend void PrintTo(const Launch& launch, std::ostream* stream) { *stream << launch.button; }
};

class Launchers : public CommandFixture, public testing::WithParamInterface<Launch> {};

TEST_P(Launchers, ShowTheirFormInPlaceOfTheConsoleAndSendWhatItLeft) {
  const Launch& launch = GetParam();
  const std::string hints = launch.hints;
  common.DataString = "left by another form";
  sub_forms.meanwhile = [&] {
    // The form finds what was there; it is the form's business to replace it.
    EXPECT_EQ(common.DataString, "left by another form");
    EXPECT_EQ(Hints(), hints);
    common.DataString = launch.data;
  };
  Press(launch.button);
  EXPECT_THAT(BeforeExchange(),
              ElementsAre("LblHints = " + hints, std::string("Panel1 = ") + launch.panel1,
                          std::string("Panel2 = ") + launch.panel2, "hide console",
                          std::string("show ") + launch.form, "show console"));
  EXPECT_THAT(printer.Exchanges(), ElementsAre(Exchange{launch.frame, 5000, hints, launch.panel1,
                                                        launch.panel2, false}));
  EXPECT_EQ(Hints(), hints + "\r\n20h: Normal Status");
  EXPECT_EQ(Panel1(), launch.panel1_after);
  EXPECT_EQ(Panel2(), launch.panel2_after);
  // Sending leaves it as it is.
  EXPECT_EQ(common.DataString, launch.data);
}

TEST_P(Launchers, SendWhateverDataStringHoldsEvenNothing) {
  common.DataString.clear();
  Press(GetParam().button);
  EXPECT_THAT(Frames(), ElementsAre(GetParam().empty_frame));
}

TEST_P(Launchers, DoNothingMoreAfterAPortFailure) {
  port.FailNextWrite();
  EXPECT_THROW(Press(GetParam().button), link::PortError);
  EXPECT_EQ(Panel1(), "");
  EXPECT_EQ(Panel2(), "");
  EXPECT_TRUE(display.ButtonsEnabled());
}

constexpr const char* kOver320 = "Reject response => (starting address + image data) > 320 dots";
constexpr const char* kExpand = "Expand the registered font to print buffer by command 41h";

INSTANTIATE_TEST_SUITE_P(
    PrintData, Launchers,
    testing::Values(
        Launch{"Cmd41",
               "         Send: STX 41h 'Print data string' ETX BCC\r\n"
               "Response: STX 41h Status ETX BCC",
               "Clear print expansion buffer by 41h & 42h",
               "Buffer overflow response = print data exceeds the printable range",
               "FrmPrintBuffer", "2,0,Ab", "0241322C302C41620363", "", "", "02410342"},
        Launch{"Cmd42",
               "         Send: STX 42h Data arrangement, X Coordinate, Y coordinate, Expansion "
               "image specificaiton number ETX BCC\r\n"
               "Response: STX 42h Status ETX BCC",
               "Clear Image expansion buffer by 49h",
               "Reject response = no corresponded internal image", "FrmPrintBuffer", "2,0,4,9",
               "0242322C302C342C390362", "", "", "02420341"}),
    NameBy<&Launch::button>());

INSTANTIATE_TEST_SUITE_P(
    Images, Launchers,
    testing::Values(
        Launch{"Cmd43",
               "         Send: STX 43h X coordinate, Y coordinate, Expansion image data ETX BCC\r\n"
               "Response: STX 43h Status ETX BCC",
               "External image data expand command (Line Mode)", kOver320, "FrmExternalImage",
               "100,0,FF00000000", "02433130302C302C464630303030303030300341", "", "", "02430340"},
        // The response line names 43h; that is meant.
        Launch{"Cmd4D",
               "         Send: STX 4Dh X Coordinate, Y Coordinate, Image data length, Expansion "
               "Image data ETX BCC\r\n"
               "Response: STX 43h Status ETX BCC",
               "External image data expand command (Block Mode)", kOver320, "FrmExternalImage",
               "0,0,1,80", "024D302C302C312C3830035B", "", "", "024D034E"}),
    NameBy<&Launch::button>());

INSTANTIATE_TEST_SUITE_P(
    Fonts, Launchers,
    testing::Values(
        Launch{"Cmd44",
               "         Send: STX 44h Font size specification, External character registration "
               "number, External font data ETX BCC\r\n"
               "Response: STX 44h Status ETX BCC",
               "Double byte external character font register command", kExpand,
               "FrmExternalFont: 44h Double byte external font register command", "0,A,FF",
               "0244302C412C46460336", kExpand,
               "24 dot Double byte -> ESC G; 16 dot Double byte -> ESC I", "02440347"},
        Launch{"Cmd45",
               "         Send: STX 45h Font size specification, External character registration "
               "number, External font data ETX BCC\r\n"
               "Response: STX 45h Status ETX BCC",
               "Single byte external character font register command", kExpand,
               "FrmExternalFont: 45h Single byte external font register command", "1,3,01",
               "0245312C332C30310345", "Single byte external character font register command",
               kExpand, "02450346"}),
    NameBy<&Launch::button>());

class LauncherEdges : public CommandFixture {
 protected:
  // What the form finds in `variable` when this button shows it; `before` is what stood there.
  bool Finds(const char* button, bool link::CommonVariables::*variable, bool before) {
    common.*variable = before;
    bool found = before;
    sub_forms.meanwhile = [&] { found = common.*variable; };
    Press(button);
    return found;
  }
};

TEST_F(LauncherEdges, FormsFindTheirMode) {
  EXPECT_TRUE(Finds("Cmd41", &link::CommonVariables::IsPrintData, false));
  EXPECT_FALSE(Finds("Cmd42", &link::CommonVariables::IsPrintData, true));
  EXPECT_FALSE(Finds("Cmd43", &link::CommonVariables::IsBlockMode, true));
  EXPECT_TRUE(Finds("Cmd4D", &link::CommonVariables::IsBlockMode, false));
  EXPECT_TRUE(Finds("Cmd44", &link::CommonVariables::IsDoubleByteFont, false));
  EXPECT_FALSE(Finds("Cmd45", &link::CommonVariables::IsDoubleByteFont, true));
}

TEST_F(LauncherEdges, Cmd44ShowsItsLastGuidanceAfterATimeUpToo) {
  printer.StaysSilent();
  Press("Cmd44");
  EXPECT_EQ(Response(), "Time up! ");
  EXPECT_EQ(Panel1(), kExpand);
  EXPECT_EQ(Panel2(), "24 dot Double byte -> ESC G; 16 dot Double byte -> ESC I");
}

TEST_F(LauncherEdges, DataTravelInTheCodePage) {
  // One byte for a character of the code page, "?" for one that it lacks.
  common.DataString = "\u00E9\u65E5&<b>";
  Press("Cmd41");
  EXPECT_THAT(Frames(), ElementsAre("0241E93F263C623E03D2"));
}

TEST_F(LauncherEdges, Cmd4EKeepsPanel2WhileItsFormIsShownAndWhileItWaits) {
  const std::string hints =
      "         Send: STX 4Eh 'BarCode Control Header String' 'Barcode Data String' ETX BCC\r\n"
      "Response: STX 4Eh Status ETX BCC";
  sub_forms.meanwhile = [this] { common.DataString = "100,200,2"; };
  Press("Cmd4E");
  EXPECT_THAT(
      BeforeExchange(),
      ElementsAre("LblHints = " + hints, "Panel1 = Barcode Data Setting Command", "hide console",
                  "show Frm4E: 4Eh Barcode Data Setting command", "show console"));
  EXPECT_THAT(printer.Exchanges(),
              ElementsAre(Exchange{"024E3130302C3230302C32037C", 5000, hints,
                                   "Barcode Data Setting Command", "old panel 2", false}));
  EXPECT_EQ(Hints(), hints + "\r\n20h: Normal Status");
  EXPECT_EQ(Panel1(), "");
  EXPECT_EQ(Panel2(), "");
}

TEST_F(LauncherEdges, Cmd4EWithNothingComposedGoesOutWithNoData) {
  Press("Cmd4E");
  EXPECT_THAT(Frames(), ElementsAre("024E034D"));
}

constexpr const char* kHints5A =
    "         Send: STX 5Ah Control data string ETX BCC\r\n"
    "Response: STX 5Ah Status ETX BCC";

TEST_F(LauncherEdges, Cmd5AShowsItsFormOverTheConsoleAndSendsHexTextAsItIs) {
  common.ControlDataString = "313131";
  common.DataString = "not for 5Ah";
  sub_forms.meanwhile = [this] {
    EXPECT_EQ(common.ControlDataString, "");
    common.ControlDataString = "203120";
  };
  Press("Cmd5A");
  EXPECT_THAT(BeforeExchange(), ElementsAre(std::string("LblHints = ") + kHints5A,
                                            "Panel1 = ", "Panel2 = ", "show Frm5A"));
  // 5Ah ^ 20h ^ 31h ^ 20h ^ 03h = 68h.
  EXPECT_THAT(printer.Exchanges(),
              ElementsAre(Exchange{"025A2031200368", 5000, kHints5A, "", "", false}));
  EXPECT_EQ(Hints(), std::string(kHints5A) + "\r\n20h: Normal Status");
}

TEST_F(LauncherEdges, Cmd5AClosedWithoutAChoiceSendsNothing) {
  common.ControlDataString = "313131";
  Press("Cmd5A");
  ExpectNothingSent();
  EXPECT_EQ(Hints(), kHints5A);
  EXPECT_EQ(Panel1(), "");
  EXPECT_EQ(Panel2(), "");
}

}  // namespace
}  // namespace vantrel::console
