// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/helpers.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace vantrel::printer {

class PrinterModel;
class PrinterServer;

// A page of controls for the printer itself: its power switch, how it is made and fitted, its line
// and its plug.
class PrinterPage : public QWidget {
  Q_OBJECT

 public:
  // All must outlive the page; `server` serves `model`.
  PrinterPage(PrinterModel& model, PrinterServer& server, dialogs::Helpers helpers,
              QWidget* parent = nullptr);

  // Shows the printer as it is now. Whoever owns the page calls it when the server tells of a
  // change.
  void Refresh();

 private:
  QWidget* MakePrinterGroup();
  QWidget* MakeLineGroup();
  void CmbSpeed_Click(int index);
  void CmdUnplug_Click();
  void CmdPlugIn_Click();

  PrinterModel& model_;
  PrinterServer& server_;
  dialogs::Helpers helpers_;
  QCheckBox* ChkPower = nullptr;
  std::array<QRadioButton*, 2> OptSeries{};
  QCheckBox* ChkCaseParts = nullptr;
  QComboBox* CmbSpeed = nullptr;
  QCheckBox* ChkPacing = nullptr;
  QPushButton* CmdUnplug = nullptr;
  QPushButton* CmdPlugIn = nullptr;
  QLabel* LblPlug = nullptr;
};

}  // namespace vantrel::printer
