// SPDX-License-Identifier: MIT

// 54h, 55h and 5Fh pressed while a command waits for a card, in every phase of its exchange, and
// answered well, badly and not at all. The outer call shares ReceiveBuffer, timers and texts with
// the nested one and goes on with what that left: this is how a card wait is cancelled.

#include "tests/reliability/console_bench.h"
#include "tests/reliability/line_faults.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

namespace vantrel::reliability {
namespace {

using link::Field;
using testing::IsEmpty;

// The commands during which the printer may wait for a person.
constexpr const char* kCardWaits[] = {"21", "22", "23", "29", "2A", "2B", "31",
                                      "32", "46", "47", "48", "51", "52", "53"};
constexpr int kNestedLimit = 5000;  // milliseconds, of 54h, 55h and 5Fh

// How the printer answers the nested command.
struct NestedAnswer {
  const char* name;
  Line::Strike strike;
  // TxtResponse at the end of the nested call, and at the end of the call around it.
  const char* nested_response;
  const char* outer_response;
  // What stands under the help text of the nested command in the end.
  const char* added;
  // Whether both end at once, not when the nested command's time limit has passed.
  bool at_once;
};

const std::vector<NestedAnswer>& NestedAnswers() {
  static const std::vector<NestedAnswer> kAnswers = {
      {"well", [](Line& line) { line.Send(25, line.Good()); }, "$shown", "Time up! $shown",
       "\r\n20h: Normal Status", false},
      {"well, after a resend",
       [](Line& line) { line.Send(25, line.Repetition() == 0 ? "15" : line.Good()); }, "$shown",
       "Time up! $shown", "\r\n20h: Normal Status", false},
      {"by status 38h", [](Line& line) { line.Send(25, line.Jammed()); }, "$jammed",
       "Time up! $jammed", "\r\n38h: Card jam", false},
      {"badly, by a wrong check",
       [](Line& line) { line.Send(25, line.Good().substr(0, line.Good().size() - 2) + "00"); },
       "Time up! ", "Time up! Time up! ", "", false},
      {"badly, by half a reply", [](Line& line) { line.Send(25, line.Good().substr(0, 6)); },
       "Time up! ", "Time up! Time up! ", "", false},
      {"badly, by 15h and nothing more",
       [](Line& line) {
         if (line.Repetition() == 0) line.Send(25, "15");
       },
       "Time up! &H15: Resend Request", "Time up! Time up! &H15: Resend Request", "", false},
      {"by 10h", [](Line& line) { line.Send(25, "10"); }, "&H10: Reject Response",
       "&H10: Reject Response", "", true},
      {"by an unknown control character", [](Line& line) { line.Send(25, "07"); },
       "Unknown Control Character code: 07", "Unknown Control Character code: 07", "", true},
      {"not at all", [](Line&) {}, "Time up! ", "Time up! Time up! ", "", false},
  };
  return kAnswers;
}

// When the nested command is pressed, with the outer frame out and no reply to it judged yet. The
// nested call forgets what had come, so that the rest is the same in each.
struct Phase {
  const char* name;
  Line::Strike before;  // from the moment at which the outer frame has come
  int milliseconds;     // of the press, from then on, or from the time limit on
  bool at_limit = false;
};

const std::vector<Phase>& Phases() {
  static const std::vector<Phase> kPhases = {
      {"with nothing received", [](Line&) {}, 25},
      {"as soon as the frame is out", [](Line&) {}, 0},
      {"behind 06h", [](Line& line) { line.Send(5, "06"); }, 25},
      {"in the middle of the reply",
       [](Line& line) { line.Send(5, line.Good().substr(0, line.Good().size() - 4)); }, 25},
      {"with the reply there and not yet judged", [](Line& line) { line.Send(22, line.Good()); },
       25},
      {"with a request to resend not yet judged", [](Line& line) { line.Send(22, "15"); }, 25},
      {"just before the time limit", [](Line&) {}, -5, true},
      {"with the time up and not yet noticed", [](Line&) {}, 0, true},
  };
  return kPhases;
}

class NestedWaits : public testing::TestWithParam<const char*> {
 protected:
  const ConsoleCommand& outer_ = CommandOf(GetParam());

