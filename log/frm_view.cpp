// SPDX-License-Identifier: MIT

#include "log/frm_view.h"

#include "log/log_table.h"
#include "log/row_seeker.h"
#include "log/view_model.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <initializer_list>
#include <string>
#include <utility>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;

// How long a file that grows is let grow before the lines are aligned anew.
constexpr auto kAlignDelay = 500ms;

QLabel* MakePlainLabel(const char* name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  return label;
}

QStringList LocalFiles(const QMimeData* data) {
  QStringList files;
  for (const QUrl& url : data->urls()) {
    if (url.isLocalFile()) files += url.toLocalFile();
  }
  return files;
}

}  // namespace

FrmView::FrmView(const QStringList& paths, QWidget* parent, std::chrono::milliseconds patience)
    : QWidget(parent), patience_(patience) {
  setObjectName("FrmView");
  setAcceptDrops(true);
  for (qsizetype i = 0; i < std::min<qsizetype>(paths.size(), 2); ++i)
    sides_.push_back(std::make_unique<Side>());
  model_ = new ViewModel(*sides_[0]->rows, SideCount() > 1 ? sides_[1]->rows.get() : nullptr, this);
  LblFiles = MakePlainLabel("LblFiles", this);
  LblView = MakePlainLabel("LblView", this);
  PrgView = new QProgressBar(this);
  PrgView->setObjectName("PrgView");
  PrgView->setAccessibleName(tr("Part of the capture that has been read"));
  PrgView->hide();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(8);
  layout->addWidget(LblFiles);
  layout->addWidget(MakeBar());
  layout->addWidget(MakeTable(), 1);
  layout->addWidget(PrgView);
  layout->addWidget(LblView);
  MakeShortcuts();
  align_later_.setSingleShot(true);
  connect(&align_later_, &QTimer::timeout, this, &FrmView::Align);
  seeker_ = new RowSeeker(*model_, this);
  connect(seeker_, &RowSeeker::Found, this, [this](int row) {
    GoTo(row);
    ShowState();
  });
  connect(seeker_, &RowSeeker::NotFound, this, [this](bool forward) {
    LblView->setText(sought_.isEmpty() ? (forward ? tr("There is no further difference.")
                                                  : tr("There is no difference before."))
                                       : tr("\"%1\" was not found.").arg(sought_));
  });
  resize(SideCount() > 1 ? 1400 : 1000, 600);
  for (std::size_t i = 0; i < SideCount(); ++i) Open(i, paths[static_cast<qsizetype>(i)]);
}

FrmView::~FrmView() {
  for (const auto& side : sides_) side->loader.reset();
  for (std::thread* thread : {&aligner_, &disposer_}) {
    if (thread->joinable()) thread->join();
  }
}

QPushButton* FrmView::MakeButton(const char* name, const QString& caption, const QString& tip) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  return button;
}

