// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"
#include "log/line_log.h"
#include "send/line_watch.h"

#include <cstddef>
#include <string>

namespace vantrel::send {

// Writes what goes over the line to a capture, each group of bytes when it is whole.
class Capture : public LineWatch {
 public:
  // Begins the file anew; `line` and `speed` (bits a second) are told in it. Throws ReportError for
  // a path that cannot be written or is no regular file.
  Capture(std::string path, const std::string& line, int speed);

  // What cannot be written is told by Finish.
  void OnBytes(protocol::Direction direction, const link::Bytes& bytes) override;
  // Writes what is not whole yet. Throws ReportError where anything could not be written.
  void Finish();

 private:
  void WriteSettled();
  void Write(const std::string& bytes);

  const std::string path_;
  link::UniqueDescriptor file_;
  log::LineLog log_;
  std::size_t written_ = 0;  // entries
  int error_ = 0;            // the first, as errno has it
};

}  // namespace vantrel::send
