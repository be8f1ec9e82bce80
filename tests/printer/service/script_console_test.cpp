// SPDX-License-Identifier: MIT

#include "printer/service/script_console.h"

#include "log/line_output.h"
#include "printer/model/printer_model.h"
#include "printer/service/printer_script.h"
#include "printer/service/printer_server.h"
#include "tests/support/installed_fonts.h"
#include "tests/support/wait_for.h"

#include <QTest>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <string>
#include <utility>

namespace vantrel::printer {
namespace {

class ScriptConsoleTest : public testing::Test {
 protected:
  ScriptConsoleTest() {
    EXPECT_EQ(pipe(input_.data()), 0);
    EXPECT_EQ(pipe(answers_.data()), 0);
    EXPECT_EQ(fcntl(answers_[0], F_SETFL, O_NONBLOCK), 0);
    QObject::connect(&script_, &PrinterScript::Finished, [this] { ++finished_; });
  }
  ~ScriptConsoleTest() override {
    for (const int end : {input_[0], input_[1], answers_[0], answers_[1]}) {
      if (end >= 0) close(end);
    }
  }

  void Ask(const std::string& text) const {
    EXPECT_EQ(write(input_[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  void EndInput() { close(std::exchange(input_[1], -1)); }
  // Whether the answers become these.
  bool Answers(const std::string& expected) {
    return support::WaitFor([&] {
      std::array<char, 65536> part{};
      const ssize_t count = read(answers_[0], part.data(), part.size());
      if (count > 0) read_.append(part.data(), static_cast<std::size_t>(count));
      return read_ == expected;
    });
  }

  std::array<int, 2> input_{-1, -1};
  std::array<int, 2> answers_{-1, -1};
  std::string read_;
  int finished_ = 0;
  PrinterModel model_{support::InstalledFonts(), link::CodePage::kWestern};
  PrinterServer server_{model_};
  log::LineRecorder recorder_;
  PrinterScript script_{model_, server_, recorder_};
};

TEST_F(ScriptConsoleTest, AnswersLinesInAnySplit) {
  log::LineOutput output(answers_[1]);
  const ScriptConsole console(script_, input_[0], output);
  Ask("pow");
  Ask("er on\npull\nread tra");
  ASSERT_TRUE(Answers("ok\nerror there is no card in the printer\n")) << read_;
  Ask("ck 1\n");
  EXPECT_TRUE(Answers("ok\nerror there is no card in the printer\nok\n")) << read_;
}

TEST_F(ScriptConsoleTest, EndsTheScriptWithTheInput) {
  log::LineOutput output(answers_[1]);
  const ScriptConsole console(script_, input_[0], output);
  Ask("power on");
  EndInput();
  EXPECT_TRUE(Answers("ok\n"));
  EXPECT_EQ(finished_, 1);
}

TEST_F(ScriptConsoleTest, ReadsNoMoreWhileNobodyTakesTheAnswers) {
  log::LineOutput output(answers_[1]);
  const ScriptConsole console(script_, input_[0], output);
  // An answer is a hundred bytes long; a pipe holds 64 KB, as much again may be kept.
  std::string asked;
  for (int i = 0; i < 6000; ++i) asked += "help pull\n";
  Ask(asked);
  ASSERT_TRUE(support::WaitFor([&] { return output.Pending() > 65536; }));
  EXPECT_LT(output.Pending(), 600'000U);
  std::size_t lines = 0;
  EXPECT_TRUE(support::WaitFor([&] {
    std::array<char, 65536> part{};
    const ssize_t count = read(answers_[0], part.data(), part.size());
    for (ssize_t i = 0; i < count; ++i) lines += part.at(static_cast<std::size_t>(i)) == '\n';
    return lines == 6000;
  }));
}

}  // namespace
}  // namespace vantrel::printer
