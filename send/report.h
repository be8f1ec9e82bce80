// SPDX-License-Identifier: MIT
#pragma once

#include "send/exchange.h"

#include <memory>
#include <stdexcept>
#include <string>

namespace vantrel::send {

// The report cannot be written. what() is one sentence.
class ReportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What became of every exchange, in a file.
class Report {
 public:
  virtual ~Report() = default;
  // Both throw ReportError.
  virtual void Add(const Exchange& exchange) = 0;
  // Nothing is added after it.
  virtual void Finish() = 0;
};

// A report in JSON, one object a line, each in the file before Add returns; where the path ends in
// ".xml" one of JUnit, which takes the place of a file there at Finish, whole or not at all. A JSON
// report begins anew or goes on behind what is there. Throws ReportError for a path that cannot be
// written or is no regular file.
std::unique_ptr<Report> OpenReport(const std::string& path, bool continues);

}  // namespace vantrel::send
