// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vantrel::dialogs {

enum class Buttons { kOk, kYesNo, kYesNoCancel };
enum class Icon { kNone, kExclamation, kCritical };
enum class Answer { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

// The one way to ask and tell. Every call returns when the user has answered; events run meanwhile.
// Texts are plain text in UTF-8, a line break is CR LF.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // Shows a message box and returns the button pressed. Closing the box counts as No with kYesNo,
  // as Cancel with kYesNoCancel and as OK with kOk.
  virtual Answer MsgBox(const std::string& prompt, Buttons buttons, const std::string& title,
                        Icon icon = Icon::kNone) = 0;
  // Shows an input box that holds `default_text`; returns its text, or an empty text when it was
  // cancelled or closed.
  virtual std::string InputBox(const std::string& prompt, const std::string& title,
                               const std::string& default_text = "") = 0;
};

}  // namespace vantrel::dialogs
