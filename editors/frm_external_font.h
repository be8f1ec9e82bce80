// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialogs.h"
#include "dialogs/panel_bar.h"
#include "dialogs/sub_form.h"
#include "editors/dot_grid.h"
#include "editors/font_editor.h"

#include <memory>

class QComboBox;
class QGroupBox;

namespace vantrel::editors {

// Draws the external character of 44h or 45h and leaves the data field in DataString.
class FrmExternalFont : public dialogs::SubForm {
  Q_OBJECT

 public:
  // All three must outlive the form.
  FrmExternalFont(link::CommonVariables& common, dialogs::Dialogs& dialogs, dialogs::Guard& guard,
                  QWidget* parent = nullptr);

 protected:
  void Form_Activate() override;

 private:
  void CmdNext_Click();
  // Shows what the editor holds.
  void ShowEditor();
  QWidget* MakeFontChoice();
  QWidget* MakeMatrix();

  link::CommonVariables& common_;
  dialogs::Dialogs& dialogs_;
  FontEditor editor_;
  QComboBox* image_no_;
  QGroupBox* matrix_;
  // Owned, and after the editor: the grid must not outlive it.
  std::unique_ptr<DotGrid> grid_;
  dialogs::PanelBar* status_bar_;
};

}  // namespace vantrel::editors
