// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialogs.h"
#include "tests/support/call_log.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace vantrel::support {

// Dialogs that answer from a script. A question that the script does not expect fails the test at
// once and ends the case's work by an exception; so does an answer that nobody asked for, when the
// script goes out of scope.
class ScriptedDialogs : public dialogs::Dialogs {
 public:
  struct Shown {
    std::string prompt;
    std::string title;
    dialogs::Buttons buttons = dialogs::Buttons::kOk;
    dialogs::Icon icon = dialogs::Icon::kNone;
    bool is_input = false;
    std::string default_text;
  };

  ~ScriptedDialogs() override;

  // Writes "box: TITLE" and "input: TITLE" to the log.
  void LogTo(CallLog& log) { log_ = &log; }

  // Adds the answer to the next message box or input box. `meanwhile` runs while the box is shown.
  void Answers(dialogs::Answer answer, std::function<void()> meanwhile = {});
  void Types(std::string text, std::function<void()> meanwhile = {});
  // The user presses Cancel in an input box.
  void CancelsInput() { Types(""); }

  // Every box shown so far, first to last.
  const std::vector<Shown>& All() const { return shown_; }
  // The last box shown; fails the test when there was none.
  const Shown& Last() const;

  dialogs::Answer MsgBox(const std::string& prompt, dialogs::Buttons buttons,
                         const std::string& title,
                         dialogs::Icon icon = dialogs::Icon::kNone) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& default_text = "") override;

 private:
  struct Step {
    bool is_input;
    dialogs::Answer answer;
    std::string text;
    std::function<void()> meanwhile;
  };
  Step Next(bool is_input, const Shown& shown);

  std::deque<Step> script_;
  std::vector<Shown> shown_;
  CallLog* log_ = nullptr;
};

}  // namespace vantrel::support
