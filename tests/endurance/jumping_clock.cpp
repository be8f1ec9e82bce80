// SPDX-License-Identifier: MIT

#include "tests/endurance/jumping_clock.h"

#include <poll.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <ctime>

namespace vantrel::endurance {
namespace {

constexpr std::int64_t kSecond = 1000000000;  // nanoseconds
// A loop that looks at the clock until some time is over must come to an end.
constexpr std::int64_t kLook = 100;
// What was written to a pseudo-terminal and is not there after so long will not come, because it
// was discarded.
constexpr timespec kArrival{0, 10000000};
// How the kernel's calls take the size of a set of signals.
constexpr std::size_t kSignalSet = 8;

thread_local bool jumps = false;
std::int64_t base[2];  // of the system's clocks when time began to jump, in nanoseconds
std::int64_t passed = 0;
std::int64_t waits = 0;
std::int64_t on_the_way = 0;  // bytes between the ends of pseudo-terminals
std::int64_t loop_left = 0;   // when the event loop was last left, in real time
std::int64_t longest_hold = 0;

std::int64_t InNanoseconds(const timespec& time) { return time.tv_sec * kSecond + time.tv_nsec; }

timespec FromNanoseconds(std::int64_t time) { return {time / kSecond, time % kSecond}; }

std::int64_t RealTime(clockid_t clock) {
  timespec time{};
  syscall(SYS_clock_gettime, clock, &time);
  return InNanoseconds(time);
}

int Poll(pollfd* descriptors, nfds_t count, timespec timeout, const sigset_t* mask) {
  return static_cast<int>(syscall(SYS_ppoll, descriptors, count, &timeout, mask, kSignalSet));
}

bool IsPseudoTerminal(int descriptor) {
  if (descriptor <= STDERR_FILENO) return false;
  struct stat status {};
  if (fstat(descriptor, &status) != 0 || !S_ISCHR(status.st_mode)) return false;
  const auto kind = major(status.st_rdev);
  return (kind >= 136 && kind <= 143) || (kind == 5 && minor(status.st_rdev) == 2);
}

}  // namespace

void JumpingClock::Begin() {
  base[0] = RealTime(CLOCK_REALTIME);
  base[1] = RealTime(CLOCK_MONOTONIC);
  loop_left = RealTime(CLOCK_THREAD_CPUTIME_ID);
  jumps = true;
}

std::chrono::milliseconds JumpingClock::Jumped() {
  return std::chrono::milliseconds(passed / 1000000);
}

std::int64_t JumpingClock::Waits() { return waits; }

std::chrono::milliseconds JumpingClock::TakeLongestHold() {
  const std::chrono::milliseconds hold(longest_hold / 1000000);
  longest_hold = 0;
  return hold;
}

}  // namespace vantrel::endurance

// These stand in front of the C library's functions of the same names, for the program and for all
// libraries that it uses.
extern "C" {

int clock_gettime(clockid_t clock, timespec* time) noexcept {
  using namespace vantrel::endurance;
  const bool is_wall = clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE;
  const bool is_monotonic = clock == CLOCK_MONOTONIC || clock == CLOCK_MONOTONIC_COARSE ||
                            clock == CLOCK_MONOTONIC_RAW || clock == CLOCK_BOOTTIME;
  if (!jumps || !(is_wall || is_monotonic))
    return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
  passed += kLook;
  *time = FromNanoseconds(base[is_wall ? 0 : 1] + passed);
  return 0;
}

int nanosleep(const timespec* time, timespec* left) {
  using namespace vantrel::endurance;
  if (!jumps) return static_cast<int>(syscall(SYS_nanosleep, time, left));
  passed += InNanoseconds(*time);
  return 0;
}

int ppoll(pollfd* descriptors, nfds_t count, const timespec* timeout, const sigset_t* mask) {
  using namespace vantrel::endurance;
  if (!jumps) {
    timespec rest = timeout != nullptr ? *timeout : timespec{};
    return static_cast<int>(syscall(SYS_ppoll, descriptors, count,
                                    timeout != nullptr ? &rest : nullptr, mask, kSignalSet));
  }
  longest_hold = std::max(longest_hold, RealTime(CLOCK_THREAD_CPUTIME_ID) - loop_left);
  int ready = Poll(descriptors, count, on_the_way > 0 ? kArrival : timespec{}, mask);
  if (ready == 0) {
    on_the_way = 0;
    if (timeout == nullptr) {
      ready = static_cast<int>(syscall(SYS_ppoll, descriptors, count, nullptr, mask, kSignalSet));
    } else if (timeout->tv_sec > 0 || timeout->tv_nsec > 0) {
      passed += InNanoseconds(*timeout);
      ++waits;
    }
  }
  loop_left = RealTime(CLOCK_THREAD_CPUTIME_ID);
  return ready;
}

ssize_t write(int descriptor, const void* bytes, size_t count) {
  using namespace vantrel::endurance;
  const ssize_t written = syscall(SYS_write, descriptor, bytes, count);
  if (jumps && written > 0 && IsPseudoTerminal(descriptor)) on_the_way += written;
  return written;
}

ssize_t read(int descriptor, void* bytes, size_t count) {
  using namespace vantrel::endurance;
  const ssize_t taken = syscall(SYS_read, descriptor, bytes, count);
  if (jumps && taken > 0 && IsPseudoTerminal(descriptor))
    on_the_way = std::max<std::int64_t>(on_the_way - taken, 0);
  return taken;
}
}
