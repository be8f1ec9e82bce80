// SPDX-License-Identifier: MIT

#include "log/capture_time.h"

#include <chrono>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;

// Ticks of 64 bits in microseconds need more than 64.
__extension__ using Wide = __int128;

constexpr Wide kMicroseconds = 1000000;
constexpr Wide kEarliest =
    WallTime(std::chrono::sys_days(std::chrono::year{0} / 1 / 1)).time_since_epoch() / 1us;
constexpr Wide kLatest =
    WallTime(std::chrono::sys_days(std::chrono::year{10000} / 1 / 1)).time_since_epoch() / 1us - 1;

Wide PowerOfTen(int exponent) {
  Wide power = 1;
  for (; exponent > 0; --exponent) power *= 10;
  return power;
}

Wide MicrosecondsOf(std::uint64_t ticks, std::uint8_t resolution) {
  const int exponent = resolution & 0x7F;
  if ((resolution & 0x80) != 0) return ticks * kMicroseconds >> exponent;
  if (exponent <= 6) return ticks * PowerOfTen(6 - exponent);
  // No number of 64 bits has more than 20 digits.
  return exponent - 6 > 20 ? 0 : ticks / PowerOfTen(exponent - 6);
}

}  // namespace

std::optional<WallTime> PacketTime(std::uint64_t ticks, std::uint8_t resolution,
                                   std::int64_t offset) {
  const Wide microseconds = MicrosecondsOf(ticks, resolution) + offset * kMicroseconds;
  if (microseconds < kEarliest || microseconds > kLatest) return std::nullopt;
  return WallTime(std::chrono::microseconds(static_cast<std::int64_t>(microseconds)));
}

}  // namespace vantrel::log
