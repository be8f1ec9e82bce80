// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/guard.h"

namespace vantrel::dialogs {

class Dialogs;

// A guard that tells what was thrown in a box, after which the program goes on, so that what it
// holds can still be saved.
class TellingGuard : public Guard {
 public:
  // `dialogs` must outlive the guard.
  explicit TellingGuard(Dialogs& dialogs) : dialogs_(dialogs) {}

  void Run(const std::function<void()>& work) override;

 private:
  Dialogs& dialogs_;
};

}  // namespace vantrel::dialogs
