#pragma once

#include "dialogs/dialogs.h"

namespace vantrel::dialogs {

// Message boxes and input boxes as windows, over the active window.
class WindowDialogs : public Dialogs {
 public:
  Answer MsgBox(const std::string& prompt, Buttons buttons, const std::string& title,
                Icon icon = Icon::kNone) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& default_text = "") override;
};

}  // namespace vantrel::dialogs
