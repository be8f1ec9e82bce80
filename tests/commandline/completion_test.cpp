// SPDX-License-Identifier: MIT

#include "commandline/completion.h"

#include "tests/commandline/sample_program.h"

#include <gtest/gtest.h>

namespace vantrel::commandline {
namespace {

// What bash offers for the last of the words, which follow the program's name.
std::string Offered(const Program& program, const std::string& words) {
  const std::string script = TemporaryFile(program.name + ".bash", BashCompletion(program));
  std::string function = "_" + program.name;
  function.replace(function.find('-'), 1, "_");
  // compopt works inside a running completion alone.
  return OutputOf("bash -c 'compopt() { :; }; . " + script + "; COMP_WORDS=(" + program.name + " " +
                  words + "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); " + function +
                  "; echo \"${COMPREPLY[*]}\"'");
}

TEST(Completion, OffersCommandsFirst) {
  EXPECT_EQ(Offered(Dispenser(), "\"\""), "2A 46 -\n");
  EXPECT_EQ(Offered(Dispenser(), "--speed 50 4"), "46\n");
}

TEST(Completion, OffersTheOptionsOfTheCommandAndTheProgram) {
  EXPECT_EQ(Offered(Dispenser(), "2a --"), "--speed --quiet --log --help --version --milk --raw\n");
  EXPECT_EQ(Offered(Dispenser(), "46 --s"), "--speed --sugar\n");
  EXPECT_EQ(Offered(Dispenser(), "--q"), "--quiet\n");
}

TEST(Completion, KnowsTheLetterOfAnOption) {
  EXPECT_EQ(Offered(Dispenser(), "46 -"),
            "--speed -s --quiet -q --log --help -h --version -v --sugar\n");
  // What follows it is its value and no command.
  EXPECT_EQ(Offered(Dispenser(), "-s 50 4"), "46\n");
}

TEST(Completion, OffersChoicesInBothSpellings) {
  EXPECT_EQ(Offered(Dispenser(), "2A --milk \"\""), "cow oat none\n");
  EXPECT_EQ(Offered(Dispenser(), "2A --milk = o"), "oat\n");
  EXPECT_EQ(Offered(Dispenser(), "2A --milk ="), "cow oat none\n");
  EXPECT_EQ(Offered(Copier(), "somewhere \"\""), "here there\n");
}

TEST(Completion, OffersFiles) {
  const std::string path = TemporaryFile("completed-file", "");
  const std::string start = path.substr(0, path.size() - 3);
  EXPECT_EQ(Offered(Dispenser(), "--log " + start), path + "\n");
  EXPECT_EQ(Offered(Copier(), start), path + "\n");
  EXPECT_EQ(Offered(Dispenser(), "2A 1 " + start), "\n");
}

// What zsh offers at the end of the line.
std::string OfferedByZsh(const Program& program, const std::string& line) {
  const std::string script = TemporaryFile(program.name + ".zsh", ZshCompletion(program));
  return OutputOf(OFFERED_BY_ZSH " " + script + " '" + program.name + " " + line + "'");
}

TEST(ZshCompletion, OffersCommands) {
  EXPECT_EQ(OfferedByZsh(Dispenser(), ""), "- 2A 46\n");
  EXPECT_EQ(OfferedByZsh(Dispenser(), "--speed 50 4"), "46\n");
}

TEST(ZshCompletion, OffersTheOptionsOfTheCommandAndTheProgram) {
  EXPECT_EQ(OfferedByZsh(Dispenser(), "2a --"),
            "--help --log --milk --quiet --raw --speed --version\n");
  EXPECT_EQ(OfferedByZsh(Dispenser(), "46 --s"), "--speed --sugar\n");
  EXPECT_EQ(OfferedByZsh(Dispenser(), "--q"), "--quiet\n");
}

TEST(ZshCompletion, OffersAnOptionOnceUnlessItMayBeRepeated) {
  EXPECT_EQ(OfferedByZsh(Copier(), "--list --"), "--help --version\n");
  EXPECT_EQ(OfferedByZsh(Dispenser(), "--log a -q --"), "--help --log --speed --version\n");
}

TEST(ZshCompletion, OffersChoicesInBothSpellings) {
  EXPECT_EQ(OfferedByZsh(Dispenser(), "2A --milk "), "cow none oat\n");
  EXPECT_EQ(OfferedByZsh(Dispenser(), "2A --milk=o"), "oat\n");
  EXPECT_EQ(OfferedByZsh(Copier(), "somewhere "), "here there\n");
}

TEST(ZshCompletion, OffersFiles) {
  const std::string path = TemporaryFile("completed-file", "");
  const std::string start = path.substr(0, path.size() - 3);
  EXPECT_EQ(OfferedByZsh(Copier(), start), "completed-file\n");
  EXPECT_EQ(OfferedByZsh(Dispenser(), "--log " + start), "completed-file\n");
  EXPECT_EQ(OfferedByZsh(Dispenser(), "2A 1 " + start), "\n");
}

TEST(ZshCompletion, TellsWhatAnOptionDoes) {
  const std::string script = ZshCompletion(Dispenser());
  EXPECT_NE(script.find("'(-s --speed)'{-s+,--speed=}'[Talks at BPS bits a second]:BPS: '"),
            std::string::npos);
  EXPECT_NE(script.find("'46:coffee'"), std::string::npos);
}

TEST(ZshCompletion, MayHoldWhatIsSpecial) {
  const Program program{.name = "test-odd",
                        .options = {{.name = "odd", .help = "It's [odd]: \\ and all. Not this."}}};
  EXPECT_NE(ZshCompletion(program).find(R"('--odd[It'\''s \[odd\]: \\ and all]')"),
            std::string::npos);
  EXPECT_EQ(OfferedByZsh(program, "--o"), "--odd\n");
}

TEST(Completion, IsRightForBash) {
  for (const Program* program : {&Dispenser(), &Copier()})
    EXPECT_EQ(OutputOf("bash -n " + TemporaryFile("syntax.bash", BashCompletion(*program))), "");
}

}  // namespace
}  // namespace vantrel::commandline