QWidget* FrmView::MakeBar() {
  const auto edit = [this](const char* name, const QString& words, const QString& tip) {
    auto* made = new QLineEdit(this);
    made->setObjectName(name);
    made->setPlaceholderText(words);
    made->setAccessibleName(words);
    made->setMinimumWidth(90);
    made->setToolTip(tip);
    made->setClearButtonEnabled(true);
    made->setMaximumWidth(260);
    return made;
  };
  auto* bar = new QWidget(this);
  auto* layout = new QHBoxLayout(bar);
  layout->setContentsMargins(0, 0, 0, 0);
  ChkFollowView = new QCheckBox(tr("F&ollow"), bar);
  ChkFollowView->setObjectName("ChkFollowView");
  ChkFollowView->setToolTip(tr("Keeps the newest line in sight."));
  TxtViewFilter = edit("TxtViewFilter", tr("Filter"),
                       tr("Shows the lines alone that hold this text in any column."));
  TxtViewFind = edit("TxtViewFind", tr("Find"), tr("Finds this text in any column (Ctrl+F)."));
  CmdFindBack = MakeButton("CmdFindBack", tr("&Previous"), tr("Finds backwards (Shift+F3)."));
  CmdFindNext = MakeButton("CmdFindNext", tr("&Next"), tr("Finds forwards (F3)."));
  CmdLastDifference = MakeButton("CmdLastDifference", tr("Previous &difference"),
                                 tr("Goes to the difference before (Shift+F8)."));
  CmdNextDifference = MakeButton("CmdNextDifference", tr("Next d&ifference"),
                                 tr("Goes to the next difference (F8)."));
  CmdCopyView = MakeButton("CmdCopyView", tr("Cop&y"), tr("Copies the selected lines, or all."));
  for (QWidget* widget : std::initializer_list<QWidget*>{ChkFollowView, TxtViewFilter, TxtViewFind,
                                                         CmdFindBack, CmdFindNext})
    layout->addWidget(widget);
  layout->addStretch(1);
  for (QWidget* widget : {CmdLastDifference, CmdNextDifference, CmdCopyView})
    layout->addWidget(widget);
  CmdLastDifference->setVisible(SideCount() > 1);
  CmdNextDifference->setVisible(SideCount() > 1);
  connect(ChkFollowView, &QCheckBox::toggled, this, [this](bool follows) {
    if (follows) TxtView->scrollToBottom();
  });
  connect(TxtViewFilter, &QLineEdit::textChanged, this,
          [this](const QString& text) { model_->SetText(text.trimmed()); });
  connect(TxtViewFind, &QLineEdit::returnPressed, this, [this] { CmdFindNext->click(); });
  connect(CmdFindNext, &QPushButton::clicked, this, [this] { Seek(true, TxtViewFind->text()); });
  connect(CmdFindBack, &QPushButton::clicked, this, [this] { Seek(false, TxtViewFind->text()); });
  connect(CmdNextDifference, &QPushButton::clicked, this, [this] { Seek(true, {}); });
  connect(CmdLastDifference, &QPushButton::clicked, this, [this] { Seek(false, {}); });
  connect(CmdCopyView, &QPushButton::clicked, this, &FrmView::CmdCopyView_Click);
  return bar;
}

QWidget* FrmView::MakeTable() {
  TxtView = new QTableView(this);
  TxtView->setObjectName("TxtView");
  TxtView->setAccessibleName(tr("Lines of the capture"));
  SetUpLogTable(*TxtView);
  TxtView->setModel(model_);
  TxtView->installEventFilter(this);
  SetColumnWidths();
  connect(model_, &ViewModel::rowsInserted, this, [this] {
    if (ChkFollowView->isChecked()) TxtView->scrollToBottom();
    ShowState();
  });
  connect(model_, &ViewModel::modelReset, this, &FrmView::ShowState);
  return TxtView;
}

void FrmView::SetColumnWidths() {
  const QFontMetrics fixed(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  const int margin = 16;
  QHeaderView* columns = TxtView->horizontalHeader();
  for (int side = 0; side < static_cast<int>(SideCount()); ++side) {
    const int first = side * (ViewModel::kColumns + 1);
    const auto width = [&](int column, const QString& text) {
      columns->resizeSection(first + column, fixed.horizontalAdvance(text) + margin);
    };
    width(ViewModel::kTime, "00:00:00.000");
    width(ViewModel::kDirection, "received ");
    columns->resizeSection(first + ViewModel::kTook, fixed.horizontalAdvance("+00.000 s wait") +
                                                         margin / 2 + RightMargin(*TxtView));
    width(ViewModel::kHex, QString(SideCount() > 1 ? 14 : 32, '0'));
    width(ViewModel::kCharacters, QString(12, '0'));
    width(ViewModel::kMeaning, QString(28, '0'));
    // Beside another capture there is room for the meaning alone.
    TxtView->setColumnHidden(first + ViewModel::kCharacters, SideCount() > 1);
  }
  if (SideCount() > 1)
    columns->resizeSection(
        model_->DifferenceColumn(),
        columns->fontMetrics().horizontalAdvance("\u25B6 only right") + 2 * margin);
}

void FrmView::MakeShortcuts() {
  const auto shortcut = [this](const QKeySequence& keys, auto act) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
  };
  shortcut(QKeySequence::Find, [this] {
    TxtViewFind->setFocus();
    TxtViewFind->selectAll();
  });
  shortcut(QKeySequence(Qt::Key_F3), [this] { CmdFindNext->click(); });
  shortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { CmdFindBack->click(); });
  shortcut(QKeySequence(Qt::Key_F8), [this] { CmdNextDifference->click(); });
  shortcut(QKeySequence(Qt::SHIFT | Qt::Key_F8), [this] { CmdLastDifference->click(); });
}

