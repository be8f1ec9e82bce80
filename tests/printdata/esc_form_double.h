// SPDX-License-Identifier: MIT
#pragma once

#include "printdata/esc_prompt.h"

#include <array>
#include <stdexcept>

namespace vantrel::printdata {

// A form without windows.
class EscFormDouble : public EscForm {
 public:
  std::string PrintText() const override { return print_text; }
  bool IsVerticalSelected() const override { return vertical; }
  std::string PanelText(int panel) const override {
    return panels.at(static_cast<std::size_t>(panel - 1));
  }
  void SetPanelText(int panel, const std::string& text) override {
    panels.at(static_cast<std::size_t>(panel - 1)) = text;
  }

  std::string print_text = "Test Print";
  bool vertical = true;
  std::array<std::string, 2> panels;
};

inline const EscSequence& SequenceOf(const std::string& button) {
  for (const EscSequence& sequence : EscSequences())
    if (sequence.name == button) return sequence;
  throw std::invalid_argument("no such button: " + button);
}

}  // namespace vantrel::printdata
