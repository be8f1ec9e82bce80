// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"
#include "log/line_log.h"
#include "protocol/frame_reader.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vantrel::log {

// How a capture is played back.
struct PlaybackSettings {
  bool instant = false;     // answers without the gaps that they had, in one chunk
  bool match_code = false;  // a frame is the expected one whatever its data
};

// Answers a console as the printer in a capture did: bytes in, bytes out, time handed in.
//
// The whole frames to the printer in the capture are expected one after the other; what else went
// to the printer counts neither then nor now. Each one that comes is followed by what came from the
// printer after it then, rows of one time in one chunk, at the times after its first byte at which
// they came then but never before it is whole. A frame is expected byte for byte, with these
// exceptions: one with a bad block check in the capture is met by the same frame with a good one
// too, and by the frame that the console sent again for it.
//
// Any other frame is answered at once, with 10h or, where only a bad block check can be told of it,
// with 15h, and the expectation stays. When no frame is expected any more, every one is answered
// with 10h.
class Playback {
 public:
  Playback(std::span<const LogEntry> rows, PlaybackSettings settings);

  // The sink gets each chunk of bytes to write to the line; the other is told of each frame that
  // was not expected, in words: "expected 21h, came 22h". Neither may call changing members.
  void OnSend(std::function<void(const link::Bytes& chunk)> sink) { send_ = std::move(sink); }
  void OnUnexpected(std::function<void(const std::string& words)> tell) { tell_ = std::move(tell); }

  // Bytes from the line, in any split. Time never goes back from call to call.
  void Receive(std::span<const std::uint8_t> bytes, protocol::Moment now);
  // Sends what is due. Call it at NextAdvance() or later.
  void Advance(protocol::Moment now);
  // When there is something to send; nothing while all waits for the console.
  std::optional<protocol::Moment> NextAdvance() const;

  // The frames of the capture, those of them whose answers are out, and the frames that came
  // without being expected.
  std::size_t Frames() const { return steps_.size(); }
  std::size_t Played() const { return played_; }
  std::size_t Unexpected() const { return unexpected_; }
  // Whether all frames have been played.
  bool HasEnded() const { return played_ == steps_.size(); }
  // Whether all frames have been played and no other came.
  bool IsSuccess() const { return HasEnded() && unexpected_ == 0; }
  // "replayed 3 of 12 frames, 0 unexpected".
  std::string Summary() const;

 private:
  struct Answer {
    std::chrono::microseconds gap{0};  // after the frame's first byte
    link::Bytes bytes;
  };
  // A frame of the capture and what came after it.
  struct Step {
    link::Bytes content;
    bool check_was_good = true;
    link::Bytes sent_again;  // the content that the console sent again for it; empty for none
    std::vector<Answer> answers;
  };
  // An answer on its way.
  struct Pending {
    link::Bytes bytes;
    bool is_last = false;  // of its frame
  };

  void TakeRow(const LogEntry& row);
  void NoteResends();
  void Accept(const protocol::FrameParts& frame, protocol::Moment now);
  void AnswerAsThen(const Step& step, protocol::Moment now);
  bool Meets(const Step& step, const protocol::FrameParts& frame) const;
  bool IsSame(const link::Bytes& expected, std::span<const std::uint8_t> content) const;
  void Send(const link::Bytes& chunk) const;

  PlaybackSettings settings_;
  std::vector<Step> steps_;
  std::vector<Answer> before_;  // what came before the first frame
  std::chrono::microseconds frame_time_{0};

  protocol::FrameReader reader_{protocol::Direction::kFromConsole};
  link::Bytes frame_;  // as far as it has come
  protocol::Moment frame_began_{0};
  std::size_t next_ = 0;  // the frame that is expected
  std::multimap<protocol::Moment, Pending> pending_;
  std::size_t played_ = 0;
  std::size_t unexpected_ = 0;
  std::function<void(const link::Bytes&)> send_;
  std::function<void(const std::string&)> tell_;
};

}  // namespace vantrel::log