void FrmView::Open(std::size_t number, const QString& path) {
  Side& side = *sides_[number];
  side.loader.reset();
  Clear(side);
  side.path = path;
  side.loader = std::make_unique<CaptureLoader>(QFile::encodeName(path).toStdString());
  CaptureLoader* loader = side.loader.get();
  connect(loader, &CaptureLoader::Loaded, this,
          [this, &side](std::vector<LogEntry>& rows) { Take(side, rows); });
  connect(loader, &CaptureLoader::Progressed, this,
          [this, &side](std::uint64_t position, std::uint64_t size) {
            side.part_read =
                size > 0 ? static_cast<double>(position) / static_cast<double>(size) : 1;
            ShowProgress();
          });
  connect(loader, &CaptureLoader::CaughtUp, this, [this, &side](const QStringList& remarks) {
    side.remarks = remarks;
    side.has_caught_up = true;
    ShowProgress();
    ShowState();
    if (SideCount() > 1) align_later_.start(0ms);
  });
  connect(loader, &CaptureLoader::Restarted, this, [this, &side] { Clear(side); });
  connect(loader, &CaptureLoader::Failed, this, [this, &side](const QString& reason) {
    side.remarks = QStringList{reason};
    side.has_caught_up = true;
    ShowProgress();
    ShowState();
  });
  QStringList names;
  for (const auto& each : sides_) names += QFileInfo(each->path).fileName();
  setWindowTitle(names.join(" \u2013 "));
  LblFiles->setText(
      SideCount() > 1 ? tr("Left: %1\nRight: %2").arg(sides_[0]->path, sides_[1]->path) : path);
  reading_since_.start();
}

void FrmView::Clear(Side& side) {
  // The thread that aligns may still read them, and freeing very many takes long.
  auto before = std::exchange(side.rows, std::make_shared<CaptureRows>());
  auto held = std::exchange(side.held, {});
  ++replacements_;
  model_->Replace(side.rows == sides_[0]->rows ? 0 : 1, *side.rows);
  if (disposer_.joinable()) disposer_.join();
  disposer_ = std::thread([before = std::move(before), held = std::move(held)]() mutable {
    before.reset();
    held.clear();
  });
  went_in_step_ = false;
  side.remarks.clear();
  side.has_caught_up = false;
}

void FrmView::Take(Side& side, std::vector<LogEntry>& rows) {
  if (aligning_) {
    side.held.push_back(std::move(rows));
    return;
  }
  side.rows->Append(std::move(rows));
  model_->CatchUp();
  if (side.has_caught_up && SideCount() > 1) align_later_.start(kAlignDelay);
}

void FrmView::Align() {
  wants_alignment_ = aligning_;
  const bool all_read = std::all_of(sides_.begin(), sides_.end(),
                                    [](const auto& side) { return side->has_caught_up; });
  if (aligning_ || !all_read) return;
  if (aligner_.joinable()) aligner_.join();
  aligning_ = true;
  aligner_ = std::thread([this, left = sides_[0]->rows, right = sides_[1]->rows,
                          before = replacements_]() mutable {
    auto aligned = std::make_shared<AlignedRows>(AlignRows(*left, *right));
    left.reset();
    right.reset();
    QMetaObject::invokeMethod(
        this, [this, aligned, before] { TakeLines(std::move(*aligned), before == replacements_); });
  });
}

