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

TEST(Completion, IsRightForBash) {
  for (const Program* program : {&Dispenser(), &Copier()})
    EXPECT_EQ(OutputOf("bash -n " + TemporaryFile("syntax.bash", BashCompletion(*program))), "");
}

}  // namespace
}  // namespace vantrel::commandline
