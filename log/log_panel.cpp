#include "log/log_panel.h"

#include "dialogs/file_chooser.h"
#include "log/line_recorder.h"
#include "log/log_model.h"
#include "log/log_table.h"
#include "log/save_log.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <string>

namespace vantrel::log {
namespace {

QString Lines(qsizetype count) {
  return count == 1 ? LogPanel::tr("1 line") : LogPanel::tr("%L1 lines").arg(count);
}

}  // namespace

LogPanel::LogPanel(LineRecorder& recorder, dialogs::FileChooser& files, QWidget* parent)
    : QWidget(parent), recorder_(recorder), files_(files), model_(new LogModel(recorder, this)) {
  MakeTable();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(6);
  layout->addWidget(MakeBar());
  layout->addWidget(TxtLog, 1);
  connect(model_, &LogModel::rowsInserted, this, [this] {
    Follow();
    ShowCount();
  });
  connect(model_, &LogModel::rowsRemoved, this, &LogPanel::ShowCount);
  connect(model_, &LogModel::modelReset, this, [this] {
    Follow();
    ShowCount();
  });
  ShowCount();
}

void LogPanel::Tell(const QString& message) {
  LblLog->setText(message);
  LblLog->setToolTip(message);
}

bool LogPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == TxtLog && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
    CmdCopyLog_Click();
    return true;
  }
  if (watched == TxtLog->viewport() && event->type() == QEvent::Resize)
    QTimer::singleShot(0, this, &LogPanel::Follow);
  // Someone who looks at earlier lines is not to be pulled away from them.
  if (watched == TxtLog->viewport() && event->type() == QEvent::Wheel &&
      static_cast<QWheelEvent*>(event)->angleDelta().y() > 0)
    ChkFollow->setChecked(false);
  return QWidget::eventFilter(watched, event);
}

QWidget* LogPanel::MakeBar() {
  auto* bar = new QWidget(this);
  ChkFollow = new QCheckBox(tr("F&ollow"), bar);
  ChkFollow->setObjectName("ChkFollow");
  ChkFollow->setToolTip(tr("Keeps the newest line in sight."));
  ChkFollow->setChecked(true);
  connect(ChkFollow, &QCheckBox::toggled, this, &LogPanel::Follow);
  CmbLogDirection = new QComboBox(bar);
  CmbLogDirection->setObjectName("CmbLogDirection");
  CmbLogDirection->addItems({tr("Both ways"), tr("Received"), tr("Sent")});
  CmbLogDirection->setAccessibleName(tr("Direction of the lines shown"));
  connect(CmbLogDirection, &QComboBox::currentIndexChanged, this, &LogPanel::CmbLogDirection_Click);
  TxtLogFilter = new QLineEdit(bar);
  TxtLogFilter->setObjectName("TxtLogFilter");
  TxtLogFilter->setPlaceholderText(tr("Filter"));
  TxtLogFilter->setAccessibleName(tr("Filter"));
  TxtLogFilter->setToolTip(tr("Shows the lines alone that hold this text in any column."));
  TxtLogFilter->setClearButtonEnabled(true);
  TxtLogFilter->setMinimumWidth(160);
  TxtLogFilter->setMaximumWidth(260);
  connect(TxtLogFilter, &QLineEdit::textChanged, this,
          [this](const QString& text) { model_->SetText(text.trimmed()); });
  LblLog = new QLabel(bar);
  LblLog->setObjectName("LblLog");
  LblLog->setTextFormat(Qt::PlainText);
  LblLog->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  const auto button = [this, bar](const char* name, const QString& caption, const QString& tip,
                                  void (LogPanel::*click)()) {
    auto* made = new QPushButton(caption, bar);
    made->setObjectName(name);
    made->setToolTip(tip);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, click);
    return made;
  };
  CmdCopyLog = button("CmdCopyLog", tr("Cop&y"), tr("Copies the selected lines, or all."),
                      &LogPanel::CmdCopyLog_Click);
  CmdSaveLog = button("CmdSaveLog", tr("&Save log..."), tr("Saves the whole log as text or CSV."),
                      &LogPanel::CmdSaveLog_Click);
  CmdClearLog =
      button("CmdClearLog", tr("Clea&r"), tr("Empties the log."), &LogPanel::CmdClearLog_Click);

  auto* layout = new QHBoxLayout(bar);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(ChkFollow);
  layout->addWidget(CmbLogDirection);
  layout->addWidget(TxtLogFilter, 1);
  layout->addWidget(LblLog, 2);
  layout->addWidget(CmdCopyLog);
  layout->addWidget(CmdSaveLog);
  layout->addWidget(CmdClearLog);
  return bar;
}

void LogPanel::MakeTable() {
  TxtLog = new QTableView(this);
  TxtLog->setObjectName("TxtLog");
  TxtLog->setAccessibleName(tr("Line log"));
  TxtLog->setModel(model_);
  SetUpLogTable(*TxtLog);
  const QFontMetrics fixed(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  QHeaderView* columns = TxtLog->horizontalHeader();
  const int margin = 16;
  columns->resizeSection(LogModel::kTime, fixed.horizontalAdvance("00:00:00.000") + margin);
  columns->resizeSection(LogModel::kDirection, fixed.horizontalAdvance("received ") + margin);
  columns->resizeSection(LogModel::kHex, fixed.horizontalAdvance('0') * 32 + margin);
  columns->resizeSection(LogModel::kCharacters, fixed.horizontalAdvance('0') * 18 + margin);
  TxtLog->installEventFilter(this);
  TxtLog->viewport()->installEventFilter(this);
}

void LogPanel::CmbLogDirection_Click(int index) {
  if (index == 1)
    model_->SetDirection(protocol::Direction::kFromConsole);
  else if (index == 2)
    model_->SetDirection(protocol::Direction::kFromPrinter);
  else
    model_->SetDirection({});
}

void LogPanel::CmdCopyLog_Click() {
  std::string lines;
  qsizetype count = 0;
  const auto copy = [&](int row) {
    const LogEntry* entry = model_->EntryOf(row);
    if (entry == nullptr) return;
    lines += TextLineOf(*entry) + '\n';
    ++count;
  };
  QModelIndexList selected = TxtLog->selectionModel()->selectedRows();
  std::sort(selected.begin(), selected.end());
  for (const QModelIndex& index : selected) copy(index.row());
  if (selected.isEmpty()) {
    for (int row = 0; row < model_->rowCount(); ++row) copy(row);
  }
  QApplication::clipboard()->setText(QString::fromStdString(lines));
  Tell(tr("%1 copied").arg(Lines(count)));
}

void LogPanel::CmdSaveLog_Click() {
  const QString path = files_.SaveName(this, tr("Save log"), "vantrel-line.txt",
                                       tr("Text (*.txt);;Comma-separated values (*.csv);;Capture "
                                          "(*.pcapng)"));
  if (path.isEmpty()) return;
  const std::string error =
      SaveLog(recorder_.Log(), QFile::encodeName(path).toStdString(), recorder_.Line());
  Tell(error.empty() ? tr("Saved to %1").arg(path) : QString::fromLocal8Bit(error.c_str()));
}

void LogPanel::CmdClearLog_Click() {
  recorder_.Clear();
  model_->CatchUp();
  ShowCount();
}

void LogPanel::Follow() {
  if (ChkFollow->isChecked()) TxtLog->scrollToBottom();
}

void LogPanel::ShowCount() { Tell(Lines(model_->rowCount())); }

}  // namespace vantrel::log
