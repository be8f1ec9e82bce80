#include "console/guarded_application.h"
#include "tests/support/current_dialogs.h"

#include <gtest/gtest.h>

namespace vantrel {

CurrentDialogs& CurrentDialogs::Instance() {
  static CurrentDialogs instance;
  return instance;
}

Answer CurrentDialogs::MsgBox(const std::string& prompt, Buttons buttons, const std::string& title,
                              Icon icon) {
  if (dialogs_ != nullptr) return dialogs_->MsgBox(prompt, buttons, title, icon);
  ADD_FAILURE() << "Unexpected message box \"" << title << "\": " << prompt;
  return Answer::kCancel;
}

std::string CurrentDialogs::InputBox(const std::string& prompt, const std::string& title,
                                     const std::string& default_text) {
  if (dialogs_ != nullptr) return dialogs_->InputBox(prompt, title, default_text);
  ADD_FAILURE() << "Unexpected input box \"" << title << "\": " << prompt;
  return {};
}

}  // namespace vantrel

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  auto& dialogs = vantrel::CurrentDialogs::Instance();
  vantrel::GuardedApplication application(argc, argv, dialogs,
                                          [&dialogs](int status) { dialogs.end_status = status; });
  return RUN_ALL_TESTS();
}
