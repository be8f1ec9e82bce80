#pragma once

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
  // `model` must outlive the page.
  explicit FaultPage(PrinterModel& model, QWidget* parent = nullptr);

  // Shows what is still to go wrong. Whoever owns the page calls it when the model tells of a
  // change.
  void Refresh();

 private:
  void CmbFaultCount_Click(int index);
  void CmdSetFault_Click();
  void CmdClearFault_Click();

  PrinterModel& model_;
  QComboBox* CmbFault = nullptr;
  QComboBox* CmbFaultCount = nullptr;
  QSpinBox* TxtFaultCount = nullptr;
  QPushButton* CmdSetFault = nullptr;
  QPushButton* CmdClearFault = nullptr;
  QLabel* LblFault = nullptr;
  QLabel* LblFaultRefusal = nullptr;
};

}  // namespace vantrel::printer
