// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialogs.h"

namespace vantrel::support {

// The dialogs of the running case, to which the test program's application object hands its boxes.
// A case sets its own and takes them away at its end; a box that comes when there are none fails
// the case.
class CurrentDialogs : public dialogs::Dialogs {
 public:
  static CurrentDialogs& Instance();

  void Set(dialogs::Dialogs* dialogs) { dialogs_ = dialogs; }
  // The status with which a fault of the program ended the run, -1 while there was none.
  int end_status = -1;

  dialogs::Answer MsgBox(const std::string& prompt, dialogs::Buttons buttons,
                         const std::string& title, dialogs::Icon icon) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& default_text) override;

 private:
  dialogs::Dialogs* dialogs_ = nullptr;
};

}  // namespace vantrel::support
