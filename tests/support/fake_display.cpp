#include "tests/support/fake_display.h"

namespace vantrel {

const char* NameOf(Field field) {
  switch (field) {
    case Field::TxtCommand:
      return "TxtCommand";
    case Field::TxtSyntax:
      return "TxtSyntax";
    case Field::TxtResponse:
      return "TxtResponse";
    case Field::LblHints:
      return "LblHints";
    case Field::Panel1:
      return "Panel1";
    case Field::Panel2:
      return "Panel2";
  }
  return "?";
}

std::vector<std::string> FakeDisplay::TextsOf(Field field) const {
  const auto found = texts_.find(field);
  return found == texts_.end() ? std::vector<std::string>() : found->second;
}

void FakeDisplay::SetText(Field field, const std::string& text) {
  texts_[field].push_back(text);
  Note(log_, std::string(NameOf(field)) + " = \"" + text + "\"");
}

std::string FakeDisplay::Text(Field field) const {
  const auto found = texts_.find(field);
  return found == texts_.end() ? "" : found->second.back();
}

void FakeDisplay::EnableCommandButtons(bool enabled) {
  history_.push_back(enabled);
  Note(log_, enabled ? "Buttons on" : "Buttons off");
}

}  // namespace vantrel
