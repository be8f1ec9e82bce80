// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"
#include "log/row_text.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace vantrel::log {
class LineRecorder;
}

namespace vantrel::printer {

// Writes a recorder's log to a file as it grows: a row that is complete, with no open one before
// it, within 100 ms. The file has whole rows alone, also where no more can be written. The program
// must ignore SIGXFSZ.
class LogFile : public QObject {
  Q_OBJECT

 public:
  // Opens and empties a regular file, which may lie behind links; its ending decides between CSV
  // and text. `limit` is the most bytes that it gets. Throws std::runtime_error, in words, where it
  // cannot be written or is something else.
  LogFile(std::string path, std::optional<std::int64_t> limit, QObject* parent = nullptr);

  // Writes what the recorder has from now on, which must outlive this object.
  void Begin(log::LineRecorder& recorder);
  // Writes all that the log holds, rows that are open as they stand.
  void Finish();
  // Whether a row could not be written for another reason than the limit.
  bool HasFailed() const { return failed_; }

 signals:
  // The file has ended before its time, at its limit or because it could not be written; a
  // sentence. Comes once.
  void Ended(const QString& reason);

 private:
  void WriteUntil(std::size_t end);
  void Write(const std::string& text);
  void End(const std::string& reason);

  std::string path_;
  std::optional<std::int64_t> limit_;
  log::LogFormat format_;
  link::UniqueDescriptor file_;
  std::int64_t length_ = 0;
  log::LineRecorder* recorder_ = nullptr;
  std::size_t next_ = 0;
  QTimer soon_;
  bool failed_ = false;
};

}  // namespace vantrel::printer
