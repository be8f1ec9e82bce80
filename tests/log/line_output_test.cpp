// SPDX-License-Identifier: MIT

#include "log/line_output.h"

#include "tests/support/wait_for.h"

#include <QTest>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>
#include <utility>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;

// The two ends of a pipe or of a pair of sockets.
class LineOutputTest : public testing::TestWithParam<const char*> {
 protected:
  LineOutputTest() {
    const bool made = GetParam() == std::string("pipe")
                          ? pipe(ends_.data()) == 0
                          : socketpair(AF_UNIX, SOCK_STREAM, 0, ends_.data()) == 0;
    EXPECT_TRUE(made);
    EXPECT_EQ(fcntl(ends_[0], F_SETFL, O_NONBLOCK), 0);
  }
  ~LineOutputTest() override {
    CloseReader();
    close(ends_[1]);
    std::signal(SIGPIPE, handler_);
  }

  void CloseReader() {
    if (ends_[0] >= 0) close(std::exchange(ends_[0], -1));
  }
  // What the reader can take now.
  std::string Read() const {
    std::string text;
    std::array<char, 65536> part{};
    for (ssize_t count = 0; (count = read(ends_[0], part.data(), part.size())) > 0;)
      text.append(part.data(), static_cast<std::size_t>(count));
    return text;
  }

  std::array<int, 2> ends_{-1, -1};
  void (*handler_)(int) = std::signal(SIGPIPE, SIG_IGN);
};

INSTANTIATE_TEST_SUITE_P(Ways, LineOutputTest, testing::Values("pipe", "sockets"),
                         [](const auto& way) { return std::string(way.param); });

TEST_P(LineOutputTest, WritesLinesAtOnce) {
  LineOutput output(ends_[1]);
  output.Write("first");
  output.Write("");
  EXPECT_EQ(Read(), "first\n\n");
  EXPECT_EQ(output.Pending(), 0U);
}

TEST_P(LineOutputTest, KeepsWhatAReaderDoesNotTake) {
  LineOutput output(ends_[1]);
  const std::string line(9999, 'x');
  // More than any of them holds.
  for (int i = 0; i < 60; ++i) output.Write(line);
  EXPECT_GT(output.Pending(), 0U);
  EXPECT_EQ(fcntl(ends_[1], F_GETFL) & O_NONBLOCK, 0)
      << "others that write to it must not see this";
  int emptied = 0;
  QObject::connect(&output, &LineOutput::Emptied, [&emptied] { ++emptied; });
  std::string text;
  EXPECT_TRUE(support::WaitFor([&] {
    text += Read();
    return text.size() == 600'000;
  }));
  EXPECT_EQ(text.substr(0, 10000), line + '\n');
  EXPECT_EQ(text.substr(590'000), line + '\n');
  EXPECT_TRUE(support::WaitFor([&] { return emptied == 1; }));
}

TEST_P(LineOutputTest, DropsWholeLinesPastItsBound) {
  LineOutput output(ends_[1]);
  const std::string line(999'999, 'x');
  for (int i = 0; i < 30; ++i) output.Write(line);
  EXPECT_LE(output.Pending(), LineOutput::kMostPending);
  std::string text;
  while (output.Pending() > 0) {
    text += Read();
    output.Drain(1ms);
  }
  text += Read();
  EXPECT_EQ(text.size() % 1'000'000, 0U);
  EXPECT_GE(text.size(), 16'000'000U);
}

TEST_P(LineOutputTest, DropsLinesOnceTheReaderHasGone) {
  LineOutput output(ends_[1]);
  CloseReader();
  EXPECT_FALSE(output.IsGone());
  output.Write("first");
  EXPECT_TRUE(output.IsGone());
  output.Write("second");
  EXPECT_EQ(output.Pending(), 0U);
}

TEST_P(LineOutputTest, TellsWhenAReaderGoesThatLeftLines) {
  LineOutput output(ends_[1]);
  for (int i = 0; i < 60; ++i) output.Write(std::string(9999, 'x'));
  int emptied = 0;
  QObject::connect(&output, &LineOutput::Emptied, [&emptied] { ++emptied; });
  CloseReader();
  EXPECT_TRUE(support::WaitFor([&] { return emptied == 1; }));
  EXPECT_TRUE(output.IsGone());
  EXPECT_EQ(output.Pending(), 0U);
}

TEST_P(LineOutputTest, GivesUpAtTheEndOnAReaderThatTakesNothing) {
  LineOutput output(ends_[1]);
  for (int i = 0; i < 60; ++i) output.Write(std::string(9999, 'x'));
  const std::size_t pending = output.Pending();
  output.Drain(1ms);
  EXPECT_EQ(output.Pending(), pending);
}

TEST(LineOutput, IsGoneWhereItCannotBeWritten) {
  const int null = open("/dev/null", O_RDONLY);
  const LineOutput output(null);
  EXPECT_TRUE(output.IsGone());
  close(null);
}

TEST(LineOutput, FailsWhereNothingCanBeWritten) {
  const int full = open("/dev/full", O_WRONLY);
  LineOutput output(full);
  output.Write("first");
  EXPECT_TRUE(output.IsGone());
  close(full);
}

}  // namespace
}  // namespace vantrel::log
