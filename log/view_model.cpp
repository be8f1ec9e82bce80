// SPDX-License-Identifier: MIT

#include "log/view_model.h"

#include "log/log_model.h"

#include <QColor>
#include <QElapsedTimer>
#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <utility>

namespace vantrel::log {
namespace {

// How long lines are looked through before events run again.
constexpr int kLookTime = 15;  // milliseconds

// The log's columns in the order of ours; the time taken is ours alone.
int LogColumnOf(int column) { return column > ViewModel::kTook ? column - 1 : column; }

// The table's ground where something differs: between its own and that of a selection.
QColor DifferenceGround() {
  const QPalette palette = QGuiApplication::palette();
  const QColor base = palette.color(QPalette::Base);
  const QColor mark = palette.color(QPalette::Highlight);
  const auto mix = [](int a, int b) { return (3 * a + b) / 4; };
  return {mix(base.red(), mark.red()), mix(base.green(), mark.green()),
          mix(base.blue(), mark.blue())};
}

}  // namespace

QString DifferenceInWords(Difference difference) {
  switch (difference) {
    case Difference::kDiffers:
      return ViewModel::tr("\u2260 differs");
    case Difference::kOnlyLeft:
      return ViewModel::tr("\u25C0 only left");
    case Difference::kOnlyRight:
      return ViewModel::tr("\u25B6 only right");
    default:
      return {};
  }
}

ViewModel::ViewModel(const CaptureRows& left, const CaptureRows* right, QObject* parent)
    : QAbstractTableModel(parent), rows_{&left, right} {
  later_.setSingleShot(true);
  later_.setInterval(0);
  connect(&later_, &QTimer::timeout, this, &ViewModel::ShowPortion);
}

void ViewModel::CatchUp() {
  const std::size_t before = lines_.size();
  std::size_t after = before;
  for (std::size_t side = 0; side < SideCount(); ++side) {
    const std::size_t rows = Rows(side)->Size();
    after = aligned_ ? after + rows - placed_.at(side) : std::max(after, rows);
  }
  const bool grows = text_.isEmpty() && after > before;
  if (grows) beginInsertRows({}, static_cast<int>(before), static_cast<int>(after) - 1);
  for (std::size_t side = 0; side < SideCount(); ++side) Place(side);
  if (grows) endInsertRows();
  // The side that was behind has filled lines that were there.
  if (HasTwoSides() && rowCount() > 0)
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  if (!text_.isEmpty()) later_.start();
}

void ViewModel::Place(std::size_t side) {
  std::size_t& row = placed_.at(side);
  for (; row < Rows(side)->Size(); ++row) {
    if (aligned_ || row >= lines_.size()) lines_.emplace_back();
    AlignedLine& line = aligned_ ? lines_.back() : lines_[row];
    (side == 0 ? line.left : line.right) = static_cast<std::uint32_t>(row);
  }
}

void ViewModel::Replace(std::size_t side, const CaptureRows& rows) {
  beginResetModel();
  rows_.at(side) = &rows;
  lines_.clear();
  placed_ = {};
  aligned_ = false;
  differences_ = 0;
  matches_.clear();
  looked_ = 0;
  endResetModel();
  CatchUp();
}

void ViewModel::SetLines(std::vector<AlignedLine> lines) {
  // Many lines are shown anew by a reset only in a time that is felt.
  const auto before = static_cast<int>(lines_.size());
  const auto after = static_cast<int>(lines.size());
  const bool shows_all = text_.isEmpty();
  if (!shows_all)
    beginResetModel();
  else if (after > before)
    beginInsertRows({}, before, after - 1);
  else if (after < before)
    beginRemoveRows({}, after, before - 1);
  lines_ = std::move(lines);
  for (std::size_t side = 0; side < SideCount(); ++side) placed_.at(side) = Rows(side)->Size();
  aligned_ = true;
  differences_ = static_cast<std::size_t>(
      std::count_if(lines_.begin(), lines_.end(),
                    [](const AlignedLine& line) { return line.difference != Difference::kNone; }));
  matches_.clear();
  looked_ = 0;
  if (!shows_all)
    endResetModel();
  else if (after > before)
    endInsertRows();
  else if (after < before)
    endRemoveRows();
  if (shows_all && after > 0)
    emit dataChanged(index(0, 0), index(after - 1, columnCount() - 1));
  else if (!shows_all)
    later_.start();
}

void ViewModel::SetText(const QString& text) {
  if (text == text_) return;
  beginResetModel();
  text_ = text;
  matches_.clear();
  looked_ = 0;
  endResetModel();
  if (!text_.isEmpty()) later_.start();
}

void ViewModel::ShowPortion() {
  QElapsedTimer elapsed;
  elapsed.start();
  std::vector<std::uint32_t> found;
  for (; looked_ < lines_.size() && elapsed.elapsed() < kLookTime; ++looked_) {
    if (LineHolds(lines_[looked_], text_)) found.push_back(static_cast<std::uint32_t>(looked_));
  }
  if (!found.empty()) {
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(found.size()) - 1);
    matches_.insert(matches_.end(), found.begin(), found.end());
    endInsertRows();
  }
  if (looked_ < lines_.size()) later_.start();
}