void FrmView::TakeLines(AlignedRows aligned, bool is_of_now) {
  if (aligner_.joinable()) aligner_.join();
  aligning_ = false;
  if (is_of_now) {
    went_in_step_ = aligned.went_in_step;
    model_->SetLines(std::move(aligned.lines));
    ShowState();
  }
  for (const auto& side : sides_) {
    for (auto& rows : std::exchange(side->held, {})) {
      side->rows->Append(std::move(rows));
      wants_alignment_ = true;
    }
  }
  model_->CatchUp();
  if (std::exchange(wants_alignment_, false)) align_later_.start(kAlignDelay);
}

void FrmView::ShowState() {
  QStringList parts;
  const auto count = static_cast<qsizetype>(model_->rowCount());
  parts += count == 1 ? tr("1 line") : tr("%L1 lines").arg(count);
  if (SideCount() > 1) {
    const std::size_t differences = model_->Differences();
    parts += differences == 1 ? tr("1 line differs") : tr("%L1 lines differ").arg(differences);
  }
  if (went_in_step_)
    parts += tr("The captures differ so much that part of them stands exchange by exchange.");
  for (const auto& side : sides_) parts += side->remarks;
  LblView->setText(parts.join(" \u00B7 "));
  LblView->setToolTip(parts.join('\n'));
}

void FrmView::ShowProgress() {
  double part = 0;
  bool reading = false;
  for (const auto& side : sides_) {
    part += (side->has_caught_up ? 1 : side->part_read) / static_cast<double>(SideCount());
    reading = reading || !side->has_caught_up;
  }
  PrgView->setValue(static_cast<int>(100 * part));
  PrgView->setVisible(reading && std::chrono::milliseconds(reading_since_.elapsed()) >= patience_);
}

void FrmView::Seek(bool forward, const QString& text) {
  const int rows = model_->rowCount();
  if (rows == 0 || (text.isEmpty() && SideCount() < 2)) return;
  const int from =
      TxtView->currentIndex().isValid() ? TxtView->currentIndex().row() : (forward ? -1 : rows);
  sought_ = text;
  // A text is sought round the end, a difference is not.
  if (text.isEmpty()) {
    seeker_->Seek(forward, from, forward ? rows - 1 - from : from,
                  [this](int row) { return model_->DifferenceOf(row) != Difference::kNone; });
  } else {
    seeker_->SeekRound(forward, from, [this](int row) { return model_->Holds(row, sought_); });
  }
}

void FrmView::GoTo(int row) {
  TxtView->setCurrentIndex(model_->index(row, ViewModel::kTime));
  TxtView->scrollTo(TxtView->currentIndex(), QAbstractItemView::PositionAtCenter);
  ChkFollowView->setChecked(false);
}

void FrmView::CmdCopyView_Click() {
  std::string lines;
  const auto copy = [&](int row) {
    const bool marked = model_->DifferenceOf(row) != Difference::kNone;
    for (std::size_t side = 0; side < SideCount(); ++side) {
      const LogEntry* entry = model_->EntryOf(row, side);
      if (entry == nullptr || (side == 1 && !marked)) continue;
      if (SideCount() > 1) lines += marked ? (side == 0 ? "< " : "> ") : "  ";
      lines += TextLineOf(*entry) + '\n';
    }
  };
  QModelIndexList selected = TxtView->selectionModel()->selectedRows();
  std::sort(selected.begin(), selected.end());
  for (const QModelIndex& index : selected) copy(index.row());
  if (selected.isEmpty()) {
    for (int row = 0; row < model_->rowCount(); ++row) copy(row);
  }
  QApplication::clipboard()->setText(QString::fromStdString(lines));
}

bool FrmView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == TxtView && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
    CmdCopyView_Click();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void FrmView::dragEnterEvent(QDragEnterEvent* event) {
  if (!LocalFiles(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void FrmView::dropEvent(QDropEvent* event) {
  const QStringList files = LocalFiles(event->mimeData());
  if (files.isEmpty()) return;
  event->acceptProposedAction();
  if (SideCount() > 1 && files.size() > 1) {
    Open(0, files[0]);
    Open(1, files[1]);
    return;
  }
  Open(SideCount() > 1 && event->position().x() >= width() / 2.0 ? 1 : 0, files.first());
}

}  // namespace vantrel::log
