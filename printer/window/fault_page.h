// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/helpers.h"

#include <QString>
#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace vantrel::printer {

class PrinterModel;

// A page of controls that makes the printer have faults: which, and for how many commands; and
// what of it is still to come.
class FaultPage : public QWidget {
  Q_OBJECT

 public:
  // All must outlive the page.
  FaultPage(PrinterModel& model, dialogs::Helpers helpers, QWidget* parent = nullptr);

  // Shows what is still to go wrong. Whoever owns the page calls it when the model tells of a
  // change.
  void Refresh();

 private:
  QComboBox* MakeList();
  void CmbFaultCount_Click(int index);
  void CmdSetFault_Click();
  void CmdClearFault_Click();

  PrinterModel& model_;
  dialogs::Helpers helpers_;
  QComboBox* CmbFault = nullptr;
  QComboBox* CmbFaultCount = nullptr;
  QSpinBox* TxtFaultCount = nullptr;
  QPushButton* CmdSetFault = nullptr;
  QPushButton* CmdClearFault = nullptr;
  QLabel* LblFault = nullptr;
  QLabel* LblFaultRefusal = nullptr;
};

// A fault's text as the list shows it or as a person types it, as ParseFault reads it: what stands
// behind a dash is its meaning, and two hex digits alone are a status. "22 – No targeted Card" is
// "status 22".
QString FaultTextOf(const QString& shown);

}  // namespace vantrel::printer
