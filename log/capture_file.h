// SPDX-License-Identifier: MIT
#pragma once

#include "log/capture_reader.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantrel::log {

// A capture that is read from a file, a portion at a time; a pipe will do. What is told of it
// begins with its path and ends with a dot.
class CaptureFile {
 public:
  // Opens the file. Throws std::runtime_error, in words, where it cannot be opened.
  explicit CaptureFile(std::string path);
  ~CaptureFile();
  CaptureFile(const CaptureFile&) = delete;
  CaptureFile& operator=(const CaptureFile&) = delete;

  // Reads a portion and adds the rows that it makes whole. False at the end of the file as it is
  // now; of one that has grown since, the next call reads on. Throws std::runtime_error where it is
  // no capture or cannot be read.
  bool Read(std::vector<LogEntry>& rows);
  // Adds the rows that are still open at the end, as they stand, and completes Damage.
  void End(std::vector<LogEntry>& rows) { reader_.End(rows); }

  // What could not be read, and what was passed over without being damage, a sentence each.
  std::vector<std::string> Damage() const { return Sentences(reader_.Damage()); }
  std::vector<std::string> Notes() const { return Sentences(reader_.Notes()); }
  CapturedLine Line() const { return reader_.Line(); }

  // Bytes read so far, and those that the file has now; 0 for a pipe.
  std::uint64_t Position() const { return position_; }
  std::uint64_t Size() const;

 private:
  std::vector<std::string> Sentences(std::vector<std::string> parts) const;

  std::string path_;
  int descriptor_ = -1;
  std::uint64_t position_ = 0;
  std::vector<std::uint8_t> portion_;
  CaptureReader reader_;
};

// The rows of a whole capture. Throws as CaptureFile does; what it could not read is in `damage`.
std::vector<LogEntry> ReadCapture(const std::string& path, std::vector<std::string>& damage);

}  // namespace vantrel::log
