// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vantrel::console {

// The editing forms. Each Show call loads the form afresh, shows it modally and returns when it is
// unloaded; what it composed stands in the common variables then.
class SubForms {
 public:
  virtual ~SubForms() = default;
  virtual void HideConsole() = 0;
  virtual void ShowConsole() = 0;
  virtual void ShowFrmPrintBuffer() = 0;
  virtual void ShowFrm4E(const std::string& caption) = 0;
  virtual void ShowFrmExternalImage() = 0;
  virtual void ShowFrmExternalFont(const std::string& caption) = 0;
  virtual void ShowFrm5A() = 0;
};

}  // namespace vantrel::console
