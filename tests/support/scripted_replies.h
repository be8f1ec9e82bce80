// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/fake_display.h"
#include "tests/support/fake_port.h"
#include "tests/support/manual_clock.h"

#include <deque>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace vantrel::support {

// A frame that was sent, and what the console showed while it waited for the reply.
struct Exchange {
  std::string frame;  // hex text
  int time_limit;     // milliseconds
  std::string hints;
  std::string panel1;
  std::string panel2;
  bool buttons_enabled;

  bool operator==(const Exchange&) const = default;
};
void PrintTo(const Exchange& exchange, std::ostream* stream);

// The printer's side of a port in memory: answers each frame from a script, as soon as the console
// waits. A frame without an entry is answered by the normal status, 06h 02h code 20h 03h and the
// block check. An entry that is never used fails the test.
class ScriptedReplies {
 public:
  // All three must outlive it.
  ScriptedReplies(FakePort& port, ManualClock& clock, const FakeDisplay& display);
  ~ScriptedReplies();
  ScriptedReplies(const ScriptedReplies&) = delete;
  ScriptedReplies& operator=(const ScriptedReplies&) = delete;

  // The answer to the next frame: these bytes (hex text), nothing at all, or something that happens
  // during the wait.
  void Replies(const std::string& hex);
  void StaysSilent();
  void Waits(std::function<void()> meanwhile);

  const std::vector<Exchange>& Exchanges() const { return exchanges_; }

 private:
  void Take(const std::string& frame);

  FakePort& port_;
  ManualClock& clock_;
  const FakeDisplay& display_;
  std::deque<std::function<void()>> script_;
  std::vector<Exchange> exchanges_;
};

}  // namespace vantrel::support
