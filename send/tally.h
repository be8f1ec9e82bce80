// SPDX-License-Identifier: MIT
#pragma once

#include "log/json_object.h"
#include "send/exchange.h"

#include <map>
#include <string>
#include <vector>

namespace vantrel::send {

// Counts many exchanges.
class Tally {
 public:
  void Add(const Exchange& exchange);

  long Exchanges() const { return static_cast<long>(milliseconds_.size()); }
  // Refused lines included.
  long Failures() const { return failures_; }
  // 0 without exchanges; the higher of the two in the middle of an even number.
  double MedianMilliseconds() const;
  double SlowestMilliseconds() const;

  // {"summary":{...}}
  log::JsonObject Summary() const;
  // "600 exchanges, 1 failure (22h: 1); median 11.2 ms, slowest 30.9 ms."
  std::string InWords() const;

 private:
  long failures_ = 0;
  std::map<std::string, long, std::less<>> outcomes_;
  std::map<std::string, long> statuses_;
  std::map<std::string, long> failure_kinds_;  // by status or else outcome
  std::vector<float> milliseconds_;
};

}  // namespace vantrel::send
