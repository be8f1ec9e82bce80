// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialogs.h"

#include <QPointer>
#include <QWidget>

namespace vantrel::dialogs {

// Message boxes and input boxes as windows. A box belongs to the window that asks: the modal one,
// else the active one, else the one that asked last, else any that is shown. It is wide enough for
// its title.
class WindowDialogs : public Dialogs {
 public:
  Answer MsgBox(const std::string& prompt, Buttons buttons, const std::string& title,
                Icon icon = Icon::kNone) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& default_text = "") override;

 private:
  QWidget* Asking();

  QPointer<QWidget> asked_last_;
};

}  // namespace vantrel::dialogs
