// SPDX-License-Identifier: MIT

#include "log/log_model.h"

#include <QColor>
#include <QElapsedTimer>
#include <QFont>
#include <QFontDatabase>

#include <algorithm>
#include <string>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;

// How long entries are looked through before events run again.
constexpr auto kLookTime = 15ms;
// Characters of a cell; the whole is in what is copied or saved.
constexpr std::size_t kMostInCell = 600;

QString Shortened(std::string text) {
  if (text.size() > kMostInCell) {
    text.resize(kMostInCell);
    text += " ...";
  }
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// What was told beside an entry's bytes, as the meaning ends with it: " · fault: status 22".
QString CommentOf(const LogEntry& entry) {
  if (entry.comment.empty()) return {};
  return QStringLiteral(" \u00B7 ") +
         QString::fromStdString(entry.comment).replace('\n', QStringLiteral("; "));
}

}  // namespace

QString ColumnText(const LogEntry& entry, int column) {
  switch (column) {
    case LogModel::kTime:
      return Shortened(TimeInWords(entry.time));
    case LogModel::kDirection:
      return Shortened(std::string(DirectionInWords(entry.direction)));
    case LogModel::kHex:
      return Shortened(HexOf(entry));
    case LogModel::kCharacters:
      return Shortened(CharactersOf(entry));
    case LogModel::kMeaning:
      return Shortened(MeaningOf(entry)) + CommentOf(entry);
    default:
      return {};
  }
}

QString ColumnName(int column) {
  switch (column) {
    case LogModel::kTime:
      return LogModel::tr("Time");
    case LogModel::kSince:
      return LogModel::tr("Since");
    case LogModel::kDirection:
      return LogModel::tr("Direction");
    case LogModel::kHex:
      return LogModel::tr("Hex");
    case LogModel::kCharacters:
      return LogModel::tr("Characters");
    default:
      return LogModel::tr("Meaning");
  }
}

QVariant HeaderData(Qt::Orientation orientation, int role, Qt::AlignmentFlag side,
                    const std::function<QString()>& name) {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return QVariant(side | Qt::AlignVCenter);
  return role == Qt::DisplayRole ? QVariant(name()) : QVariant();
}

bool EntryHolds(const LogEntry& entry, const QString& text) {
  const auto holds = [&text](const std::string& column) {
    return QString::fromLatin1(column.data(), static_cast<qsizetype>(column.size()))
        .contains(text, Qt::CaseInsensitive);
  };
  return holds(MeaningOf(entry)) || holds(HexOf(entry)) || holds(CharactersOf(entry)) ||
         holds(TimeInWords(entry.time)) || CommentOf(entry).contains(text, Qt::CaseInsensitive);
}

LogModel::LogModel(LineRecorder& recorder, QObject* parent)
    : QAbstractTableModel(parent), recorder_(recorder) {
  later_.setSingleShot(true);
  connect(&later_, &QTimer::timeout, this, [this]() noexcept {
    if (TakePortion(kLookTime))
      later_.start(0);
    else if (IsFiltered())
      emit Looked();
  });
  connect(&recorder_, &LineRecorder::Recorded, this, [this] {
    if (!later_.isActive()) later_.start(30ms);
  });
  Restart();
}

void LogModel::SetDirection(std::optional<protocol::Direction> direction) {
  direction_ = direction;
  Restart();
}

void LogModel::SetText(const QString& text) {
  text_ = text;
  Restart();
}

void LogModel::SetPaused(bool paused) {
  if (paused == paused_at_.has_value()) return;
  if (!paused) {
    paused_at_.reset();
    later_.start(0);
    return;
  }
  paused_at_ = recorder_.Log().End();
}

std::size_t LogModel::HeldBack() const { return recorder_.Log().End() - End(); }

std::size_t LogModel::End() const {
  const LineLog& log = recorder_.Log();
  return std::max(log.First(), std::min(log.End(), paused_at_.value_or(log.End())));
}

