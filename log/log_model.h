// SPDX-License-Identifier: MIT
#pragma once

#include "log/line_recorder.h"

#include <QAbstractTableModel>
#include <QString>
#include <QTimer>

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <optional>

namespace vantrel::log {

// A recorder's log as a table, one row an entry, newest last. It catches up with the log a moment
// after it changes, many entries at once, so that a busy line costs the view little; under a filter
// it does so in portions, between which events run.
class LogModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // kSince is the time since the row before, which no entry knows by itself.
  enum Column { kTime, kDirection, kHex, kCharacters, kMeaning, kSince, kColumns };

  // `recorder` must outlive the model.
  explicit LogModel(LineRecorder& recorder, QObject* parent = nullptr);

  // Shows entries of one direction alone, or of both.
  void SetDirection(std::optional<protocol::Direction> direction);
  // Shows entries alone of which a column holds the text, whatever its case.
  void SetText(const QString& text);
  // Shows nothing that comes from now on, until it is told to go on.
  void SetPaused(bool paused);
  // Entries that have come since it was paused.
  std::size_t HeldBack() const;
  // Whether entries are still being looked through for those that match.
  bool IsLooking() const { return IsFiltered() && end_ < SettledEnd(); }
  // Whether a column of the row holds the text.
  bool Holds(int row, const QString& text) const;
  // Shows all that the log holds by now, at once. Under a filter a group that may still grow waits
  // until it is complete.
  void CatchUp();

  // The entry of a row; null when the log has dropped it meanwhile.
  const LogEntry* EntryOf(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 signals:
  // The last entry has been looked at.
  void Looked();

 private:
  // Where entries end, and those that change no more, that may be shown.
  std::size_t End() const;
  std::size_t SettledEnd() const;
  bool IsFiltered() const { return direction_.has_value() || !text_.isEmpty(); }
  bool Matches(const LogEntry& entry) const;
  void Restart();
  // Takes over what is new, for about so long where it is filtered; true when there is more.
  bool TakePortion(std::chrono::milliseconds time);
  void DropOldest();

  LineRecorder& recorder_;
  std::optional<protocol::Direction> direction_;
  QString text_;
  // Without a filter the rows are the entries [first_, end_); with one, those in matches_.
  std::size_t first_ = 0;
  std::size_t end_ = 0;
  std::size_t settled_ = 0;
  std::optional<std::size_t> paused_at_;
  std::deque<std::size_t> matches_;
  QTimer later_;
};

// The text of a column of an entry, as the table shows it; of every column but kSince.
QString ColumnText(const LogEntry& entry, int column);
QString ColumnName(int column);
// What a table tells of a column of this name, whose text stands at that side.
QVariant HeaderData(Qt::Orientation orientation, int role, Qt::AlignmentFlag side,
                    const std::function<QString()>& name);
// Whether a column of an entry holds the text, whatever its case.
bool EntryHolds(const LogEntry& entry, const QString& text);

}  // namespace vantrel::log
