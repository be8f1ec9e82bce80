#include "tour/command_reference.h"

#include "console/command_table.h"
#include "tests/support/installed_fonts.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

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
        "Waits for a card where there is no target card. Takes 4 s. Answers 20h.",
        "| From a shell | `vantrel-send 46 METHOD` |"})
    EXPECT_NE(section.find(told), std::string::npos) << told << "\n" << section;
}

TEST(CommandReference, EveryExampleGoesWell) {
  std::size_t well = 0;
  std::size_t at = 0;
  while ((at = Reference().find("h: 20h normal status", at)) != std::string::npos) ++well, ++at;
  EXPECT_EQ(well, console::Commands().size());
}

TEST(CommandReference, ShowsTheEndOfALongFrame) {
  EXPECT_NE(Section("4Bh, BMP file register to internal image 2").find(" ... "), std::string::npos);
}

}  // namespace
}  // namespace vantrel::tour
