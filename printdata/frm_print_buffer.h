// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialogs.h"
#include "dialogs/sub_form.h"
#include "link/common.h"
#include "printdata/esc_prompt.h"
#include "printdata/print_buffer.h"

#include <array>
#include <optional>

class QGroupBox;
class QLineEdit;
class QRadioButton;

namespace vantrel::dialogs {
class DigitBox;
class PanelBar;
}  // namespace vantrel::dialogs

namespace vantrel::printdata {

// Composes the data field of 41h (`common.IsPrintData`) or 42h into `common.DataString`.
//
// After it was unloaded, DataString holds for 41h the header and a body: the body of the ESC button
// pressed, or the print text as it was when the form was activated. For 42h it holds what
// CmdNext composed, or, when the form was closed otherwise, what it held before.
class FrmPrintBuffer : public dialogs::SubForm, private EscForm {
  Q_OBJECT

 public:
  // All three must outlive the form.
  FrmPrintBuffer(link::CommonVariables& common, dialogs::Dialogs& dialogs, dialogs::Guard& guard,
                 QWidget* parent = nullptr);

 protected:
  void Form_Activate() override;
  void Form_Unload() override;

 private:
  QGroupBox* MakeCardDirection();
  QGroupBox* MakeCoordinate();
  QGroupBox* MakePrintText();
  QGroupBox* MakeCommandButtons();
  QGroupBox* MakeImageNo();
  void MakeLayout(QGroupBox* card_direction, QGroupBox* coordinate);

  void Opt_direction_Click(int index);
  bool TxtXCoordinate_LostFocus();
  bool TxtYCoordinate_LostFocus();
  bool TxtImageNo_LostFocus();
  void CmdNext_Click();
  void CmdEsc_Click(const EscSequence& sequence);

  // Puts the focus back and tells, when there is an error; returns whether there was one.
  bool Tell(QLineEdit* field, const std::optional<RangeError>& error);
  PrintSetting Setting() const;

  std::string PrintText() const override;
  bool IsVerticalSelected() const override;
  std::string PanelText(int panel) const override;
  void SetPanelText(int panel, const std::string& text) override;

  link::CommonVariables& common_;
  dialogs::Dialogs& dialogs_;
  std::array<QRadioButton*, 4> opt_direction_;
  dialogs::DigitBox* txt_x_coordinate_;
  dialogs::DigitBox* txt_y_coordinate_;
  dialogs::DigitBox* txt_image_no_;
  QLineEdit* txt_print_;
  QGroupBox* fra_print_text_;
  QGroupBox* fra_cmd_btn_;
  QGroupBox* fra_image_no_;
  std::array<QGroupBox*, 2> fra_description_;
  dialogs::PanelBar* status_bar_;
};

}  // namespace vantrel::printdata
