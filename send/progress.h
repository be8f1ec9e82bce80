// SPDX-License-Identifier: MIT
#pragma once

#include "send/tally.h"

#include <chrono>
#include <optional>

namespace vantrel::send {

// One line on a terminal at standard error that tells how far many exchanges are; nothing where
// standard error is no terminal.
class Progress {
 public:
  // `total` is the number of exchanges to come, if it is known.
  explicit Progress(std::optional<long> total);
  // Ends the line, if there is one.
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Shows the line anew, ten times a second at most.
  void Show(const Tally& tally);
  // Takes the line away, so that other text can be written.
  void Clear();

 private:
  using SteadyClock = std::chrono::steady_clock;

  const bool is_terminal_;
  const std::optional<long> total_;
  const SteadyClock::time_point start_ = SteadyClock::now();
  std::optional<SteadyClock::time_point> shown_;
  bool is_there_ = false;
};

// "[#####.....] 50 of 100, 41.3 a second, 0 failures, 0:02 left"
std::string ProgressLine(const Tally& tally, std::optional<long> total, double seconds);

}  // namespace vantrel::send
