// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialogs.h"
#include "dialogs/guard.h"

#include <functional>
#include <string>

namespace vantrel::bench {

// No box is shown by what is measured.
class NoDialogs : public dialogs::Dialogs {
 public:
  dialogs::Answer MsgBox(const std::string&, dialogs::Buttons, const std::string&,
                         dialogs::Icon) override {
    return dialogs::Answer::kOk;
  }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override {
    return {};
  }
};

// Nothing of what is measured throws.
class NoGuard : public dialogs::Guard {
 public:
  void Run(const std::function<void()>& work) override { work(); }
};

}  // namespace vantrel::bench
