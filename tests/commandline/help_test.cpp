// SPDX-License-Identifier: MIT

#include "commandline/help.h"

#include "tests/commandline/sample_program.h"

#include <gtest/gtest.h>

namespace vantrel::commandline {
namespace {

TEST(Help, TellsTheWholeTable) {
  EXPECT_EQ(HelpText(Dispenser()),
            "Usage: test-dispenser [OPTIONS] COMMAND [PARAMETERS]\n"
            "\n"
            "Dispenses what is asked for.\n"
            "\n"
            "Options:\n"
            "  -h, --help       Tells these options and ends.\n"
            "  -v, --version    Tells the version and ends.\n"
            "  -s, --speed BPS  Talks at BPS bits a second; 50 to 4000; 9600 if not told.\n"
            "  -q, --quiet      Says nothing; not with --log.\n"
            "      --log FILE   Keeps a log in FILE.\n"
            "\n"
            "Commands:\n"
            "  2A [OPTIONS] CUPS [NAME]  tea\n"
            "  46 [OPTIONS] [NAME...]    coffee\n"
            "  -                         reads orders\n"
            "\n"
            "Cups are counted\n"
            "  by hand.\n");
}

TEST(Help, TellsOneCommand) {
  EXPECT_EQ(HelpText(Dispenser(), *FindCommand(Dispenser(), "2A")),
            "Usage: test-dispenser 2A [OPTIONS] CUPS [NAME]\n"
            "\n"
            "tea\n"
            "\n"
            "Parameters:\n"
            "  CUPS  How many; 1 to 7.\n"
            "  NAME  \n"
            "\n"
            "Options:\n"
            "      --milk KIND  What to pour in; cow, oat or none; none if not told.\n"
            "      --raw HEX    Sends HEX.\n");
}

TEST(Help, TellsEveryLineOfTheSynopsis) {
  EXPECT_TRUE(HelpText(Copier()).starts_with(
      "Usage: test-copier [OPTIONS] FROM TO\n       test-copier --list\n"));
}

TEST(Help, BreaksLinesAtEightyColumns) {
  Program program = Copier();
  // The help begins in column 17, so there is room for 63.
  const std::string first(31, 'a');
  program.options[0].help = first + ' ' + std::string(31, 'b');
  EXPECT_TRUE(HelpText(program).ends_with("\n      --list     " + first + ' ' +
                                          std::string(31, 'b') + '\n'))
      << HelpText(program);
  program.options[0].help = first + ' ' + std::string(32, 'b') + " c";
  EXPECT_TRUE(HelpText(program).ends_with("\n      --list     " + first + "\n                 " +
                                          std::string(32, 'b') + " c\n"))
      << HelpText(program);
}

TEST(Help, PutsANameThatIsTooWideOnALineOfItsOwn) {
  Program program = Copier();
  program.options = {{.name = "a-name-as-wide-as-it", .help = "Stays."},
                     {.name = "a-name-as-wide-as-no-other", .help = "Goes."}};
  EXPECT_TRUE(
      HelpText(program).ends_with("  -h, --help                  Tells these options and ends.\n"
                                  "  -v, --version               Tells the version and ends.\n"
                                  "      --a-name-as-wide-as-it  Stays.\n"
                                  "      --a-name-as-wide-as-no-other\n"
                                  "                              Goes.\n"))
      << HelpText(program);
}

}  // namespace
}  // namespace vantrel::commandline
