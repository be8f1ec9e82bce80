#pragma once

#include "printer/line_log.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

namespace vantrel {

class PrinterServer;

// Keeps a log of a line and tells when it has changed.
class LineRecorder : public QObject {
  Q_OBJECT

 public:
  explicit LineRecorder(QObject* parent = nullptr);

  // Adds what goes over a server's line from now on, as long as both live.
  void RecordLineOf(PrinterServer& server);
  // Adds bytes to the log, as of this moment or of a moment handed in.
  void Record(Direction direction, const QByteArray& bytes);
  void Record(Direction direction, const QByteArray& bytes, WallTime when);
  void Clear();

  const LineLog& Log() const { return log_; }

 signals:
  // The log has changed: it has grown, a group was completed, or it was cleared.
  void Recorded();

 private:
  LineLog log_;
  QTimer silence_;
};

}  // namespace vantrel
