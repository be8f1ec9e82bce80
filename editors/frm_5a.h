// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialogs.h"
#include "dialogs/sub_form.h"
#include "editors/control_settings.h"
#include "link/common.h"

#include <array>
#include <vector>

class QRadioButton;

namespace vantrel::editors {

// The LED and buzzer settings of 5Ah. ">>" leaves them in ControlDataString; the close box leaves
// it as it was.
class Frm5A : public dialogs::SubForm {
  Q_OBJECT

 public:
  // All three must outlive the form.
  Frm5A(link::CommonVariables& common, dialogs::Dialogs& dialogs, dialogs::Guard& guard,
        QWidget* parent = nullptr);

  // An option of a group was clicked. An index that the group lacks is reported and changes
  // nothing.
  void OptLED_Click(int Index) { Choose(Control::kLedOperation, Index); }
  void OptLEDColor_Click(int Index) { Choose(Control::kLedColor, Index); }
  void OptBuzzer_Click(int Index) { Choose(Control::kBuzzer, Index); }

 private:
  void CmdNext_Click();
  void Choose(Control control, int index);
  QWidget* MakeGroup(Control control);

  link::CommonVariables& common_;
  dialogs::Dialogs& dialogs_;
  ControlSettings settings_;
  std::array<std::vector<QRadioButton*>, kControls.size()> options_;
};

}  // namespace vantrel::editors
