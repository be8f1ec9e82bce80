// SPDX-License-Identifier: MIT

#include "tests/support/fake_display.h"

namespace vantrel::support {

const char* NameOf(link::Field field) {
  switch (field) {
    case link::Field::TxtCommand:
      return "TxtCommand";
    case link::Field::TxtSyntax:
      return "TxtSyntax";
    case link::Field::TxtResponse:
      return "TxtResponse";
    case link::Field::LblHints:
      return "LblHints";
    case link::Field::Panel1:
      return "Panel1";
    case link::Field::Panel2:
      return "Panel2";
  }
  return "?";
}

std::vector<std::string> FakeDisplay::TextsOf(link::Field field) const {
  const auto found = texts_.find(field);
  return found == texts_.end() ? std::vector<std::string>() : found->second;
}

void FakeDisplay::SetText(link::Field field, const std::string& text) {
  texts_[field].push_back(text);
  Note(log_, std::string(NameOf(field)) + " = " + text);
}

std::string FakeDisplay::Text(link::Field field) const {
  const auto found = texts_.find(field);
  return found == texts_.end() ? "" : found->second.back();
}

void FakeDisplay::EnableCommandButtons(bool enabled) {
  history_.push_back(enabled);
  Note(log_, enabled ? "Buttons on" : "Buttons off");
}

void FakeDisplay::ShowLoss(const link::PortError& loss) { losses_.emplace_back(loss.what()); }

}  // namespace vantrel::support
