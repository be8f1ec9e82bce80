// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"
#include "send/poll_clock.h"

#include <functional>

namespace vantrel::send {

// The signals that ask the program to end: SIGINT, SIGTERM and SIGHUP. They are blocked from when
// this is made on, and heard when the clock is waited on.
class Interrupts : public EventSource {
 public:
  // Throws std::system_error when the system gives no descriptor.
  Interrupts();

  // Called at each signal.
  void OnInterrupt(std::function<void()> action) { action_ = std::move(action); }
  // How many have come.
  int Count() const { return count_; }

  int Descriptor() const override { return descriptor_.Get(); }
  short Events() const override;
  void OnReady(short events) override;

 private:
  link::UniqueDescriptor descriptor_;
  std::function<void()> action_;
  int count_ = 0;
};

}  // namespace vantrel::send
