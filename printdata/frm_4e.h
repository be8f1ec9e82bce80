// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/sub_form.h"
#include "link/common.h"
#include "printdata/barcode.h"

#include <array>

class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace vantrel::dialogs {
class DigitBox;
class PanelBar;
}  // namespace vantrel::dialogs

namespace vantrel::printdata {

// How the keys of the pad lie.
struct KeyArrangement {
  int columns;
  int points_larger;     // than the form's font
  int function_columns;  // that a key beyond the ninety-ninth takes
};

// Composes the data field of 4Eh into `common.DataString`. The constructor empties DataString; it
// stays empty when the form is closed otherwise than by CmdNext.
class Frm4E : public dialogs::SubForm {
  Q_OBJECT

 public:
  // `common` and `guard` outlive the form.
  Frm4E(link::CommonVariables& common, dialogs::Guard& guard, QWidget* parent = nullptr);

 private:
  QGroupBox* MakeBarcodeType();
  QGroupBox* MakeCodeSet();
  QGroupBox* MakeStartStop();
  QGroupBox* MakeYCoordinate();
  QGroupBox* MakeKeys();
  QGroupBox* MakeBarcodeData();

  void Form_Load();
  void OptBarcodeType_Click(int index);
  void OptCodeSet_Click(int index);
  void CmdKey_Click(int index);
  void CmdClear_Click();
  void CmdNext_Click();

  // Shows what the pad has become.
  void ShowPad();
  // Shows the keys in use with their captions, and hides the others.
  void ArrangeKeys(const KeyArrangement& arrangement);
  // Gives the pad the height of the tallest arrangement, so that the form keeps its size.
  void ReserveKeySpace();
  QFont KeyFont(const KeyArrangement& arrangement) const;
  int SelectedCodeSet() const;

  link::CommonVariables& common_;
  BarcodePad pad_;
  std::array<QRadioButton*, kBarcodeTypeCount> opt_barcode_type_;
  std::array<QRadioButton*, kCodeSetCount> opt_code_set_;
  std::array<QPushButton*, kBarcodeKeyCount> cmd_key_;
  QWidget* key_space_;
  QGridLayout* key_grid_;
  QGroupBox* fra_code_set_;
  QGroupBox* fra_start_stop_;
  QGroupBox* fra_key_;
  QComboBox* combo_start_;
  QComboBox* combo_end_;
  dialogs::DigitBox* txt_start_coordinate_;
  QLineEdit* txt_end_coordinate_;
  QLabel* lbl_barcode_data_;
  QPushButton* cmd_clear_;
  QPushButton* cmd_next_;
  dialogs::PanelBar* status_bar_;
};

}  // namespace vantrel::printdata
