// SPDX-License-Identifier: MIT

#include "commandline/manual.h"

#include "tests/commandline/sample_program.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel::commandline {
namespace {

constexpr const char* kPage =
    "@NAME@\n@SYNOPSIS@\n.SH DESCRIPTION\nDispenses.\n@OPTIONS@\n@COMMANDS@\n"
    ".SH LINES\n@LINES@\n"
    ".SH SEE ALSO\n.BR cup (1)\n";

TEST(Manual, WritesEachSection) {
  const std::string manual = ManualPage(Dispenser(), kPage);
  EXPECT_TRUE(manual.starts_with(".TH TEST\\-DISPENSER 1 \"2"));
  for (const char* part :
       {"\" \"vantrel 3.14\" \"User Commands\"\n.SH NAME\n"
        "test\\-dispenser \\- hot drinks from a shell\n.SH SYNOPSIS\n.B test\\-dispenser\n"
        "[\\fIOPTIONS\\fR] \\fICOMMAND\\fR [\\fIPARAMETERS\\fR]\n.SH DESCRIPTION\nDispenses.\n",
        ".TP\n\\fB\\-s\\fR, \\fB\\-\\-speed\\fR \\fIBPS\\fR\n"
        "Talks at \\fIBPS\\fR bits a second; 50 to 4000; 9600 if not told.\n",
        "Says nothing; not with \\fB\\-\\-log\\fR.\n",
        ".TP\n\\fB2A\\fR [\\fIOPTIONS\\fR] \\fICUPS\\fR [\\fINAME\\fR]\ntea.\n.RS\n"
        ".TP\n\\fICUPS\\fR\nHow many; 1 to 7.\n",
        ".SH LINES\n.TP\n\\fBpour\\-out\\fR \\fICUP\\fR [\\fITWICE\\fR|\\fBnow\\fR]\n"
        "Pours \\fICUP\\fR, of 5 DL.\nAt \\(aqonce\\(aq; \\fB\\-\\-log\\fR tells.\n",
        ".SH SEE ALSO\n.BR cup (1)\n"})
    EXPECT_NE(manual.find(part), std::string::npos) << part << "\nis not in\n" << manual;
}

TEST(Manual, HasNothingThatItsReadersWarnOf) {
  for (const Program* program : {&Dispenser(), &Copier()}) {
    const std::string path = TemporaryFile(program->name + ".1", ManualPage(*program, kPage));
    EXPECT_EQ(OutputOf("mandoc -T lint " + path), "");
    EXPECT_EQ(OutputOf("LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l " + path + " >/dev/null"), "");
  }
}

// What troff would take for a quote, a caret or a tilde of its own.
TEST(Manual, WritesCharactersAsTheyStand) {
  const Program program{.name = "wrapper",
                        .version = "1",
                        .summary = "wraps",
                        .options = {{.name = "all", .help = "Takes '^' and '~' as they are."}}};
  const std::string manual = ManualPage(program, "@OPTIONS@\n");
  EXPECT_NE(manual.find("Takes \\(aq\\(ha\\(aq and \\(aq\\(ti\\(aq as they are."),
            std::string::npos)
      << manual;
}

TEST(Manual, WrapsLinesAndHidesADotAtTheBeginningOfOne) {
  const Program program{
      .name = "wrapper",
      .version = "1",
      .summary = "wraps",
      .options = {{.name = "all",
                   .help =
                       "Keeps every single row of what went over the long line in a file that ends "
                       "in .csv or .txt. Says so."}}};
  const std::string manual = ManualPage(program, "@OPTIONS@\n");
  EXPECT_NE(manual.find(
                "\nKeeps every single row of what went over the long line in a file that ends in\n"
                "\\&.csv or .txt.\nSays so.\n"),
            std::string::npos)
      << manual;
}

TEST(Manual, RefusesAPlaceholderThatStandsForNothing) {
  EXPECT_THROW(ManualPage(Dispenser(), "@NAME@\n@FLAGS@\n"), std::invalid_argument);
  EXPECT_EQ(ManualPage(Dispenser(), "a@b.example\n@\n"), "a@b.example\n@\n");
}

}  // namespace
}  // namespace vantrel::commandline