  void ExpectNestedCommandShown(const ConsoleBench& bench, const ConsoleCommand& nested) const {
    EXPECT_EQ(bench.Text(Field::TxtCommand), nested.Code());
    EXPECT_EQ(bench.Text(Field::TxtSyntax), Spaced(nested.frames.front()));
  }
};

TEST_P(NestedWaits, GoOnWithWhatTheNestedCommandLeft) {
  for (const char* code : {"54", "55", "5F"}) {
    const ConsoleCommand& nested = CommandOf(code);
    for (const NestedAnswer& answer : NestedAnswers()) {
      for (const Phase& phase : Phases()) {
        SCOPED_TRACE(std::string(outer_.button) + ", " + code + "h pressed " + phase.name +
                     ", answered " + answer.name);
        int pressed = 0;
        std::string nested_response;
        bool enabled_between = false;
        ConsoleBench bench([&](Line& line) {
          if (line.Number() > 0) return answer.strike(line);
          if (line.Repetition() > 0) return;
          phase.before(line);
          line.After(phase.milliseconds + (phase.at_limit ? line.TimeLimit() : 0), [&] {
            pressed = bench.clock.Now();
            bench.PressInside(nested);
            nested_response = bench.Text(Field::TxtResponse);
            enabled_between = bench.display.ButtonsEnabled();
          });
        });
        const PressEnd end = bench.Press(outer_);
        EXPECT_EQ(end.error, "");
        EXPECT_EQ(nested_response, Filled(answer.nested_response, nested));
        EXPECT_TRUE(enabled_between);
        EXPECT_EQ(bench.Text(Field::TxtResponse), Filled(answer.outer_response, nested));
        EXPECT_EQ(bench.Text(Field::LblHints), nested.hints + std::string(answer.added));
        ExpectNestedCommandShown(bench, nested);
        EXPECT_EQ(bench.line.Number(), 1);
        const int since_press = bench.clock.Now() - pressed;
        EXPECT_GE(since_press, answer.at_once ? 25 : kNestedLimit);
        EXPECT_LE(since_press, answer.at_once ? 50 : kNestedLimit + 20);
        EXPECT_THAT(bench.clock.PortErrors(), IsEmpty());
        bench.ExpectReady();
        bench.ExpectUsable();
      }
    }
  }
}

// Pressed before the outer frame is shown: the nested call is over before the outer one begins,
// which then runs as ever; only the help text is the nested one's.
TEST_P(NestedWaits, RunUndisturbedBehindACommandPressedBeforeTheyBegin) {
  for (const char* code : {"54", "55", "5F"}) {
    const ConsoleCommand& nested = CommandOf(code);
    for (const NestedAnswer& answer : NestedAnswers()) {
      SCOPED_TRACE(std::string(outer_.button) + ", " + code + "h answered " + answer.name);
      ConsoleBench bench([&](Line& line) {
        line.Code() == code ? answer.strike(line) : line.Send(25, line.Good());
      });
      bench.clock.InYield(1, [&] { bench.PressInside(nested); });
      const PressEnd end = bench.Press(outer_);
      EXPECT_EQ(end.error, "");
      EXPECT_EQ(bench.port.Writes().back(), outer_.frames.front());
      EXPECT_EQ(bench.Text(Field::TxtCommand), outer_.Code());
      EXPECT_EQ(bench.Text(Field::TxtResponse), outer_.shown);
      EXPECT_EQ(bench.Text(Field::LblHints),
                nested.hints + std::string(answer.added) + "\r\n" + outer_.meaning);
      EXPECT_LE(end.milliseconds, (answer.at_once ? 50 : kNestedLimit + 20) + 40);
      bench.ExpectReady();
      bench.ExpectUsable();
    }
  }
}

// Pressed when the outer frame is shown and not yet out: it goes out behind the nested one, and
// what the nested call left is judged as if it were the answer.
TEST_P(NestedWaits, SendTheirFrameBehindACommandPressedBeforeTheWrite) {
  for (const char* code : {"54", "55", "5F"}) {
    const ConsoleCommand& nested = CommandOf(code);
    for (const NestedAnswer& answer : NestedAnswers()) {
      SCOPED_TRACE(std::string(outer_.button) + ", " + code + "h answered " + answer.name);
      ConsoleBench bench([&](Line& line) {
        if (line.Code() == code) answer.strike(line);
      });
      bench.clock.InYield(2, [&] { bench.PressInside(nested); });
      const PressEnd end = bench.Press(outer_);
      EXPECT_EQ(end.error, "");
      EXPECT_EQ(bench.port.Writes().back(), outer_.frames.front());
      ExpectNestedCommandShown(bench, nested);
      EXPECT_EQ(bench.Text(Field::TxtResponse), Filled(answer.outer_response, nested));
      EXPECT_EQ(bench.Text(Field::LblHints), nested.hints + std::string(answer.added));
      EXPECT_GE(end.milliseconds, answer.at_once ? 25 : kNestedLimit);
      EXPECT_LE(end.milliseconds, answer.at_once ? 50 : kNestedLimit + 20);
      bench.ExpectReady();
      bench.ExpectUsable();
    }
  }
}

// Presses each of `codes` inside the wait of the one before.
void PressDown(ConsoleBench& bench, std::vector<const char*> codes) {
  const ConsoleCommand& first = CommandOf(codes.front());
  codes.erase(codes.begin());
  if (!codes.empty()) bench.clock.After(1000, [&bench, codes] { PressDown(bench, codes); });
  bench.PressInside(first);
}

const std::vector<std::vector<const char*>>& Descents() {
  static const std::vector<std::vector<const char*>> kDescents = {
      {"54", "55"}, {"54", "5F"}, {"55", "54"}, {"55", "5F"},
      {"5F", "54"}, {"5F", "55"}, {"54", "54"}, {"5F", "5F"}};
  return kDescents;
}

TEST_P(NestedWaits, EndThreeDeepWithTheInnermostAnswer) {
  for (const std::vector<const char*>& codes : Descents()) {
    const ConsoleCommand& innermost = CommandOf(codes.back());
    for (const NestedAnswer& answer : NestedAnswers()) {
      SCOPED_TRACE(std::string(outer_.button) + ", in it " + codes[0] + "h, in it " + codes[1] +
                   "h, answered " + answer.name);
      ConsoleBench bench([&](Line& line) {
        if (line.Number() == 2) return answer.strike(line);
        if (line.Number() == 0) line.After(1000, [&] { PressDown(bench, codes); });
      });
      const PressEnd end = bench.Press(outer_);
      EXPECT_EQ(end.error, "");
      EXPECT_EQ(bench.line.Number(), 2);
      // Two calls end with what the innermost left, each telling a time limit that has passed. A
      // command inside itself takes the reply, too, and tells it again.
      const bool is_taken_twice =
          std::string(codes[0]) == codes[1] && std::string(answer.nested_response).starts_with("$");
      const std::string outer = Filled(answer.outer_response, innermost);
      EXPECT_EQ(bench.Text(Field::TxtResponse),
                answer.at_once || is_taken_twice ? outer : "Time up! " + outer);
      EXPECT_EQ(bench.Text(Field::LblHints),
                innermost.hints + std::string(answer.added) + (is_taken_twice ? answer.added : ""));
      ExpectNestedCommandShown(bench, innermost);
      EXPECT_GE(end.milliseconds, answer.at_once ? 2025 : 2000 + kNestedLimit);
      EXPECT_LE(end.milliseconds, answer.at_once ? 2060 : 2040 + kNestedLimit);
      EXPECT_THAT(bench.clock.PortErrors(), IsEmpty());
      bench.ExpectReady();
      bench.ExpectUsable();
    }
  }
}

// The window is closed while one, two and three calls wait: each ends without a word.
TEST_P(NestedWaits, EndSilentlyWhenTheWindowIsClosed) {
  for (int depth = 1; depth <= 3; ++depth) {
    for (const std::vector<const char*>& codes : Descents()) {
      SCOPED_TRACE(std::string(outer_.button) + ", in it " + codes[0] + "h, in it " + codes[1] +
                   "h, closed with " + std::to_string(depth) + " waiting");
      const std::vector<const char*> pressed(codes.begin(), codes.begin() + depth - 1);
      ConsoleBench bench([&](Line& line) {
        if (line.Number() == 0 && !pressed.empty())
          line.After(1000, [&] { PressDown(bench, pressed); });
        if (line.Number() == depth - 1)
          line.After(25, [&] {
            bench.port.Close();
            bench.transaction.Abandon();
          });
      });
      const PressEnd end = bench.Press(outer_);
      EXPECT_TRUE(end.silently) << end.error;
      EXPECT_EQ(bench.clock.EventsEndedSilently(), depth - 1);
      EXPECT_THAT(bench.clock.PortErrors(), IsEmpty());
      EXPECT_LE(end.milliseconds, 1000 * (depth - 1) + 60);
      EXPECT_EQ(bench.Text(Field::TxtResponse), "");
      bench.ExpectReady();
      bench.ExpectUsable();
    }
  }
}

std::string NameOfCase(const testing::TestParamInfo<const char*>& info) {
  return info.param + std::string("h");
}

INSTANTIATE_TEST_SUITE_P(Console, NestedWaits, testing::ValuesIn(kCardWaits), NameOfCase);

}  // namespace
}  // namespace vantrel::reliability
