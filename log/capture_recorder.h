// SPDX-License-Identifier: MIT
#pragma once

#include "log/capture_sink.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <cstddef>

namespace vantrel::log {

class LineRecorder;

// Writes a recorder's log to a capture as it grows: a row that is complete, with no open one before
// it, within kDelay.
class CaptureRecorder : public QObject {
  Q_OBJECT

 public:
  // So that a busy line has many rows written at once.
  static constexpr std::chrono::milliseconds kDelay{30};

  // Begins the capture with the recorder's line. Both must outlive this object.
  CaptureRecorder(LineRecorder& recorder, CaptureSink& sink, QObject* parent = nullptr);

  // Writes all that the log holds, rows that are open as they stand.
  void Finish();

 signals:
  // The capture has ended before its time, in words.
  void Ended(const QString& reason);

 private:
  void WriteUntil(std::size_t end);
  void TellProblem();

  LineRecorder& recorder_;
  CaptureSink& sink_;
  QTimer soon_;
  QTimer reader_;
  std::size_t next_;
  bool told_ = false;
};

}  // namespace vantrel::log