std::size_t LogModel::SettledEnd() const { return std::min(End(), recorder_.Log().Settled()); }

bool LogModel::Holds(int row, const QString& text) const {
  const LogEntry* entry = EntryOf(row);
  return entry != nullptr && EntryHolds(*entry, text);
}

void LogModel::CatchUp() { TakePortion(std::chrono::milliseconds::max()); }

const LogEntry* LogModel::EntryOf(int row) const {
  if (row < 0 || row >= rowCount()) return nullptr;
  const auto at = static_cast<std::size_t>(row);
  const std::size_t number = IsFiltered() ? matches_[at] : first_ + at;
  const LineLog& log = recorder_.Log();
  return number >= log.First() && number < log.End() ? &log.At(number) : nullptr;
}

int LogModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return static_cast<int>(IsFiltered() ? matches_.size() : end_ - first_);
}

int LogModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(kColumns);
}

QVariant LogModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::TextAlignmentRole && index.column() == kSince)
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  if (role == Qt::FontRole) {
    if (index.column() == kMeaning) return {};
    static const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    return fixed;
  }
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  const LogEntry* entry = EntryOf(index.row());
  if (entry == nullptr) return {};
  if (index.column() != kSince) return ColumnText(*entry, index.column());
  const LogEntry* before = EntryOf(index.row() - 1);
  if (before == nullptr) return {};
  return QString::asprintf("%+.3f s",
                           std::chrono::duration<double>(entry->time - before->time).count());
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const {
  return HeaderData(orientation, role, section == kSince ? Qt::AlignRight : Qt::AlignLeft,
                    [section] { return ColumnName(section); });
}

bool LogModel::Matches(const LogEntry& entry) const {
  if (direction_ && entry.direction != *direction_) return false;
  return text_.isEmpty() || EntryHolds(entry, text_);
}

void LogModel::Restart() {
  beginResetModel();
  matches_.clear();
  first_ = recorder_.Log().First();
  end_ = IsFiltered() ? first_ : End();
  settled_ = SettledEnd();
  endResetModel();
  if (IsFiltered()) later_.start(0);
}

bool LogModel::TakePortion(std::chrono::milliseconds time) {
  DropOldest();
  const LineLog& log = recorder_.Log();
  if (!IsFiltered()) {
    // Rows that could still grow when they were last looked at.
    if (settled_ < end_)
      emit dataChanged(index(static_cast<int>(settled_ - first_), kHex),
                       index(static_cast<int>(end_ - first_) - 1, kMeaning));
    if (const std::size_t end = End(); end > end_) {
      beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(end - end_) - 1);
      end_ = end;
      endInsertRows();
    }
    settled_ = SettledEnd();
    return false;
  }
  QElapsedTimer elapsed;
  elapsed.start();
  std::deque<std::size_t> found;
  const std::size_t end = SettledEnd();
  for (; end_ < end && !elapsed.hasExpired(time.count()); ++end_) {
    if (Matches(log.At(end_))) found.push_back(end_);
  }
  if (!found.empty()) {
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(found.size()) - 1);
    matches_.insert(matches_.end(), found.begin(), found.end());
    endInsertRows();
  }
  return end_ < end;
}

void LogModel::DropOldest() {
  const std::size_t first = recorder_.Log().First();
  if (first == first_) return;
  const auto dropped =
      IsFiltered() ? std::lower_bound(matches_.begin(), matches_.end(), first) - matches_.begin()
                   : static_cast<std::ptrdiff_t>(std::min(first, end_) - first_);
  if (dropped > 0) beginRemoveRows({}, 0, static_cast<int>(dropped) - 1);
  if (IsFiltered()) matches_.erase(matches_.begin(), matches_.begin() + dropped);
  first_ = first;
  end_ = std::max(end_, first);
  settled_ = std::max(settled_, first);
  if (dropped > 0) endRemoveRows();
}

}  // namespace vantrel::log
