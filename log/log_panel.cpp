// SPDX-License-Identifier: MIT

#include "log/log_panel.h"

#include "dialogs/dialogs.h"
#include "dialogs/file_chooser.h"
#include "dialogs/guard.h"
#include "log/line_recorder.h"
#include "log/log_model.h"
#include "log/log_table.h"
#include "log/row_seeker.h"
#include "log/save_log.h"

#include <QAction>
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
#include <initializer_list>
#include <string>

namespace vantrel::log {

using dialogs::GuardedSlot;

namespace {

constexpr int kSpacing = 6;

QString Lines(qsizetype count) {
  return count == 1 ? LogPanel::tr("1 line") : LogPanel::tr("%L1 lines").arg(count);
}

}  // namespace

LogPanel::LogPanel(LineRecorder& recorder, dialogs::Helpers helpers, QWidget* parent)
    : QWidget(parent),
      recorder_(recorder),
      helpers_(helpers),
      model_(new LogModel(recorder, this)),
      seeker_(new RowSeeker(*model_, this)),
      empty_text_(tr("Nothing on the line yet.")) {
  LblLog = new QLabel(this);
  LblLog->setObjectName("LblLog");
  LblLog->setTextFormat(Qt::PlainText);
  LblLog->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(kSpacing);
  layout->addLayout(MakeBar());
  MakeTable();
  layout->addWidget(TxtLog, 1);
  layout->addWidget(LblLog);
  const auto show = GuardedSlot(helpers_.guard, [this] {
    Follow();
    ShowCount();
  });
  connect(model_, &LogModel::rowsInserted, this, show);
  connect(model_, &LogModel::modelReset, this, show);
  connect(model_, &LogModel::rowsRemoved, this, show);
  connect(model_, &LogModel::Looked, this, show);
  // The model tells of nothing that it holds back.
  connect(&recorder_, &LineRecorder::Recorded, this, GuardedSlot(helpers_.guard, [this] {
    if (ChkPause->isChecked()) ShowCount();
  }));
  connect(seeker_, &RowSeeker::Found, this,
          GuardedSlot(helpers_.guard, [this](int row) { GoTo(row); }));
  connect(seeker_, &RowSeeker::NotFound, this, GuardedSlot(helpers_.guard, [this] {
            Tell(tr("\"%1\" was not found.").arg(TxtLogFind->text()));
          }));
  act_find_ = MakeAction(tr("&Find in the log"), QKeySequence::Find, &LogPanel::BeginFind);
  act_next_ = MakeAction(tr("Find &next"), Qt::Key_F3, &LogPanel::CmdFindNext_Click);
  act_back_ =
      MakeAction(tr("Find &previous"), Qt::SHIFT | Qt::Key_F3, &LogPanel::CmdFindBack_Click);
  ShowCount();
}

void LogPanel::Tell(const QString& message) {
  LblLog->setText(message);
  LblLog->setToolTip(message);
}

void LogPanel::SetEmptyText(const QString& text) {
  empty_text_ = text;
  ShowWhyEmpty();
}

int LogPanel::HeightFor(int rows) const {
  const int frame = 2 * TxtLog->frameWidth();
  return sizeHint().height() - TxtLog->sizeHint().height() + frame +
         TxtLog->horizontalHeader()->sizeHint().height() +
         rows * TxtLog->verticalHeader()->defaultSectionSize() +
         TxtLog->horizontalScrollBar()->sizeHint().height();
}

QHeaderView* LogPanel::Columns() const { return TxtLog->horizontalHeader(); }

bool LogPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == TxtLog && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
    helpers_.guard.Run([this] { CmdCopyLog_Click(); });
    return true;
  }
  if (watched == TxtLog->viewport() && event->type() == QEvent::Resize) {
    LblLogEmpty->setGeometry(TxtLog->viewport()->rect());
    QTimer::singleShot(0, this, GuardedSlot(helpers_.guard, [this] { Follow(); }));
  }
  // Someone who looks at earlier lines is not to be pulled away from them.
  if (watched == TxtLog->viewport() && event->type() == QEvent::Wheel &&
      static_cast<QWheelEvent*>(event)->angleDelta().y() > 0)
    ChkFollow->setChecked(false);
  return QWidget::eventFilter(watched, event);
}

