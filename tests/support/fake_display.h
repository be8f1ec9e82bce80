// SPDX-License-Identifier: MIT
#pragma once

#include "link/display.h"
#include "tests/support/call_log.h"

#include <map>
#include <string>
#include <vector>

namespace vantrel::support {

// The control that shows a field: "TxtCommand", "LblHints", "Panel1" ...
const char* NameOf(link::Field field);

// The console's texts in memory. All are empty and the buttons enabled when made.
class FakeDisplay : public link::Display {
 public:
  // Writes such as "TxtCommand = 21" and "Buttons off" or "Buttons on" to the log.
  void LogTo(CallLog& log) { log_ = &log; }

  // Whether the command buttons are enabled.
  bool ButtonsEnabled() const { return history_.empty() || history_.back(); }
  // Every call of EnableCommandButtons, first to last.
  const std::vector<bool>& ButtonHistory() const { return history_; }
  // The messages of the losses that were shown, first to last.
  const std::vector<std::string>& Losses() const { return losses_; }
  // Every text that a field was given, first to last.
  std::vector<std::string> TextsOf(link::Field field) const;

  void SetText(link::Field field, const std::string& text) override;
  std::string Text(link::Field field) const override;
  void EnableCommandButtons(bool enabled) override;
  void ShowLoss(const link::PortError& loss) override;

 private:
  std::map<link::Field, std::vector<std::string>> texts_;
  std::vector<bool> history_;
  std::vector<std::string> losses_;
  CallLog* log_ = nullptr;
};

}  // namespace vantrel::support
