// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"

#include <QObject>
#include <QSocketNotifier>

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace vantrel::log {

// Lines for another program to read, on a descriptor, that never keep this one waiting: what the
// reader does not take at once is kept and written when it does, from the event loop. Where the
// reader has gone, lines are dropped. The program must ignore SIGPIPE.
class LineOutput : public QObject {
  Q_OBJECT

 public:
  // Past so many bytes that the reader has not taken, further lines are dropped whole.
  static constexpr std::size_t kMostPending = std::size_t{16} << 20;

  // Writes to `descriptor`, which stays its owner's and open.
  explicit LineOutput(int descriptor, QObject* parent = nullptr);
  // Drops what nobody has taken.
  ~LineOutput() override;

  // Writes a line and its end.
  void Write(std::string_view line);
  // Bytes that the reader has not taken yet.
  std::size_t Pending() const { return pending_.size() - written_; }
  // Whether the reader has gone, or nothing can be written for another reason.
  bool IsGone() const { return gone_; }
  // Waits for the reader to take all, as long as it takes something within each `patience`.
  void Drain(std::chrono::milliseconds patience);

 signals:
  // The reader has taken all, or has gone, after a line had to be kept.
  void Emptied();

 private:
  // Writes what can be written now.
  void Flush();

  link::UniqueDescriptor own_;  // of an opening of its own, if there is one
  int descriptor_;
  std::string pending_;
  std::size_t written_ = 0;  // of `pending_`
  bool gone_ = false;
  QSocketNotifier writable_;
};

// Gives a standard descriptor that is closed one that fails, so that nothing that is opened later
// takes its number. To be called before anything is opened.
void HoldStandardDescriptors();

}  // namespace vantrel::log
