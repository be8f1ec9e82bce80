// SPDX-License-Identifier: MIT

#include "tour/command_reference.h"

#include "console/command_table.h"
#include "link/frame.h"
#include "printer/model/printer_model.h"
#include "tests/support/installed_fonts.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace vantrel::tour {
namespace {

const std::string& Reference() {
  static const std::string kReference = CommandReference(support::InstalledFonts());
  return kReference;
}

// The part of the reference that begins with this heading, up to the next one.
std::string Section(const std::string& heading) {
  const std::size_t start = Reference().find("\n### " + heading + "\n");
  if (start == std::string::npos) return "no section " + heading;
  return Reference().substr(start + 1, Reference().find("\n#", start + 2) - start);
}

TEST(CommandReference, IsTheOneOfTheDocumentation) {
  std::ifstream file(VANTREL_SOURCE "/docs/commands.md");
  const std::string kept{std::istreambuf_iterator<char>(file), {}};
  EXPECT_EQ(kept, Reference()) << "build/debug/tour/write-command-reference >docs/commands.md";
}

TEST(CommandReference, HasEveryCommandOfTheConsoleInItsOrder) {
  std::size_t at = 0;
  for (const console::ConsoleCommand& command : console::Commands()) {
    at = Reference().find("\n### " + std::string(command.code) + "h, ", at);
    ASSERT_NE(at, std::string::npos) << command.code;
  }
}

TEST(CommandReference, ShowsAnExampleOverTheLine) {
  const std::string section = Section("21h, first track read");
  EXPECT_NE(section.find("    vantrel-send 21\n\n"
                         "    -> 02 21 03 22\n       21h first track read\n"
                         "    <- 06\n       06h acknowledge\n"
                         // 21h to ETX: 21 20 "MEMBER 0042" 03 give 34h.
                         "    <- 02 21 20 4D 45 4D 42 45 52 20 30 30 34 32 03 34\n"),
            std::string::npos)
      << section;
}

TEST(CommandReference, TellsWhatTheProgramsKnow) {
  const std::string section = Section("46h, erase and print");
  for (const char* told :
       {"| Button | \"Erase + Print -> Discharge 46\" |", "| The console waits | up to 30 s |",
        "| The software printer | Waits for a card where there is no target card. Erases ",
        " Takes 4 s. Answers 20h. Rejects it with 10h with another method, and with 2 ",
        "| From a shell | `vantrel-send 46 METHOD` |"})
    EXPECT_NE(section.find(told), std::string::npos) << told << "\n" << section;
}

TEST(CommandReference, EveryExampleGoesWell) {
  std::size_t well = 0;
  std::size_t at = 0;
  while ((at = Reference().find("h: 20h normal status", at)) != std::string::npos) ++well, ++at;
  EXPECT_EQ(well, console::Commands().size());
}

// What the reference says to be rejected.
TEST(CommandReference, WhatItSaysToBeRejectedIs) {
  struct Case {
    const char* code;
    std::string data;
  };
  const std::vector<Case> cases = {
      {"31", "0"},
      {"31", "8"},
      {"32", "8"},
      {"35", ""},
      {"35", std::string(70, 'A')},
      {"38", "A\x7F"},
      {"3B", std::string(77, 'A')},
      {"3B", "a"},
      {"3C", std::string(38, '1')},
      {"3C", "A"},
      {"3D", std::string(105, '1')},
      {"3D", ""},
      {"41", "2,0,480,A"},
      {"41",
       "3,0,60,\x1B"
       "E33A"},
      {"42", "2,0,47,6"},
      {"43", "480,0,FF"},
      {"43", "0,40,FF"},
      {"43", "0,39,FFFF"},
      {"44", "2,0," + std::string(144, 'F')},
      {"44", "0,G," + std::string(144, 'F')},
      {"44", std::string(144, 'F')},
      {"45", "1,0,FF"},
      {"46", "3"},
      {"47", ""},
      {"4A", "2,0,47,0,0,1"},
      {"4B", "G,424D"},
      {"4D", "479,0,1,FFFF"},
      {"4E", "10,9,2,1"},
      {"4E", "0,320,2,1"},
      {"4E", "0,47,8,1"},
      {"4E", "0,47,2,A"},
      {"4E", ""},
      {"50", "2"},
      {"5A", "941"},
      {"5B", "2"},
      {"91", ""},
  };
  for (const Case& each : cases) {
    printer::PrinterModel model(support::InstalledFonts(), link::CodePage::kWestern);
    link::Bytes sent;
    model.OnSend(
        [&sent](const link::Bytes& chunk) { sent.insert(sent.end(), chunk.begin(), chunk.end()); });
    model.InsertCard(protocol::Moment{0});
    model.Receive(link::BytesOf(link::ComposeFrame(
                      each.code, link::HexTextOf({each.data.begin(), each.data.end()}))),
                  protocol::Moment{0});
    while (model.NextAdvance() && sent.empty()) model.Advance(*model.NextAdvance());
    EXPECT_EQ(sent, link::Bytes{0x10}) << each.code << " " << each.data;
  }
}

TEST(CommandReference, ShowsTheEndOfALongFrame) {
  EXPECT_NE(Section("4Bh, BMP file register to internal image 2").find(" ... "), std::string::npos);
}

}  // namespace
}  // namespace vantrel::tour
