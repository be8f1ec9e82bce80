// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"
#include "protocol/frame_reader.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vantrel::protocol {

// What came in whole.
struct Arrival {
  bool check_is_good = false;  // the frame's block check is that of its content
  // The command code and its data: what stood between STX and ETX. May be empty.
  link::Bytes content;

  // Whether both are the same frame.
  friend bool operator==(const Arrival&, const Arrival&) = default;
};

// The printer's ear: collects the whole frames that come from a console. A half frame is forgotten
// after kFrameSilence, one longer than kLongestFrame without an answer. Takes any bytes; its memory
// is bounded by kLongestGroup.
class LineReceiver {
 public:
  // The frames that these bytes complete, in order; bytes between frames are skipped. `now` must
  // not go back from call to call.
  std::vector<Arrival> Receive(std::span<const std::uint8_t> bytes, Moment now);
  // When a half frame is forgotten if nothing more comes; nothing while there is none.
  std::optional<Moment> Deadline() const;
  // Forgets a half frame whose silence has lasted.
  void Advance(Moment now);

 private:
  FrameReader reader_{Direction::kFromConsole};
  link::Bytes frame_;  // the one that is open
};

}  // namespace vantrel::protocol