QLineEdit* LogPanel::MakeEdit(const char* name, const QString& words, const QString& tip) {
  auto* edit = new QLineEdit(this);
  edit->setObjectName(name);
  edit->setPlaceholderText(words);
  edit->setAccessibleName(words);
  edit->setAccessibleDescription(tip);
  edit->setToolTip(tip);
  edit->setClearButtonEnabled(true);
  edit->setMinimumWidth(90);
  edit->setMaximumWidth(260);
  return edit;
}

QPushButton* LogPanel::MakeButton(const char* name, const QString& caption, const QString& tip,
                                  void (LogPanel::*click)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  // Narrower than a style wants buttons to be: there are many in the bar.
  button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  button->setMinimumWidth(button->fontMetrics().horizontalAdvance(caption) + 16);
  connect(button, &QPushButton::clicked, this,
          GuardedSlot(helpers_.guard, [this, click] { (this->*click)(); }));
  return button;
}

QAction* LogPanel::MakeAction(const QString& caption, const QKeySequence& keys,
                              void (LogPanel::*act)()) {
  auto* action = new QAction(caption, this);
  action->setShortcut(keys);
  connect(action, &QAction::triggered, this,
          GuardedSlot(helpers_.guard, [this, act] { (this->*act)(); }));
  addAction(action);
  return action;
}

QHBoxLayout* LogPanel::MakeBar() {
  ChkFollow = new QCheckBox(tr("Follo&w"), this);
  ChkFollow->setObjectName("ChkFollow");
  ChkFollow->setToolTip(tr("Keeps the newest line in sight."));
  ChkFollow->setChecked(true);
  connect(ChkFollow, &QCheckBox::toggled, this, GuardedSlot(helpers_.guard, [this] { Follow(); }));
  ChkPause = new QCheckBox(tr("P&ause"), this);
  ChkPause->setObjectName("ChkPause");
  ChkPause->setToolTip(tr("Shows nothing new; it is recorded, and shown afterwards."));
  connect(ChkPause, &QCheckBox::toggled, this,
          GuardedSlot(helpers_.guard, [this](bool paused) { ChkPause_Click(paused); }));
  CmbLogDirection = new QComboBox(this);
  CmbLogDirection->setObjectName("CmbLogDirection");
  CmbLogDirection->addItems({tr("Both ways"), tr("Received"), tr("Sent")});
  CmbLogDirection->setAccessibleName(tr("Direction of the lines shown"));
  // Its text stands in for the name on some systems.
  CmbLogDirection->setAccessibleDescription(CmbLogDirection->accessibleName());
  connect(CmbLogDirection, &QComboBox::currentIndexChanged, this,
          GuardedSlot(helpers_.guard, [this](int index) { CmbLogDirection_Click(index); }));
  TxtLogFilter = MakeEdit("TxtLogFilter", tr("Filter"),
                          tr("Shows the lines alone that hold this text in any column."));
  connect(TxtLogFilter, &QLineEdit::textChanged, this,
          GuardedSlot(helpers_.guard,
                      [this](const QString& text) { model_->SetText(text.trimmed()); }));
  auto* bar = new QHBoxLayout;
  for (QWidget* widget : std::initializer_list<QWidget*>{ChkFollow, ChkPause, CmbLogDirection})
    bar->addWidget(widget);
  bar->addWidget(TxtLogFilter, 1);
  MakeSearch(*bar);
  bar->addStretch(1);
  bar->addWidget(MakeButton("CmdCopyLog", tr("Cop&y"), tr("Copies the selected lines, or all."),
                            &LogPanel::CmdCopyLog_Click));
  bar->addWidget(MakeButton("CmdSaveLog", tr("&Save log..."),
                            tr("Saves the whole log as text, CSV or a capture."),
                            &LogPanel::CmdSaveLog_Click));
  bar->addWidget(
      MakeButton("CmdClearLog", tr("Clear"), tr("Empties the log."), &LogPanel::CmdClearLog_Click));
  return bar;
}

