// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vantrel::support {

// What several doubles were asked to do, in the order in which it happened.
class CallLog {
 public:
  void Add(std::string line) { lines_.push_back(std::move(line)); }
  void Clear() { lines_.clear(); }
  const std::vector<std::string>& Lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
};

// Adds a line where there is a log; a double without one keeps silent.
inline void Note(CallLog* log, std::string line) {
  if (log != nullptr) log->Add(std::move(line));
}

}  // namespace vantrel::support
