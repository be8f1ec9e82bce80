// SPDX-License-Identifier: MIT
#pragma once

#include "log/capture_loader.h"
#include "log/capture_rows.h"
#include "log/row_alignment.h"

#include <QElapsedTimer>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <cstddef>
#include <memory>
#include <thread>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTableView;

namespace vantrel::log {

class RowSeeker;
class ViewModel;

// The window of one capture, or of two side by side with their differences. It shows what has been
// read while the rest is read, and what comes to a file that grows. A file that is dropped on it is
// shown in place of the one, or of that on the side where it is dropped.
class FrmView : public QWidget {
  Q_OBJECT

 public:
  // One path, or two. Reading that takes longer than `patience` shows how far it is.
  explicit FrmView(const QStringList& paths, QWidget* parent = nullptr,
                   std::chrono::milliseconds patience = std::chrono::seconds(1));
  ~FrmView() override;

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // One of the captures.
  struct Side {
    QString path;
    // Shared with the thread that aligns them.
    std::shared_ptr<CaptureRows> rows = std::make_shared<CaptureRows>();
    std::unique_ptr<CaptureLoader> loader;
    bool has_caught_up = false;
    double part_read = 0;  // of the file, 0 to 1
    QStringList remarks;
    std::vector<std::vector<LogEntry>> held;  // rows that came while the lines are being aligned
  };

  QWidget* MakeBar();
  QWidget* MakeTable();
  void MakeShortcuts();
  void SetColumnWidths();
  QPushButton* MakeButton(const char* name, const QString& caption, const QString& tip);
  void Open(std::size_t side, const QString& path);
  void Take(Side& side, std::vector<LogEntry>& rows);
  void Clear(Side& side);
  // Finds, on a thread of its own, which rows belong together.
  void Align();
  // Takes the lines over unless either side shows other rows by now.
  void TakeLines(AlignedRows aligned, bool is_of_now);
  void ShowState();
  void ShowProgress();
  void GoTo(int row);
  // The next row, from the one chosen on, of which `is_sought`; in portions, between which events
  // run.
  void Seek(bool forward, const QString& text);
  void CmdCopyView_Click();
  std::size_t SideCount() const { return sides_.size(); }

  std::vector<std::unique_ptr<Side>> sides_;
  ViewModel* model_ = nullptr;
  std::thread aligner_;
  std::thread disposer_;       // frees rows that are shown no more
  unsigned replacements_ = 0;  // of the rows of either side
  bool aligning_ = false;
  bool wants_alignment_ = false;
  bool went_in_step_ = false;
  QTimer align_later_;
  std::chrono::milliseconds patience_;
  QElapsedTimer reading_since_;
  RowSeeker* seeker_ = nullptr;
  QString sought_;  // empty for a difference

  QLabel* LblFiles = nullptr;
  QLabel* LblView = nullptr;
  QCheckBox* ChkFollowView = nullptr;
  QLineEdit* TxtViewFilter = nullptr;
  QLineEdit* TxtViewFind = nullptr;
  QPushButton* CmdFindBack = nullptr;
  QPushButton* CmdFindNext = nullptr;
  QPushButton* CmdLastDifference = nullptr;
  QPushButton* CmdNextDifference = nullptr;
  QPushButton* CmdCopyView = nullptr;
  QProgressBar* PrgView = nullptr;
  QTableView* TxtView = nullptr;
};

}  // namespace vantrel::log
