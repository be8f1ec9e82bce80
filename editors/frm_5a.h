#pragma once

#include "dialogs/dialogs.h"
#include "dialogs/sub_form.h"
#include "editors/control_settings.h"
#include "link/common.h"

#include <array>
#include <vector>

class QRadioButton;

namespace vantrel {

// The LED and buzzer settings of 5Ah. ">>" leaves them in ControlDataString; the close box leaves
// it as it was.
class Frm5A : public SubForm {
  Q_OBJECT

 public:
  Frm5A(CommonVariables& common, Dialogs& dialogs, QWidget* parent = nullptr);

  // An option of a group was clicked. An index that the group lacks is reported and changes
  // nothing.
  void OptLED_Click(int Index) { Choose(Control::kLedOperation, Index); }
  void OptLEDColor_Click(int Index) { Choose(Control::kLedColor, Index); }
  void OptBuzzer_Click(int Index) { Choose(Control::kBuzzer, Index); }

 private:
  void CmdNext_Click();
  void Choose(Control control, int index);
  QWidget* MakeGroup(Control control);

  CommonVariables& common_;
  Dialogs& dialogs_;
  ControlSettings settings_;
  std::array<std::vector<QRadioButton*>, kControls.size()> options_;
};

}  // namespace vantrel
