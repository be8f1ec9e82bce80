// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"
#include "log/captured_line.h"
#include "log/line_log.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>

namespace vantrel::log {

// Writes a capture as its rows come, whole packets only, to a regular file or to a named pipe.
//
// A regular file is emptied at first; where no more can be written it is cut back to its last whole
// packet. A pipe never keeps the writer waiting: what no reader has taken yet is kept, every new
// reader gets a capture of its own from where the last one went, and past kMostPending bytes the
// capture ends. The program must ignore SIGPIPE and SIGXFSZ.
class CaptureSink {
 public:
  static constexpr std::size_t kMostPending = std::size_t{16} << 20;

  // Opens a file. Throws std::runtime_error, in words, where it cannot be written or is neither a
  // regular file nor a pipe; links are followed.
  explicit CaptureSink(std::string path);

  // Begins with what is known of the line. To be called once, before Add.
  void Start(const CapturedLine& line);
  void Add(const LogEntry& row);
  // Gives a pipe's reader what it takes now. To be called now and then.
  void Flush();
  // Waits for a pipe's reader to take all, as long as it takes something within each `patience`.
  void Drain(std::chrono::milliseconds patience);

  bool IsPipe() const { return is_pipe_; }
  // Why the capture has ended before its time, a sentence; empty while all is well.
  const std::string& Problem() const { return problem_; }

 private:
  void WriteToFile(const std::string& packet);
  void MeetReader();
  void LoseReader();
  void End(const std::string& problem);

  std::string path_;
  bool is_pipe_ = false;
  link::UniqueDescriptor descriptor_;  // of a pipe only while it has a reader
  std::int64_t length_ = 0;            // of a regular file's whole packets
  std::string start_;
  // For a pipe: what the reader is to get, and how much of the first packet it has.
  std::deque<std::string> pending_;
  std::size_t pending_bytes_ = 0;
  std::size_t taken_ = 0;
  bool start_is_pending_ = false;
  std::string problem_;
};

}  // namespace vantrel::log
