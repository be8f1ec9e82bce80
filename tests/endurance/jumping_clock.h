// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>

// The system's time as this program sees it. A program that is linked with this waits on a clock
// that stands still while it works and jumps, where it would wait, to the moment for which it
// waits: hours of an event loop pass in seconds. Bytes on the way through a pseudo-terminal of this
// program arrive before the time goes on, so that a run can be repeated.
//
// Until Begin is called, and in every thread but the one that called it, time is the system's.
namespace vantrel::endurance {

class JumpingClock {
 public:
  // From now on the calling thread's time jumps.
  static void Begin();
  // The time that has been jumped over.
  static std::chrono::milliseconds Jumped();

  // How often time has jumped.
  static std::int64_t Waits();

  // The longest processor time of this thread for which the event loop was not reached since the
  // last call of this. What other programs on the machine take is not in it.
  static std::chrono::milliseconds TakeLongestHold();
};

}  // namespace vantrel::endurance
