// SPDX-License-Identifier: MIT

#include "console/guarded_application.h"
#include "tests/support/current_dialogs.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel::support {

CurrentDialogs& CurrentDialogs::Instance() {
  static CurrentDialogs instance;
  return instance;
}

dialogs::Answer CurrentDialogs::MsgBox(const std::string& prompt, dialogs::Buttons buttons,
                                       const std::string& title, dialogs::Icon icon) {
  if (dialogs_ == nullptr) {
    ADD_FAILURE() << "Unexpected message box \"" << title << "\": " << prompt;
    return dialogs::Answer::kCancel;
  }
  try {
    return dialogs_->MsgBox(prompt, buttons, title, icon);
  } catch (const std::logic_error&) {
    // The box was unexpected and has failed the case. It comes from the guard, which must not
    // throw.
    return dialogs::Answer::kCancel;
  }
}

std::string CurrentDialogs::InputBox(const std::string& prompt, const std::string& title,
                                     const std::string& default_text) {
  if (dialogs_ != nullptr) return dialogs_->InputBox(prompt, title, default_text);
  ADD_FAILURE() << "Unexpected input box \"" << title << "\": " << prompt;
  return {};
}

}  // namespace vantrel::support

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  auto& dialogs = vantrel::support::CurrentDialogs::Instance();
  vantrel::console::GuardedApplication application(
      argc, argv, dialogs, [&dialogs](int status) { dialogs.end_status = status; });
  return RUN_ALL_TESTS();
}
