// SPDX-License-Identifier: MIT
#pragma once

#include "log/line_log.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vantrel::log {

// Reads a capture on a thread of its own, and goes on reading as the file grows, from construction
// to destruction. All signals come on the thread of the event loop.
class CaptureLoader : public QObject {
  Q_OBJECT

 public:
  // `path` in the system's coding.
  explicit CaptureLoader(std::string path, QObject* parent = nullptr);
  ~CaptureLoader() override;

  const std::string& Path() const { return path_; }

 signals:
  // The next rows, for the receiver to take.
  void Loaded(std::vector<vantrel::log::LogEntry>& rows);
  // How many of the file's bytes have been read.
  void Progressed(std::uint64_t position, std::uint64_t size);
  // All has been read that the file holds as yet: what could not be read and what was passed over,
  // a sentence each.
  void CaughtUp(const QStringList& remarks);
  // Another file has taken the place of this one, which is read from its beginning: all rows that
  // were loaded are no more.
  void Restarted();
  // The file cannot be read, in words. Nothing comes after that.
  void Failed(const QString& reason);

 private:
  void Run();
  // Reads one file until another takes its place or the end is asked for.
  void ReadFile();
  void Hand(std::vector<LogEntry>& rows, std::uint64_t position, std::uint64_t size);
  // Has something told from the event loop, after all that was before. Waits for it to take some of
  // that where there is much. Nothing is told any more once the end was asked for.
  void Post(std::function<void()> tell);
  // Tells the first of what was posted. Other events run before the next.
  void TellNext();
  // False when the end was asked for meanwhile.
  bool Pause();
  bool IsStopped();

  std::string path_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool stopped_ = false;
  std::deque<std::function<void()>> posted_;
  QTimer next_;
  std::thread thread_;
};

}  // namespace vantrel::log
