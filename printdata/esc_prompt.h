// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialogs.h"
#include "printdata/esc_sequence.h"

#include <string>

namespace vantrel::printdata {

// What an ESC button reads from its form and writes to it.
class EscForm {
 public:
  virtual ~EscForm() = default;
  virtual std::string PrintText() const = 0;
  // Whether direction 0 or 2 is the one selected.
  virtual bool IsVerticalSelected() const = 0;
  // `panel` is 1 or 2.
  virtual std::string PanelText(int panel) const = 0;
  virtual void SetPanelText(int panel, const std::string& text) = 0;
};

// A press of the sequence's button: asks, and composes the body into `data_string`. Returns true
// when the form is to unload, false when the user answered No. The prompt returns until its reply
// is accepted: its number is the whole number nearest to the one that the reply begins with, halves
// to even; Cancel and an empty reply are 0.
bool RunEscSequence(const EscSequence& sequence, EscForm& form, dialogs::Dialogs& dialogs,
                    std::string& data_string);

}  // namespace vantrel::printdata
