#pragma once

#include "link/frame.h"
#include "printer/moment.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vantrel {

// A half frame is forgotten after this much silence.
inline constexpr std::chrono::milliseconds kFrameSilence{500};
// The longest frame, in bytes from STX to ETX. A longer one is forgotten without an answer.
inline constexpr std::size_t kLongestFrame = 65536;

// What came in whole.
struct Arrival {
  bool check_is_good = false;
  // The command code and its data: what stood between STX and ETX. May be empty.
  Bytes content;

  friend bool operator==(const Arrival&, const Arrival&) = default;
};

// Finds the frames STX, content, ETX, block check in a stream of bytes. No content holds 02h or
// 03h, so an STX always begins a frame (what stood before it was cut short) and the byte after an
// ETX is always the block check. Takes any bytes; its memory is bounded by kLongestFrame.
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
  enum class Place { kOutside, kContent, kBlockCheck };

  Place place_ = Place::kOutside;
  Bytes content_;
  Moment last_byte_{0};
};

}  // namespace vantrel
