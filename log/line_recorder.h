// SPDX-License-Identifier: MIT
#pragma once

#include "log/captured_line.h"
#include "log/line_log.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <cstddef>
#include <string>
#include <utility>

namespace vantrel::log {

// Keeps a log of a line and tells when it has changed.
class LineRecorder : public QObject {
  Q_OBJECT

 public:
  explicit LineRecorder(QObject* parent = nullptr, LogBounds bounds = {});

  // Adds bytes to the log, as of this moment or of a moment handed in.
  void Record(protocol::Direction direction, const QByteArray& bytes);
  void Record(protocol::Direction direction, const QByteArray& bytes, WallTime when);
  // Adds a comment or a remark to the latest whole frame from the console.
  void Comment(const std::string& comment);
  void Remark(const std::string& remark);
  // Completes all groups as they stand; for the end of a line.
  void Finish();
  void Clear();

  const LineLog& Log() const { return log_; }
  // What a capture of the log tells of the line.
  const CapturedLine& Line() const { return line_; }
  void SetLine(CapturedLine line) { line_ = std::move(line); }

 signals:
  // The log has changed: it has grown, a group was completed, or it was cleared.
  void Recorded();
  // The log is about to be cleared; it still holds all.
  void Clearing();

 private:
  // Has the log looked at when its next group is complete.
  void AwaitSilence();

  LineLog log_;
  CapturedLine line_;
  QTimer silence_;
};

}  // namespace vantrel::log
