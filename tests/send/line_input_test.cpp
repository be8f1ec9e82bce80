// SPDX-License-Identifier: MIT

#include "send/line_input.h"

#include "link/unique_descriptor.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

namespace vantrel::send {
namespace {

bool NeverStopped() { return false; }

// The lines of a file that holds these bytes, and what ended them: "" for the end of the file.
std::vector<std::string> LinesOf(const std::string& bytes) {
  std::FILE* file = std::tmpfile();
  EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file), bytes.size());
  std::rewind(file);
  PollClock clock;
  LineInput input(fileno(file), clock, NeverStopped);
  std::vector<std::string> lines;
  try {
    while (std::optional<std::string> line = input.Next()) lines.push_back(*std::move(line));
    lines.emplace_back();
  } catch (const InputError& error) {
    lines.emplace_back(error.what());
  }
  std::fclose(file);
  return lines;
}

TEST(LineInput, EndsALastLineWithoutItsEnd) {
  EXPECT_EQ(LinesOf("58\n\n21"), (std::vector<std::string>{"58", "", "21", ""}));
  EXPECT_EQ(LinesOf(""), std::vector<std::string>{""});
}

TEST(LineInput, TakesALineOfAMegabyteAndRefusesOneThatIsLonger) {
  const std::string longest(1'048'576, 'a');
  EXPECT_EQ(LinesOf(longest + "\n58"), (std::vector<std::string>{longest, "58", ""}));
  EXPECT_EQ(LinesOf("58\n" + longest + "a\n58"),
            (std::vector<std::string>{"58", "Line 2 is too long."}));
  EXPECT_EQ(LinesOf("58\n" + longest + "a"),
            (std::vector<std::string>{"58", "Line 2 is too long."}));
  // The end of the line comes with the byte that is too much.
  EXPECT_EQ(LinesOf(longest + "a\n58"), std::vector<std::string>{"Line 1 is too long."});
}

TEST(LineInput, SaysWhyItCannotBeRead) {
  const link::UniqueDescriptor folder(open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  PollClock clock;
  LineInput input(folder.Get(), clock, NeverStopped);
  try {
    input.Next();
    ADD_FAILURE();
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(), "Standard input cannot be read: Is a directory.");
  }
}

}  // namespace
}  // namespace vantrel::send