const AlignedLine& ViewModel::LineOf(int row) const {
  const auto at = static_cast<std::size_t>(row);
  return lines_[text_.isEmpty() ? at : matches_[at]];
}

std::optional<std::size_t> ViewModel::RowOf(int row, std::size_t side) const {
  const AlignedLine& line = LineOf(row);
  const std::uint32_t number = side == 0 ? line.left : line.right;
  if (number == AlignedLine::kNothing) return std::nullopt;
  return number;
}

const LogEntry* ViewModel::EntryOf(int row, std::size_t side) const {
  if (row < 0 || row >= rowCount()) return nullptr;
  const auto number = RowOf(row, side);
  return number ? &Rows(side)->At(*number) : nullptr;
}

Difference ViewModel::DifferenceOf(int row) const { return LineOf(row).difference; }

bool ViewModel::Holds(int row, const QString& text) const { return LineHolds(LineOf(row), text); }

bool ViewModel::LineHolds(const AlignedLine& line, const QString& text) const {
  const auto holds = [&](std::uint32_t number, const CaptureRows* rows) {
    return number != AlignedLine::kNothing && EntryHolds(rows->At(number), text);
  };
  return holds(line.left, Rows(0)) || holds(line.right, Rows(1));
}

int ViewModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return static_cast<int>(text_.isEmpty() ? lines_.size() : matches_.size());
}

int ViewModel::columnCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return HasTwoSides() ? 2 * kColumns + 1 : kColumns;
}

ViewModel::Cell ViewModel::CellOf(int column) const {
  if (column < kColumns) return {0, column};
  if (column == kColumns) return {};
  return {1, column - kColumns - 1};
}

QString ViewModel::TextOf(int row, const Cell& cell) const {
  if (!cell.side) return DifferenceInWords(DifferenceOf(row));
  const auto number = RowOf(row, *cell.side);
  if (!number) return {};
  const CaptureRows& rows = *Rows(*cell.side);
  if (cell.column == kTook) return QString::fromStdString(TimeInWords(rows.TimeOf(*number)));
  return ColumnText(rows.At(*number), LogColumnOf(cell.column));
}

bool ViewModel::StandsOut(int row, const Cell& cell) const {
  if (DifferenceOf(row) != Difference::kNone && cell.column != kTook) return true;
  if (!cell.side || cell.column != kTook) return false;
  const auto number = RowOf(row, *cell.side);
  return number && Rows(*cell.side)->TimeOf(*number).is_long;
}

QVariant ViewModel::data(const QModelIndex& index, int role) const {
  if (index.row() < 0 || index.row() >= rowCount()) return {};
  const Cell cell = CellOf(index.column());
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return TextOf(index.row(), cell);
    case Qt::TextAlignmentRole:
      if (cell.side && cell.column == kTook) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
      return {};
    case Qt::BackgroundRole:
      if (DifferenceOf(index.row()) != Difference::kNone) return DifferenceGround();
      return {};
    case Qt::FontRole: {
      QFont font = cell.side && cell.column != kMeaning
                       ? QFontDatabase::systemFont(QFontDatabase::FixedFont)
                       : QGuiApplication::font();
      font.setBold(StandsOut(index.row(), cell));
      return font;
    }
    default:
      return {};
  }
}

QVariant ViewModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const Cell cell = CellOf(section);
  const bool tells_time_taken = cell.side && cell.column == kTook;
  return HeaderData(orientation, role, tells_time_taken ? Qt::AlignRight : Qt::AlignLeft, [&] {
    if (!cell.side) return tr("Difference");
    return tells_time_taken ? tr("Took") : ColumnName(LogColumnOf(cell.column));
  });
}

}  // namespace vantrel::log
