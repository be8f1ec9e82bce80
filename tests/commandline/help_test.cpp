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
  program.options[0].help =
      "Lists everything that there is to be listed, one to a line, in the order in which it "
      "was found, and then says how many there were.";
  const std::string help = HelpText(program);
  // The second line of help would have 81 columns with one word more.
  EXPECT_TRUE(help.ends_with(
      "      --list     Lists everything that there is to be listed, one to a line, in\n"
      "                 the order in which it was found, and then says how many there\n"
      "                 were.\n"))
      << help;
}

}  // namespace
}  // namespace vantrel::commandline
