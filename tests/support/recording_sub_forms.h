// SPDX-License-Identifier: MIT
#pragma once

#include "console/sub_forms.h"
#include "tests/support/call_log.h"

#include <functional>
#include <string>

namespace vantrel::support {

// Editing forms that are closed as soon as `meanwhile`, if there is one, has run. Writes "hide
// console", "show FrmPrintBuffer" and "show console" to the log.
class RecordingSubForms : public console::SubForms {
 public:
  explicit RecordingSubForms(CallLog& log) : log_(log) {}
  void HideConsole() override { log_.Add("hide console"); }
  void ShowConsole() override { log_.Add("show console"); }
  void ShowFrmPrintBuffer() override { Show("FrmPrintBuffer"); }
  void ShowFrm4E(const std::string& caption) override { Show("Frm4E: " + caption); }
  void ShowFrmExternalImage() override { Show("FrmExternalImage"); }
  void ShowFrmExternalFont(const std::string& caption) override {
    Show("FrmExternalFont: " + caption);
  }
  void ShowFrm5A() override { Show("Frm5A"); }

  std::function<void()> meanwhile;

 private:
  void Show(const std::string& form) {
    log_.Add("show " + form);
    if (meanwhile) meanwhile();
  }
  CallLog& log_;
};

}  // namespace vantrel::support
