// SPDX-License-Identifier: MIT

// Every command of the console against every fault of its line: what it must show, when it must
// end, and that it works on. One case a command; a failing cell names its fault.

#include "tests/reliability/console_bench.h"
#include "tests/reliability/line_faults.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

namespace vantrel::reliability {
namespace {

using link::Field;
using testing::ElementsAre;
using testing::IsEmpty;

std::string NameOfCase(const testing::TestParamInfo<ConsoleCommand>& info) {
  return info.param.button;
}

class ConsoleFaults : public testing::TestWithParam<ConsoleCommand> {
 protected:
  const ConsoleCommand& command_ = GetParam();

  std::string SyntaxOf(const ConsoleCommand& command) const {
    return Spaced(command.frames.back());
  }
  // That nothing happened but the help text.
  void ExpectHelpAlone(const ConsoleBench& bench) const {
    EXPECT_THAT(bench.port.Writes(), IsEmpty());
    EXPECT_THAT(bench.display.ButtonHistory(), IsEmpty());
    EXPECT_EQ(bench.Text(Field::TxtCommand), "old command");
    EXPECT_EQ(bench.Text(Field::TxtSyntax), "old syntax");
    EXPECT_EQ(bench.Text(Field::TxtResponse), "old reply");
    EXPECT_EQ(bench.Text(Field::LblHints), command_.hints);
    bench.ExpectReady(kOldPanel1, kOldPanel2);
  }
  void ExpectEnd(Ending ending, int milliseconds) const {
    const auto blocks = static_cast<int>(command_.frames.size());
    const int limit = blocks * command_.time_limit;
    switch (ending) {
      case Ending::kSoon:
        EXPECT_LE(milliseconds, 1000);
        break;
      case Ending::kJustBefore:
        EXPECT_GE(milliseconds, limit - 20 * blocks);
        EXPECT_LT(milliseconds, limit);
        break;
      case Ending::kLimit:
        EXPECT_GE(milliseconds, limit);
        EXPECT_LE(milliseconds, limit + 10 * blocks);
        break;
      case Ending::kAny:
        break;
    }
  }
  void RunLineFault(const LineFault& fault) const;
  void RunPortFault(const PortFault& fault) const;
  // The nested call alone tells it.
  void LoseTheDeviceInANestedCall() const;
  // The user chooses another port, which closes this one; the wait ends in time up.
  void CloseThePortDuringTheWait() const;
};

void ConsoleFaults::RunLineFault(const LineFault& fault) const {
  int struck = 0;
  ConsoleBench bench([&](Line& line) {
    ++struck;
    if (line.Repetition() == 0) {
      EXPECT_EQ(line.TimeLimit(), command_.time_limit);
      line.After(0, [&] {
        EXPECT_FALSE(bench.display.ButtonsEnabled());
        EXPECT_EQ(bench.Text(Field::Panel1), command_.SendsTwoBlocks() && line.Number() == 1
                                                 ? ""
                                                 : std::string(command_.panel1));
      });
    }
    fault.strike(line);
  });
  fault.prepare(bench.line);
  const PressEnd end = bench.Press(command_);
  EXPECT_EQ(end.error, "");
  EXPECT_FALSE(end.silently);
  if (command_.SendsNothing()) return ExpectHelpAlone(bench);

  EXPECT_EQ(bench.line.Number() + 1, static_cast<int>(command_.frames.size()));
  EXPECT_EQ(bench.Text(Field::TxtCommand), command_.Code());
  EXPECT_EQ(bench.Text(Field::TxtSyntax), SyntaxOf(command_));
  const bool has_own_end = command_.SendsTwoBlocks() && *fault.block_response != '\0';
  const std::string added = Filled(has_own_end ? fault.block_added : fault.added, command_);
  EXPECT_EQ(bench.Text(Field::TxtResponse),
            Filled(has_own_end ? fault.block_response : fault.response, command_));
  EXPECT_EQ(bench.Text(Field::LblHints),
            command_.hints + added + (command_.SendsTwoBlocks() && !has_own_end ? added : ""));
  ExpectEnd(has_own_end ? fault.block_ending : fault.ending, end.milliseconds);
  if (fault.sender.resends == kAsLongAsItLasts)
    EXPECT_EQ(bench.line.Repetition(), command_.time_limit / 100);
  else
    EXPECT_EQ(bench.line.Repetition(), fault.sender.resends);
  bench.ExpectReady(command_.panel1_after, command_.panel2_after);
  bench.ExpectUsable();
}

void ConsoleFaults::RunPortFault(const PortFault& fault) const {
  ConsoleBench bench(fault.strike);
  fault.prepare(bench.line);
  const PressEnd end = bench.Press(command_, !command_.SendsNothing());
  if (command_.SendsNothing()) return ExpectHelpAlone(bench);

  EXPECT_EQ(end.error, fault.message);
  EXPECT_LE(end.milliseconds, 100);
  EXPECT_EQ(bench.line.Number() + 1, fault.frames_sent);
  EXPECT_EQ(bench.Text(Field::TxtCommand), fault.frame_shown ? command_.Code() : "old command");
  EXPECT_EQ(bench.Text(Field::TxtSyntax),
            fault.frame_shown ? Spaced(command_.frames.front()) : "old syntax");
  EXPECT_EQ(bench.Text(Field::TxtResponse), fault.frame_shown ? fault.response : "old reply");
  EXPECT_EQ(bench.Text(Field::LblHints), command_.hints);
  EXPECT_FALSE(bench.port.IsOpen());
  EXPECT_THAT(bench.clock.PortErrors(), IsEmpty());
  bench.ExpectReady();
  bench.ExpectUsable();
}

void ConsoleFaults::LoseTheDeviceInANestedCall() const {
  for (const char* nested : {"54", "55", "5F"}) {
    for (const bool at_write : {false, true}) {
      SCOPED_TRACE(std::string(command_.button) + ", device gone " +
                   (at_write ? "at the write of " : "in the wait of ") + nested);
      const ConsoleCommand& inside = CommandOf(nested);
      ConsoleBench bench([&](Line& line) {
        if (line.Number() > 0) return line.After(25, [&line] { line.Port().Lose(); });
        if (at_write) line.Port().FailAtWrite(2);
        line.After(25, [&] { bench.PressInside(inside); });
      });
      const PressEnd end = bench.Press(command_, true);
      EXPECT_TRUE(end.silently) << end.error;
      EXPECT_LE(end.milliseconds, 60);
      EXPECT_THAT(bench.clock.PortErrors(),
                  ElementsAre(testing::StartsWith(
                      at_write ? "COM 1 could not be written to: Input/output error\r\n\r\n"
                               : "COM 1 is gone: Input/output error\r\n\r\n")));
      EXPECT_EQ(bench.Text(Field::TxtCommand), nested);
      EXPECT_EQ(bench.Text(Field::TxtResponse), "");
      EXPECT_EQ(bench.Text(Field::LblHints), inside.hints);
      EXPECT_FALSE(bench.port.IsOpen());
      bench.ExpectReady();
      bench.ExpectUsable();
    }
  }
}

void ConsoleFaults::CloseThePortDuringTheWait() const {
  SCOPED_TRACE(std::string(command_.button) + ", port closed from the menu during the wait");
  ConsoleBench bench([](Line& line) {
    line.After(15, [&line] { line.Port().Close(); });
    line.Send(25, line.Good());
  });
  const PressEnd end = bench.Press(command_, command_.SendsTwoBlocks());
  EXPECT_EQ(bench.Text(Field::LblHints), command_.hints);
  if (command_.SendsTwoBlocks()) {
    // The second block meets the closed port.
    EXPECT_EQ(end.error,
              "COM 1 is not open, so nothing was sent\r\n\r\n"
              "Choose a speed in \"Setting\" - \"Baud Rate\" to open it.");
    EXPECT_EQ(bench.Text(Field::TxtResponse), "");
  } else {
    EXPECT_EQ(end.error, "");
    EXPECT_EQ(bench.Text(Field::TxtResponse), "Time up! ");
    ExpectEnd(Ending::kLimit, end.milliseconds);
  }
  bench.ExpectReady(command_.panel1_after, command_.panel2_after);
  bench.ExpectUsable();
}

TEST_P(ConsoleFaults, OfTheLineEndAsTheTableSays) {
  for (const LineFault& fault : LineFaults()) {
    SCOPED_TRACE(std::string(command_.button) + ", " + fault.name);
    RunLineFault(fault);
  }
}

TEST_P(ConsoleFaults, OfThePortAreToldOnceAndNothingMoreHappens) {
  for (const PortFault& fault : PortFaults()) {
    SCOPED_TRACE(std::string(command_.button) + ", " + fault.name);
    RunPortFault(fault);
  }
  if (command_.SendsNothing()) return;
  LoseTheDeviceInANestedCall();
  CloseThePortDuringTheWait();
}

INSTANTIATE_TEST_SUITE_P(Console, ConsoleFaults,
                         testing::ValuesIn(ConsoleCommands().begin(), ConsoleCommands().end()),
                         NameOfCase);

TEST(ConsoleFaultsTable, HasEveryCommand) { EXPECT_EQ(ConsoleCommands().size(), 48U); }

}  // namespace
}  // namespace vantrel::reliability
