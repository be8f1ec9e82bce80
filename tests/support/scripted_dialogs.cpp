// SPDX-License-Identifier: MIT

#include "tests/support/scripted_dialogs.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

namespace vantrel::support {

ScriptedDialogs::~ScriptedDialogs() {
  for (const Step& step : script_)
    ADD_FAILURE() << "Nobody asked for the answer "
                  << (step.is_input ? "\"" + step.text + "\""
                                    : std::to_string(static_cast<int>(step.answer)));
}

void ScriptedDialogs::Answers(dialogs::Answer answer, std::function<void()> meanwhile) {
  script_.push_back({false, answer, "", std::move(meanwhile)});
}

void ScriptedDialogs::Types(std::string text, std::function<void()> meanwhile) {
  script_.push_back({true, dialogs::Answer::kOk, std::move(text), std::move(meanwhile)});
}

const ScriptedDialogs::Shown& ScriptedDialogs::Last() const {
  static const Shown kNone;
  EXPECT_FALSE(shown_.empty()) << "No box was shown.";
  return shown_.empty() ? kNone : shown_.back();
}

ScriptedDialogs::Step ScriptedDialogs::Next(bool is_input, const Shown& shown) {
  shown_.push_back(shown);
  Note(log_, (is_input ? "input: " : "box: ") + shown.title);
  if (script_.empty() || script_.front().is_input != is_input) {
    ADD_FAILURE() << "Unexpected " << (is_input ? "input box" : "message box") << " \""
                  << shown.title << "\": " << shown.prompt;
    throw std::logic_error("unexpected box");
  }
  Step step = std::move(script_.front());
  script_.pop_front();
  if (step.meanwhile) step.meanwhile();
  return step;
}

dialogs::Answer ScriptedDialogs::MsgBox(const std::string& prompt, dialogs::Buttons buttons,
                                        const std::string& title, dialogs::Icon icon) {
  return Next(false, {prompt, title, buttons, icon, false, ""}).answer;
}

std::string ScriptedDialogs::InputBox(const std::string& prompt, const std::string& title,
                                      const std::string& default_text) {
  return Next(true,
              {prompt, title, dialogs::Buttons::kOk, dialogs::Icon::kNone, true, default_text})
      .text;
}

}  // namespace vantrel::support
