// SPDX-License-Identifier: MIT
#pragma once

#include "console/command_handlers.h"
#include "link/transaction.h"
#include "tests/support/call_log.h"
#include "tests/support/fake_display.h"
#include "tests/support/fake_port.h"
#include "tests/support/manual_clock.h"
#include "tests/support/recording_sub_forms.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/scripted_replies.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::console {

// A command without parameters: what the console shows and sends, and how it takes the reply.
struct FixedCommand {
  const char* button;
  const char* hints;
  const char* panel1;
  const char* panel2;
  const char* frame;
  int time_limit;
  const char* reply;
  const char* meaning;  // the line that the reply adds to the hints
};
// A case is named after its button.
void PrintTo(const FixedCommand& command, std::ostream* stream);

// The command handlers with everything around them recorded or scripted. It is 20 November 2026,
// 21:05:03, in the German formats; the texts of a former command stand in every field.
class CommandFixture : public testing::Test {
 protected:
  using Exchange = support::Exchange;

  CommandFixture();

  // The user presses the button of this name.
  void Press(std::string_view button);
  // What happened before the first exchange disabled the buttons, or all when there was none.
  std::vector<std::string> BeforeExchange() const;
  // The prompts of all boxes with this title.
  std::vector<std::string> PromptsOf(const std::string& title) const;
  std::string Hints() const { return display.Text(link::Field::LblHints); }
  std::string Panel1() const { return display.Text(link::Field::Panel1); }
  std::string Panel2() const { return display.Text(link::Field::Panel2); }
  std::string Response() const { return display.Text(link::Field::TxtResponse); }
  // The frames sent so far, in hex text.
  const std::vector<std::string>& Frames() const { return port.Writes(); }
  // That nothing was sent and the buttons were left alone.
  void ExpectNothingSent() const;
  // Presses the button and expects all of it: texts, then panels, then the frame; the panels
  // emptied and the meaning under the hints at the end.
  void ExpectFixedCommand(const FixedCommand& command);

  support::CallLog log;
  support::FakeDisplay display;
  support::ManualClock clock;
  support::FakePort port;
  support::ScriptedReplies printer{port, clock, display};
  support::ScriptedDialogs dialogs;
  support::RecordingSubForms sub_forms{log};
  link::CommonVariables common;
  TimeText date{"20.11.26", "2026-11-20"};
  TimeText time{"21:05:03", "21:05:03"};
  link::Transaction transaction{port, display, clock, link::CodePage::kWestern};
  CommandHandlers handlers{transaction,
                           display,
                           dialogs,
                           sub_forms,
                           common,
                           SystemTime{[this] { return date; }, [this] { return time; }},
                           link::CodePage::kWestern};
};

// Names a parameter's case after one of its members: NameBy<&FixedCommand::button>().
template <auto kMember>
struct NameBy {
  template <typename Info>
  std::string operator()(const Info& info) const {
    return info.param.*kMember;
  }
};

}  // namespace vantrel::console
