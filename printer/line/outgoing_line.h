// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"
#include "protocol/moment.h"

#include <chrono>
#include <cstddef>
#include <deque>
#include <optional>

namespace vantrel::printer {

// What is put past this many bytes that wait for their time is lost: a printer has only so much
// room, and who is asked faster than the line can answer would talk to nobody for minutes.
inline constexpr std::size_t kMostUnsent = 4096;

// What the printer has to say, on its way out: each chunk at its time, in order. A chunk goes out
// whole at the moment when its last byte would have arrived on a line of the given speed. Bytes one
// by one would be truer, but a console that discards its input after each read loses those that
// arrive in between.
class OutgoingLine {
 public:
  // Bits a second, a byte being ten bits; 0, as at the start, for no time at all. Holds for what is
  // put from now on.
  void SetSpeed(int speed) { speed_ = speed; }
  // Puts a chunk behind what waits already; with a gap, each byte goes alone and that much later
  // than the line would need. Returns how many bytes there was room for, from the first one on.
  std::size_t Put(const link::Bytes& chunk, std::chrono::milliseconds gap, protocol::Moment now);
  // The next that is due, which is on its way no more; nothing while none is.
  std::optional<link::Bytes> Take(protocol::Moment now);
  // When there is something to take; nothing while the line is empty.
  std::optional<protocol::Moment> Deadline() const;
  bool IsEmpty() const { return parts_.empty(); }
  void Clear();

 private:
  struct Part {
    link::Bytes bytes;
    protocol::Moment due;
  };

  void PutPart(link::Bytes bytes, std::chrono::milliseconds gap, protocol::Moment now);

  int speed_ = 0;
  std::deque<Part> parts_;
  std::size_t unsent_ = 0;
};

// What a line at `heard` bits a second makes of bytes that are sent, one right after the other, at
// `sent` bits a second: it samples their start, data (lowest first) and stop bits at its own times.
// Both speeds must be greater than 0. At most about five bytes a byte come of it, often none.
link::Bytes HeardAtAnotherSpeed(const link::Bytes& bytes, int sent, int heard);

}  // namespace vantrel::printer
