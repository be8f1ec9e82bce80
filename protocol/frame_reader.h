// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/frame.h"
#include "protocol/moment.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace vantrel::protocol {

// Silence after which a half frame and a run of noise are complete as they stand.
inline constexpr std::chrono::milliseconds kFrameSilence{500};
// The longest frame, in bytes from STX to ETX.
inline constexpr std::size_t kLongestFrame = 65536;
// The longest group: the longest frame with its block check. What goes on longer ends there, and
// the rest is noise until the next STX.
inline constexpr std::size_t kLongestGroup = kLongestFrame + 1;

// Tells, byte by byte, the groups apart that one end of the line sends: frames, the printer's
// control characters and noise. It keeps no bytes. No content of a frame holds 02h or 03h, so an
// STX always begins a frame (what stood before it was cut short) and the byte after an ETX is
// always the block check. Takes any bytes.
class FrameReader {
 public:
  // What a byte is to the group that it belongs to.
  struct Step {
    GroupKind kind = GroupKind::kNoise;  // of that group
    bool begins = false;  // it is the group's first byte; a group that was open is over
    bool ends = false;    // it is the last byte of the group
    bool whole = false;   // it is the block check that makes a frame whole

    // Whether both say the same.
    friend bool operator==(const Step&, const Step&) = default;
  };

  // Reads what `sender` sends.
  explicit FrameReader(Direction sender) : sender_(sender) {}

  // The next byte, and when it came. Silence is not looked at here: call Settle first. `now` must
  // not go back from call to call.
  Step Take(std::uint8_t byte, Moment now);
  // Ends a group whose silence has lasted by `now`; the next byte begins another.
  void Settle(Moment now);
  // Ends the group that is open.
  void EndGroup() { place_ = Place::kNothing; }
  // A whole frame has come from the other end. A frame of the printer that is open now was cut
  // short if a control character is next to come in it: that answers the other end's frame and
  // stands alone. Without this call it would count as the half frame's content.
  void Overtake() { overtaken_ = IsInFrame(); }

  // Whether there is a group that may still grow.
  bool IsOpen() const { return place_ != Place::kNothing; }
  // Whether that is a frame.
  bool IsInFrame() const { return place_ == Place::kContent || place_ == Place::kBlockCheck; }
  // When the open group is complete if nothing more comes; nothing while none is open.
  std::optional<Moment> Deadline() const;

 private:
  enum class Place { kNothing, kNoise, kContent, kBlockCheck };

  bool IsControl(std::uint8_t byte) const;
  void Begin(Place place);

  Direction sender_;
  Place place_ = Place::kNothing;
  std::size_t length_ = 0;  // of the open group
  bool overtaken_ = false;
  Moment last_byte_{0};
};

}  // namespace vantrel::protocol
