// SPDX-License-Identifier: MIT

#include "log/log_printer.h"

#include "log/line_output.h"
#include "log/line_recorder.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <string>

namespace vantrel::log {
namespace {

using protocol::Direction;

class LogPrinterTest : public testing::Test {
 protected:
  LogPrinterTest() { EXPECT_EQ(pipe(ends_.data()), 0); }
  ~LogPrinterTest() override {
    for (const int end : ends_) close(end);
  }

  // What was printed, which is something.
  std::string Printed() const {
    std::array<char, 4096> text{};
    const ssize_t count = read(ends_[0], text.data(), text.size());
    return {text.data(), static_cast<std::size_t>(count)};
  }

  std::array<int, 2> ends_{};
};

TEST_F(LogPrinterTest, PrintsEachEntryWhenItIsComplete) {
  LineOutput output(ends_[1]);
  LineRecorder recorder;
  const LogPrinter printer(recorder, output);
  recorder.Record(Direction::kFromConsole, QByteArray::fromHex("0221"));
  recorder.Record(Direction::kFromPrinter, QByteArray::fromHex("06"));
  recorder.Record(Direction::kFromConsole, QByteArray::fromHex("0322"));
  const std::string printed = Printed();
  // "2026-01-02 10:20:30.123" and two blanks come first.
  ASSERT_GT(printed.size(), 25U);
  const std::size_t second = printed.find('\n') + 1;
  EXPECT_EQ(printed.substr(25, second - 25), "received  02 21 03 22  21h first track read\n");
  EXPECT_EQ(printed.substr(second + 25), "sent      06  06h acknowledge\n");
}

TEST_F(LogPrinterTest, GoesOnAfterTheLogWasCleared) {
  LineOutput output(ends_[1]);
  LineRecorder recorder;
  const LogPrinter printer(recorder, output);
  recorder.Record(Direction::kFromPrinter, QByteArray::fromHex("06"));
  Printed();
  recorder.Clear();
  recorder.Record(Direction::kFromPrinter, QByteArray::fromHex("10"));
  EXPECT_TRUE(Printed().ends_with("sent      10  10h reject\n"));
}

}  // namespace
}  // namespace vantrel::log
