#pragma once

#include <QWidget>

#include <functional>
#include <string>

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace vantrel {

// A page of controls that makes the printer have faults: which, and for how many commands.
class FaultPage : public QWidget {
  Q_OBJECT

 public:
  // Makes the printer have a fault, given in words ("status 38 for 3"), or none ("clear"); false,
  // with the reason in `error`, for a text that it does not take.
  using FaultSetter = std::function<bool(const std::string& text, std::string& error)>;

  explicit FaultPage(FaultSetter setter, QWidget* parent = nullptr);

 private:
  void CmbFaultCount_Click(int index);
  void CmdSetFault_Click();
  void CmdClearFault_Click();
  // Hands a fault on and tells what came of it.
  void Set(const QString& text, const QString& done);

  FaultSetter set_;
  QComboBox* CmbFault = nullptr;
  QComboBox* CmbFaultCount = nullptr;
  QSpinBox* TxtFaultCount = nullptr;
  QPushButton* CmdSetFault = nullptr;
  QPushButton* CmdClearFault = nullptr;
  QLabel* LblFault = nullptr;
};

}  // namespace vantrel
