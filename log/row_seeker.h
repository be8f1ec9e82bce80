// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

class QAbstractItemModel;

namespace vantrel::log {

// Looks for a row of a table, in portions between which events run.
class RowSeeker : public QObject {
  Q_OBJECT

 public:
  using Matches = std::function<bool(int row)>;

  // `model` must outlive the seeker.
  explicit RowSeeker(const QAbstractItemModel& model, QObject* parent = nullptr);

  // Looks at rows one after the other, beginning beside `from` (-1 before the first row, the number
  // of rows behind the last) and at `most` of them, round the end. Ends a search that is under way.
  void Seek(bool forward, int from, int most, Matches matches);
  // Looks for the next row, or the one before, that matches, at all but once.
  void SeekRound(bool forward, int from, Matches matches);

 signals:
  // One of them, at once or later.
  void Found(int row);
  void NotFound(bool forward);

 private:
  void SeekPortion();

  const QAbstractItemModel& model_;
  Matches matches_;
  bool forward_ = true;
  int at_ = 0;
  int left_ = 0;
  QTimer later_;
};

}  // namespace vantrel::log
