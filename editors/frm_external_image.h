// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialogs.h"
#include "dialogs/digit_box.h"
#include "dialogs/panel_bar.h"
#include "dialogs/sub_form.h"
#include "editors/dot_grid.h"
#include "editors/image_editor.h"

#include <memory>

class QGroupBox;
class QPushButton;

namespace vantrel::editors {

// Draws the external image of 43h or 4Dh and leaves the data field in DataString.
class FrmExternalImage : public dialogs::SubForm {
  Q_OBJECT

 public:
  // All three must outlive the form.
  FrmExternalImage(link::CommonVariables& common, dialogs::Dialogs& dialogs, dialogs::Guard& guard,
                   QWidget* parent = nullptr);

 protected:
  void Form_Activate() override;

 private:
  void TxtCoordinate_Click();
  void CmdSet_Click();
  void CmdClear_Click();
  void CmdNext_Click();
  // Shows what the editor holds.
  void ShowEditor();
  QWidget* MakeCoordinates();
  QWidget* MakeMatrix();

  dialogs::Dialogs& dialogs_;
  ImageEditor editor_;
  dialogs::DigitBox* x_coordinate_;
  dialogs::DigitBox* y_coordinate_;
  QPushButton* set_;
  QGroupBox* matrix_;
  // Owned, and after the editor: the grid must not outlive it.
  std::unique_ptr<DotGrid> grid_;
  QPushButton* clear_;
  QPushButton* next_;
  dialogs::PanelBar* status_bar_;
};

}  // namespace vantrel::editors
