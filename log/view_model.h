// SPDX-License-Identifier: MIT
#pragma once

#include "log/capture_rows.h"
#include "log/row_alignment.h"

#include <QAbstractTableModel>
#include <QString>
#include <QTimer>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel::log {

// The rows of a capture as a table, or those of two side by side, each line a row of the left, of
// the right or of both. Until SetLines tells which belong together they stand beside each other in
// their order.
class ViewModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // The columns of a side; with two sides those of the right follow, after a column that tells what
  // differs.
  enum Column { kTime, kDirection, kTook, kHex, kCharacters, kMeaning, kColumns };

  // `right` is null where there is one capture. Both must live as long as they are shown; tell the
  // model of all that happens to them.
  ViewModel(const CaptureRows& left, const CaptureRows* right, QObject* parent = nullptr);

  // Rows have been added to either.
  void CatchUp();
  // Shows other rows on a side (0 left, 1 right).
  void Replace(std::size_t side, const CaptureRows& rows);
  // Which rows belong together, of all that there are now.
  void SetLines(std::vector<AlignedLine> lines);
  // Shows lines alone of which a column of either side holds the text, whatever its case. They are
  // looked for in portions, between which events run.
  void SetText(const QString& text);

  bool HasTwoSides() const { return rows_[1] != nullptr; }
  // The column that tells what differs; -1 with one side.
  int DifferenceColumn() const { return HasTwoSides() ? kColumns : -1; }
  // The entry of a row of the table on a side (0 left, 1 right); null where it has none there.
  const LogEntry* EntryOf(int row, std::size_t side) const;
  Difference DifferenceOf(int row) const;
  // Whether a column of the row holds the text.
  bool Holds(int row, const QString& text) const;
  // Lines that differ, shown or not.
  std::size_t Differences() const { return differences_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  // A column of the table: the side and its column; no side for the one that tells what differs.
  struct Cell {
    std::optional<std::size_t> side;
    int column = 0;
  };

  Cell CellOf(int column) const;
  std::size_t SideCount() const { return HasTwoSides() ? 2 : 1; }
  // Gives the rows of a side that have none yet their lines.
  void Place(std::size_t side);
  const CaptureRows* Rows(std::size_t side) const { return rows_.at(side); }
  const AlignedLine& LineOf(int row) const;
  std::optional<std::size_t> RowOf(int row, std::size_t side) const;
  bool LineHolds(const AlignedLine& line, const QString& text) const;
  QString TextOf(int row, const Cell& cell) const;
  bool StandsOut(int row, const Cell& cell) const;
  void ShowPortion();

  std::array<const CaptureRows*, 2> rows_;
  std::vector<AlignedLine> lines_;
  std::array<std::size_t, 2> placed_{};  // rows of each side that have a line
  bool aligned_ = false;                 // whether SetLines told of the lines
  std::size_t differences_ = 0;
  QString text_;
  // Under a filter the lines that match, of those that have been looked at.
  std::vector<std::uint32_t> matches_;
  std::size_t looked_ = 0;
  QTimer later_;
};

// "differs", "only left", "only right"; empty for none.
QString DifferenceInWords(Difference difference);

}  // namespace vantrel::log
