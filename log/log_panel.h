#pragma once

#include <QString>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace vantrel::dialogs {
class FileChooser;
}

namespace vantrel::log {

class LineRecorder;
class LogModel;

// A recorder's log as a table that follows or stays, can be filtered, copied and saved.
class LogPanel : public QWidget {
  Q_OBJECT

 public:
  // Both must outlive the panel.
  LogPanel(LineRecorder& recorder, dialogs::FileChooser& files, QWidget* parent = nullptr);

  // Tells something beside the buttons, until the next message.
  void Tell(const QString& message);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakeBar();
  void MakeTable();
  void CmbLogDirection_Click(int index);
  void CmdCopyLog_Click();
  void CmdSaveLog_Click();
  void CmdClearLog_Click();
  // Has the newest line in sight, if that is wished.
  void Follow();
  void ShowCount();

  LineRecorder& recorder_;
  dialogs::FileChooser& files_;
  LogModel* model_ = nullptr;
  QTableView* TxtLog = nullptr;
  QCheckBox* ChkFollow = nullptr;
  QComboBox* CmbLogDirection = nullptr;
  QLineEdit* TxtLogFilter = nullptr;
  QPushButton* CmdCopyLog = nullptr;
  QPushButton* CmdSaveLog = nullptr;
  QPushButton* CmdClearLog = nullptr;
  QLabel* LblLog = nullptr;
};

}  // namespace vantrel::log
