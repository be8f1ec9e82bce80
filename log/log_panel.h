// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/helpers.h"

#include <QString>
#include <QWidget>

class QAction;
class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QHeaderView;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace vantrel::log {

class LineRecorder;
class LogModel;
class RowSeeker;

// A recorder's log as a table that follows, stays or stands still, can be filtered, looked through,
// copied and saved.
class LogPanel : public QWidget {
  Q_OBJECT

 public:
  // All must outlive the panel.
  LogPanel(LineRecorder& recorder, dialogs::Helpers helpers, QWidget* parent = nullptr);

  // Tells something below the table, until the next message.
  void Tell(const QString& message);
  // What stands in the table while nothing has gone over the line.
  void SetEmptyText(const QString& text);
  // So many whole rows, with all around them, need this height.
  int HeightFor(int rows) const;

  // The table's columns, whose widths may be kept.
  QHeaderView* Columns() const;
  // For a menu; their keys work wherever in the window the focus is.
  QAction* Find() const { return act_find_; }
  QAction* FindNext() const { return act_next_; }
  QAction* FindBack() const { return act_back_; }

  // What the buttons do.
  void CmdCopyLog_Click();
  void CmdSaveLog_Click();
  void CmdClearLog_Click();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QHBoxLayout* MakeBar();
  void MakeSearch(QHBoxLayout& bar);
  void MakeTable();
  QLineEdit* MakeEdit(const char* name, const QString& words, const QString& tip);
  QPushButton* MakeButton(const char* name, const QString& caption, const QString& tip,
                          void (LogPanel::*click)());
  QAction* MakeAction(const QString& caption, const QKeySequence& keys, void (LogPanel::*act)());
  void CmbLogDirection_Click(int index);
  void ChkPause_Click(bool paused);
  void CmdFindNext_Click() { Seek(true); }
  void CmdFindBack_Click() { Seek(false); }
  void BeginFind();
  void Seek(bool forward);
  void GoTo(int row);
  // Has the newest line in sight, if that is wished.
  void Follow();
  void ShowCount();
  void ShowWhyEmpty();

  LineRecorder& recorder_;
  dialogs::Helpers helpers_;
  LogModel* model_ = nullptr;
  RowSeeker* seeker_ = nullptr;
  QString empty_text_;
  QTableView* TxtLog = nullptr;
  QCheckBox* ChkFollow = nullptr;
  QCheckBox* ChkPause = nullptr;
  QComboBox* CmbLogDirection = nullptr;
  QLineEdit* TxtLogFilter = nullptr;
  QLineEdit* TxtLogFind = nullptr;
  QPushButton* CmdFindBack = nullptr;
  QPushButton* CmdFindNext = nullptr;
  QLabel* LblLog = nullptr;
  QLabel* LblLogEmpty = nullptr;
  QAction* act_find_ = nullptr;
  QAction* act_next_ = nullptr;
  QAction* act_back_ = nullptr;
};

}  // namespace vantrel::log