void LogPanel::MakeSearch(QHBoxLayout& bar) {
  TxtLogFind = MakeEdit("TxtLogFind", tr("Find"), tr("Finds this text in any column (Ctrl+F)."));
  connect(TxtLogFind, &QLineEdit::returnPressed, this,
          GuardedSlot(helpers_.guard, [this] { Seek(true); }));
  CmdFindBack = MakeButton("CmdFindBack", tr("Previous"), tr("Finds backwards (Shift+F3)."),
                           &LogPanel::CmdFindBack_Click);
  CmdFindNext = MakeButton("CmdFindNext", tr("Next"), tr("Finds forwards (F3)."),
                           &LogPanel::CmdFindNext_Click);
  bar.addWidget(TxtLogFind, 1);
  bar.addWidget(CmdFindBack);
  bar.addWidget(CmdFindNext);
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
  columns->moveSection(LogModel::kSince, LogModel::kTime + 1);
  columns->resizeSection(LogModel::kTime, fixed.horizontalAdvance("00:00:00.000") + margin);
  columns->resizeSection(LogModel::kSince,
                         fixed.horizontalAdvance("+000.000 s") + margin / 2 + RightMargin(*TxtLog));
  columns->resizeSection(LogModel::kDirection, fixed.horizontalAdvance("received ") + margin);
  columns->resizeSection(LogModel::kHex, fixed.horizontalAdvance('0') * 32 + margin);
  columns->resizeSection(LogModel::kCharacters, fixed.horizontalAdvance('0') * 18 + margin);
  LblLogEmpty = new QLabel(TxtLog->viewport());
  LblLogEmpty->setObjectName("LblLogEmpty");
  LblLogEmpty->setTextFormat(Qt::PlainText);
  LblLogEmpty->setWordWrap(true);
  LblLogEmpty->setAlignment(Qt::AlignCenter);
  LblLogEmpty->setForegroundRole(QPalette::Text);
  LblLogEmpty->setAttribute(Qt::WA_TransparentForMouseEvents);
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

void LogPanel::ChkPause_Click(bool paused) {
  model_->SetPaused(paused);
  ShowCount();
}

void LogPanel::BeginFind() {
  TxtLogFind->setFocus();
  TxtLogFind->selectAll();
}

void LogPanel::Seek(bool forward) {
  const QString text = TxtLogFind->text();
  if (text.isEmpty()) return BeginFind();
  const int rows = model_->rowCount();
  const QModelIndex current = TxtLog->currentIndex();
  const int from = current.isValid() ? current.row() : (forward ? -1 : rows);
  seeker_->SeekRound(forward, from, [this, text](int row) { return model_->Holds(row, text); });
}

void LogPanel::GoTo(int row) {
  ChkFollow->setChecked(false);
  TxtLog->setCurrentIndex(model_->index(row, LogModel::kTime));
  TxtLog->scrollTo(TxtLog->currentIndex(), QAbstractItemView::PositionAtCenter);
  ShowCount();
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
  const QString path =
      helpers_.files.SaveName(this, tr("Save log"), "vantrel-line.txt",
                              tr("Text (*.txt);;Comma-separated values (*.csv);;Capture "
                                 "(*.pcapng)"));
  if (path.isEmpty()) return;
  const std::string error =
      SaveLog(recorder_.Log(), QFile::encodeName(path).toStdString(), recorder_.Line());
  if (error.empty()) return Tell(tr("Saved to %1").arg(path));
  helpers_.dialogs.MsgBox(QString::fromLocal8Bit(error.c_str()).toStdString(),
                          dialogs::Buttons::kOk, tr("Save log").toStdString(),
                          dialogs::Icon::kCritical);
}

void LogPanel::CmdClearLog_Click() {
  recorder_.Clear();
  model_->CatchUp();
  ShowCount();
}

void LogPanel::Follow() {
  if (ChkFollow->isChecked()) TxtLog->scrollToBottom();
}

void LogPanel::ShowCount() {
  QString text = Lines(model_->rowCount());
  if (model_->IsLooking()) text += tr(", looking for more");
  if (ChkPause->isChecked()) {
    const auto held_back = static_cast<qulonglong>(model_->HeldBack());
    text += tr(", paused: %L1 more").arg(held_back);
  }
  Tell(text);
  ShowWhyEmpty();
}

void LogPanel::ShowWhyEmpty() {
  const bool is_empty = recorder_.Log().First() == recorder_.Log().End();
  LblLogEmpty->setVisible(model_->rowCount() == 0 && !model_->IsLooking());
  LblLogEmpty->setText(is_empty ? empty_text_ : tr("No line matches the filter."));
}

}  // namespace vantrel::log
