#pragma once

#include "link/display.h"
#include "tests/support/call_log.h"

#include <map>
#include <string>
#include <vector>

namespace vantrel {

// The control that shows a field: "TxtCommand", "LblHints", "Panel1" ...
const char* NameOf(Field field);

// The console's texts in memory. All are empty and the buttons enabled when made.
class FakeDisplay : public Display {
 public:
  // Writes such as "TxtCommand = \"21\"" and "Buttons off" or "Buttons on" to the log.
  void LogTo(CallLog& log) { log_ = &log; }

  // Whether the command buttons are enabled.
  bool ButtonsEnabled() const { return history_.empty() || history_.back(); }
  // Every call of EnableCommandButtons, first to last.
  const std::vector<bool>& ButtonHistory() const { return history_; }
  // Every text that a field was given, first to last.
  std::vector<std::string> TextsOf(Field field) const;

  void SetText(Field field, const std::string& text) override;
  std::string Text(Field field) const override;
  void EnableCommandButtons(bool enabled) override;

 private:
  std::map<Field, std::vector<std::string>> texts_;
  std::vector<bool> history_;
  CallLog* log_ = nullptr;
};

}  // namespace vantrel
