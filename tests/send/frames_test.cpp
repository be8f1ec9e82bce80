// SPDX-License-Identifier: MIT

// Every command's frame, from its parameters to its bytes.

#include "console/command_table.h"
#include "tests/send/command_lines.h"

#include <gtest/gtest.h>

#include <set>

namespace vantrel::send {
namespace {

struct Row {
  Words words;
  const char* frame;  // STX, code, data, ETX and the exclusive-or of all after STX
};

const std::vector<Row>& Rows() {
  static const std::vector<Row> kRows = {
      {{"21"}, "02210322"},
      {{"22"}, "02220321"},
      {{"23"}, "02230320"},
      {{"25"}, "02250326"},
      {{"26"}, "02260325"},
      {{"27"}, "02270324"},
      {{"29"}, "0229032A"},
      {{"2A"}, "022A0329"},
      {{"2B"}, "022B0328"},
      {{"40"}, "02400343"},
      {{"49"}, "0249034A"},
      {{"51"}, "02510352"},
      {{"52"}, "02520351"},
      {{"53"}, "02530350"},
      {{"54"}, "02540357"},
      {{"55"}, "02550356"},
      {{"58"}, "0258035B"},
      {{"59"}, "0259035A"},
      {{"5F"}, "025F035C"},
      {{"95"}, "02950396"},
      {{"96"}, "02960395"},
      {{"2a"}, "022A0329"},
      {{"31", "2"}, "0231320300"},
      {{"32", "7"}, "0232370306"},
      {{"31", "01"}, "0231310303"},
      {{"35", "a~\001"}, "0235617E010328"},
      {{"36", "a~\001"}, "0236617E01032B"},
      {{"37", "a~\001"}, "0237617E01032A"},
      {{"38", "a~\001"}, "0238617E010325"},
      {{"39", "a~\001"}, "0239617E010324"},
      {{"3A", "a~\001"}, "023A617E010327"},
      {{"35", " "}, "0235200316"},
      {{"3B", " ^"}, "023B205E0346"},
      {{"3C", "0>"}, "023C303E0331"},
      {{"3D", "0;9"}, "023D303B39030C"},
      {{"41", "Test Print"}, "0241322C302C34372C54657374205072696E740328"},
      {{"41", "--direction", "3", "--x=479", "--y", "0319", "a\\nb\\e\\\\\\x1f"},
       "0241332C3437392C3331392C610D0A621B5C1F0300"},
      {{"41", ""}, "0241322C302C34372C036F"},
      {{"42", "15"}, "0242322C302C34372C31350368"},
      {{"42", "--x", "5", "--y", "6", "--direction", "1", "1999"}, "0242312C352C362C313939390357"},
      {{"43", "--x", "7", "0fF0"}, "0243372C302C304646300347"},
      {{"43", "--y", "39", "01"}, "0243302C33392C3031037B"},
      {{"4D", "01020304050102030405"},
       "024D302C302C352C30313032303330343035303130323033303430350357"},
      {{"4D", "--y", "38", "--x", "479", "ABCD"}, "024D3437392C33382C322C414243440365"},
      {{"4D", "--line-bytes", "1", "00FF"}, "024D302C302C312C303046460353"},
      {{"44", "a",
        "0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F"
        "0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F0F"},
       "0244302C412C3046304630463046304630463046304630463046304630463046304630463046304630463046304"
       "6304630463046304630463046304630463046304630463046304630463046304630463046304630463046304630"
       "4630463046304630463046304630463046304630463046304630463046304630463046304630463046304630463"
       "0463046304630463046304630460336"},
      {{"44", "--size", "16", "F",
        "0000000000000000000000000000000000000000000000000000000000000000"},
       "0244312C462C3030303030303030303030303030303030303030303030303030303030303030303030303030303"
       "03030303030303030303030303030303030303030303030300330"},
      {{"45", "0", "121212121212121212121212121212121212121212121212121212121212121212121212"},
       "0245302C302C3132313231323132313231323132313231323132313231323132313231323132313231323132313"
       "231323132313231323132313231323132313231323132313231323132313231320346"},
      {{"45", "--size=16", "9", "80808080808080808080808080808080"},
       "0245312C392C3830383038303830383038303830383038303830383038303830383038303830034E"},
      {{"46", "0"}, "0246300375"},
      {{"47", "1"}, "0247310375"},
      {{"48", "2"}, "0248320379"},
      {{"4A", "b", "0", "479"}, "024A322C302C34372C422C302C343739032C"},
      {{"4E", "--type", "code39", "12$"}, "024E302C34372C322C3132240347"},
      {{"4E", "--type", "code39", "--text-below", "0 %"}, "024E302C34372C332C3020250354"},
      {{"4E", "AB"}, "024E302C34372C302C412C32313232030C"},
      {{"4E", "--text-below", "--top", "1", "--bottom", "319", "--set", "B", "Ab"},
       "024E312C3331392C312C422C323134320331"},
      {{"4E", "--set", "C", "1234"}, "024E302C34372C302C432C30433232037E"},
      {{"4E", "--type", "itf", "0123456789"}, "024E302C34372C342C303132333435363738390367"},
      {{"4E", "--type", "codabar", "--start", "D", "--stop", "B", "--", "-.:$/+"},
       "024E302C34372C362C44422C2D2E3A242F2B0357"},
      {{"4E", "--type", "codabar", "--text-below", "1"}, "024E302C34372C372C41412C310378"},
      {{"50", "0"}, "0250300363"},
      {{"50", "1"}, "0250310362"},
      {{"5A"}, "025A2031200368"},
      {{"5A", "--buzzer", "off", "--led", "on", "--colour", "red"}, "025A303231036A"},
      {{"5A", "--buzzer", "on", "--led", "off", "--colour", "orange"}, "025A313330036B"},
      {{"5A", "--buzzer", "buzzing", "--led", "flashing"}, "025A3231320368"},
      {{"5A", "--buzzer", "one-cycle", "--led", "three-cycles"}, "025A333134036F"},
      {{"5A", "--buzzer", "three-cycles", "--led", "one-cycle"}, "025A343133036F"},
      {{"5B", "1"}, "025B310369"},
      {{"5B", "0"}, "025B300368"},
      {{"91", "2"}, "02913203A0"},
      {{"91", "A b"}, "02914120620391"},
      {{"21", "--data", "00aB"}, "022100AB0389"},
      {{"41", "--data", ""}, "02410342"},
  };
  return kRows;
}

TEST(Frames, AreWhatTheConsoleSends) {
  for (const Row& row : Rows()) {
    std::string words;
    for (const std::string& word : row.words) words += word + " ";
    EXPECT_EQ(Composed(row.words).frames, Words{row.frame}) << words;
  }
}

TEST(Frames, AreThereForEveryCommand) {
  std::set<std::string> codes = {"4B"};  // bmp_blocks_test.cpp
  for (const Row& row : Rows()) codes.insert(Composed(row.words).code);
  for (const console::ConsoleCommand& command : console::Commands())
    EXPECT_TRUE(codes.contains(std::string(command.code))) << command.code;
}

// Data of 4Eh for a text in Code 128: two hex digits a symbol.
std::string Symbols(const std::string& set, const std::string& text) {
  const std::string frame = Composed({"4E", "--set", set, "--", text}).frames.front();
  // Behind STX, the code and "0,47,0,A,"; before ETX and the block check.
  const std::string hex = frame.substr(22, frame.size() - 26);
  std::string symbols;
  for (std::size_t i = 0; i < hex.size(); i += 2)
    symbols += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  return symbols;
}

TEST(Frames, HaveCodeChangesOfCode128) {
  // 64h is CodeB in sets A and C, 65h is CodeA in sets B and C.
  EXPECT_EQ(Symbols("A", "A_ "), "213F00");
  EXPECT_EQ(Symbols("A", "Aab"), "21644142");  // set B stays
  EXPECT_EQ(Symbols("A", "A\001"), "2141");
  EXPECT_EQ(Symbols("B", "a\ta"), "4165496441");  // to set A and back
  EXPECT_EQ(Symbols("B", "~\x7F"), "5E5F");
  EXPECT_EQ(Symbols("C", "0099"), "0063");
  EXPECT_EQ(Symbols("C", "123"), "0C6413");  // a digit alone is none of set C
  EXPECT_EQ(Symbols("C", "12ab34"), "0C6441421314");
  EXPECT_EQ(Symbols("C", "\r"), "654D");
}

TEST(Frames, HaveTheTimesOfTheConsole) {
  EXPECT_EQ(Composed({"21"}).time_limit, 20000);
  EXPECT_EQ(Composed({"46", "1"}).time_limit, 30000);
  EXPECT_EQ(Composed({"52"}).time_limit, 60000);
  EXPECT_EQ(Composed({"58"}).time_limit, 5000);
  EXPECT_EQ(Composed({"4A", "0", "0", "0"}).time_limit, 5000);
  EXPECT_EQ(Composed({"21", "--time-limit", "1"}).time_limit, 1);
  EXPECT_EQ(Composed({"21"}, {.time_limit = 77}).time_limit, 77);
  EXPECT_EQ(Composed({"21", "--time-limit", "3600000"}, {.time_limit = 77}).time_limit, 3600000);
}

TEST(Frames, CarryTextInTheSystemsCodePage) {
  const Means japanese{.page = link::CodePage::kJapanese};
  // "日" is 93 FA there; the Western page lacks it and has "?" for it.
  EXPECT_EQ(Composed({"41", "日"}, japanese).frames.front(), "0241322C302C34372C93FA0306");
  EXPECT_EQ(Composed({"41", "日"}).frames.front(), "0241322C302C34372C3F0350");
}

}  // namespace
}  // namespace vantrel::send
