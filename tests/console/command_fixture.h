#pragma once

#include "console/command_handlers.h"
#include "link/clock.h"
#include "link/display.h"
#include "link/port.h"
#include "link/transaction.h"
#include "tests/support/scripted_dialogs.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

// All that happens to the console, a line each, in the order in which it happens: "Panel1 = text",
// "box: title", "input: title", "hide console", "limit 5000", "sent 02400343", "buttons off".
using Log = std::vector<std::string>;

class RecordingDisplay : public Display {
 public:
  explicit RecordingDisplay(Log& log) : log_(log) {}
  void SetText(Field field, const std::string& text) override;
  std::string Text(Field field) const override { return texts_.at(field); }
  void EnableCommandButtons(bool enabled) override;
  bool ButtonsEnabled() const { return enabled_; }

 private:
  Log& log_;
  // What a former command left behind.
  std::map<Field, std::string> texts_ = {
      {Field::TxtCommand, "old command"}, {Field::TxtSyntax, "old syntax"},
      {Field::TxtResponse, "old reply"},  {Field::LblHints, "old hints"},
      {Field::Panel1, "old panel 1"},     {Field::Panel2, "old panel 2"}};
  bool enabled_ = true;
};

// A clock that jumps: a wait lets the other side act or, when it has nothing to do, moves on to the
// timer that is due next.
class JumpingClock : public Clock {
 public:
  explicit JumpingClock(Log& log) : log_(log) {}
  void SetListener(Listener* listener) override { listener_ = listener; }
  void Start(Timer timer, int milliseconds) override;
  void Stop(Timer timer) override { due_.erase(timer); }
  void Yield() override {}
  void WaitForEvents() override;

  // Milliseconds since the test began.
  int Now() const { return now_; }
  // The last time limit that was started.
  int TimeLimit() const { return time_limit_; }
  // Returns whether anything happened.
  std::function<bool()> on_wait = [] { return false; };

 private:
  Log& log_;
  Listener* listener_ = nullptr;
  std::map<Timer, int> due_;
  int now_ = 0;
  int time_limit_ = 0;
};

// A frame that was sent, and what the console showed while it waited for the reply.
struct Exchange {
  std::string frame;  // hex text
  int time_limit;     // milliseconds
  std::string hints;
  std::string panel1;
  std::string panel2;
  bool buttons_enabled;

  bool operator==(const Exchange&) const = default;
};
void PrintTo(const Exchange& exchange, std::ostream* stream);

// A port that answers each frame from a script; a frame without an entry is answered by the normal
// status, 06h 02h code 20h 03h and the block check. An entry that is never used fails the test.
class ScriptedPort : public Port {
 public:
  ScriptedPort(Log& log, const RecordingDisplay& display, JumpingClock& clock);
  ~ScriptedPort() override;

  // The answer to the next frame: these bytes (hex text), nothing at all, something that happens
  // during the wait, or a failure to take the frame.
  void Replies(const std::string& hex);
  void StaysSilent();
  void Waits(std::function<void()> meanwhile);
  void Fails();

  const std::vector<Exchange>& Exchanges() const { return exchanges_; }

  void SetListener(PortListener* listener) override { listener_ = listener; }
  void SetCommPort(int) override {}
  void SetSettings(const std::string&) override {}
  bool IsOpen() const override { return is_open_; }
  void Open() override { is_open_ = true; }
  void Close() override { is_open_ = false; }
  Bytes Input() override { return input_; }
  void DiscardInput() override { input_.clear(); }
  void DiscardOutput() override {}
  void Output(const Bytes& bytes) override;

 private:
  // Answers the frame sent last; false when it has been answered.
  bool Answer();
  void Deliver(const std::string& hex);

  Log& log_;
  const RecordingDisplay& display_;
  JumpingClock& clock_;
  PortListener* listener_ = nullptr;
  std::deque<std::function<void()>> script_;  // an empty entry fails to take the frame
  std::function<void()> answer_;
  std::vector<Exchange> exchanges_;
  Bytes input_;
  bool is_open_ = true;
};

class RecordingDialogs : public ScriptedDialogs {
 public:
  explicit RecordingDialogs(Log& log) : log_(log) {}
  Answer MsgBox(const std::string& prompt, Buttons buttons, const std::string& title,
                Icon icon = Icon::kNone) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& default_text = "") override;

 private:
  Log& log_;
};

// Editing forms that are closed as soon as `meanwhile`, if there is one, has run.
class RecordingSubForms : public SubForms {
 public:
  explicit RecordingSubForms(Log& log) : log_(log) {}
  void HideConsole() override { log_.push_back("hide console"); }
  void ShowConsole() override { log_.push_back("show console"); }
  void ShowFrmPrintBuffer() override { Show("FrmPrintBuffer"); }
  void ShowFrm4E(const std::string& caption) override { Show("Frm4E: " + caption); }
  void ShowFrmExternalImage() override { Show("FrmExternalImage"); }
  void ShowFrmExternalFont(const std::string& caption) override {
    Show("FrmExternalFont: " + caption);
  }
  void ShowFrm5A() override { Show("Frm5A"); }

  std::function<void()> meanwhile;

 private:
  void Show(const std::string& form);
  Log& log_;
};

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

  // A case is named after its button.
  friend void PrintTo(const FixedCommand& command, std::ostream* stream) {
    *stream << command.button;
  }
};

// The command handlers with everything around them recorded or scripted. It is 20 November 2026,
// 21:05:03, in the German formats.
class CommandFixture : public testing::Test {
 protected:
  // The user presses the button of this name.
  void Press(std::string_view button);
  // What happened before the first exchange disabled the buttons, or all when there was none.
  Log BeforeExchange() const;
  // The prompts of all boxes with this title.
  std::vector<std::string> PromptsOf(const std::string& title) const;
  std::string Hints() const { return display.Text(Field::LblHints); }
  std::string Panel1() const { return display.Text(Field::Panel1); }
  std::string Panel2() const { return display.Text(Field::Panel2); }
  std::string Response() const { return display.Text(Field::TxtResponse); }
  // The frames sent so far, in hex text.
  std::vector<std::string> Frames() const;
  // That nothing was sent and the buttons were left alone.
  void ExpectNothingSent() const;
  // Presses the button and expects all of it: texts, then panels, then the frame; the panels
  // emptied and the meaning under the hints at the end.
  void ExpectFixedCommand(const FixedCommand& command);

  Log log;
  RecordingDisplay display{log};
  JumpingClock clock{log};
  ScriptedPort port{log, display, clock};
  RecordingDialogs dialogs{log};
  RecordingSubForms sub_forms{log};
  CommonVariables common;
  TimeText date{"20.11.26", "2026-11-20"};
  TimeText time{"21:05:03", "21:05:03"};
  Transaction transaction{port, display, clock, CodePage::kWestern};
  CommandHandlers handlers{
      transaction,       display, dialogs,
      sub_forms,         common,  SystemTime{[this] { return date; }, [this] { return time; }},
      CodePage::kWestern};
};

// Names a parameter's case after one of its members: NameBy<&FixedCommand::button>().
template <auto kMember>
struct NameBy {
  template <typename Info>
  std::string operator()(const Info& info) const {
    return info.param.*kMember;
  }
};

}  // namespace vantrel
