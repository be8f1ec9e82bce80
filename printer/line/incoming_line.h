// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"
#include "protocol/moment.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

namespace vantrel::printer {

// What is put past this many bytes that are still on their way is lost. Who reads the line asks for
// no more long before.
inline constexpr std::size_t kMostUnheard = 262144;

// What a console says, on its way in: each byte arrives when a line of the given speed would have
// carried it over, however many are put at once.
class IncomingLine {
 public:
  // Bytes that arrive at one moment.
  struct Part {
    link::Bytes bytes;
    protocol::Moment when;
    bool is_misheard = false;

    friend bool operator==(const Part&, const Part&) = default;
  };

  // Bits a second, a byte being ten bits; 0, as at the start, for no time at all. Holds for what is
  // put from now on.
  void SetSpeed(int speed) { speed_ = speed; }
  // Puts bytes behind what is on its way already; `misheard` where they are what the printer makes
  // of others.
  void Put(std::span<const std::uint8_t> bytes, protocol::Moment now, bool misheard = false);
  // What has arrived by `now`, in order.
  std::vector<Part> Take(protocol::Moment now);
  // When the next frame may be complete, or a quarter of a second's or 512 bytes or all that was
  // put at once have arrived; nothing while the line is empty.
  std::optional<protocol::Moment> Deadline() const;
  // How many bytes are on their way.
  std::size_t Waiting() const { return waiting_; }
  void Clear();

 private:
  // How many bytes stand at the front up to one that may be a block check.
  std::size_t LengthOfRun(std::span<const std::uint8_t> bytes) const;

  // Bytes one right after the other, up to one that may be a block check. Times are in nanoseconds.
  struct Run {
    link::Bytes bytes;
    std::int64_t start;
    std::int64_t byte_time;
    bool is_misheard;
    std::size_t taken = 0;

    // When byte number `index` has arrived, rounded up.
    protocol::Moment ArrivalOf(std::size_t index) const;
  };

  int speed_ = 0;
  std::deque<Run> runs_;
  std::size_t waiting_ = 0;
  std::int64_t busy_until_ = 0;
  bool check_is_next_ = false;  // the last byte that was put was an ETX
};

}  // namespace vantrel::printer
