// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"
#include "printer/commands/command.h"
#include "printer/line/outgoing_line.h"
#include "printer/model/fault_plan.h"
#include "protocol/moment.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

namespace vantrel::printer {

// A reply that follows its 06h later comes at least this long after the last bytes sent, so that a
// console that discards its input right after each read does not lose it.
inline constexpr std::chrono::milliseconds kReplyGap{20};

// A frame that is to be answered, and what goes wrong with its answer.
struct Asked {
  std::optional<std::uint8_t> code;
  protocol::Moment when{0};
  Strikes strikes;
  // Which frame it is, counted from 1; 0 for what no frame has asked.
  std::size_t number = 0;

  // How many bytes of the answer there have been, 06h too.
  std::size_t answered = 0;
  // The answer is kept back until something else is sent.
  bool kept_back = false;
};

// What a command was answered with: its reply frame, 10h, 15h or another control character, as it
// has left for the line.
struct Answered {
  std::optional<std::uint8_t> code;    // of the command
  std::optional<std::uint8_t> status;  // of the reply; nothing where there was no reply
  link::Bytes bytes;
  // Which frame it answers, see PrinterModel::LastHeard.
  std::size_t number = 0;

  friend bool operator==(const Answered&, const Answered&) = default;
};

// The answers on their way out: control characters at once, a reply in the same chunk as its 06h
// or later, each with what goes wrong with it.
class Answers {
 public:
  // One chunk that leaves, and the answers that have left with its last byte.
  struct Leaving {
    link::Bytes bytes;
    std::vector<Answered> answers;
  };

  // Bits a second; 0, as at the start, for no time at all.
  void SetSpeed(int speed) { outgoing_.SetSpeed(speed); }

  // Between these two a frame is answered that has just come: a reply shares the chunk of its 06h.
  void Begin(const Asked& asked);
  void End() { beginning_ = false; }
  // 06h.
  void Accept(Asked& asked);
  // Any other control character, which is all of the answer.
  void AnswerWith(std::uint8_t control, Asked& asked);
  // The reply, when the work is done.
  void ReplyWith(const Reply& reply, Asked& asked, protocol::Moment now);

  // Ends all that has not gone out yet.
  void Clear();
  // When there is something to take; nothing while there is nothing.
  std::optional<protocol::Moment> Deadline() const;
  // What leaves now, at most one chunk.
  std::optional<Leaving> Take(protocol::Moment now);

 private:
  // Bytes that go out together, and where in them answers end.
  struct Chunk {
    link::Bytes bytes;
    std::vector<std::pair<std::size_t, Answered>> ends;

    void Add(const link::Bytes& more) { bytes.insert(bytes.end(), more.begin(), more.end()); }
    void Add(const Chunk& more);
  };
  struct Later {
    Chunk chunk;
    std::chrono::milliseconds gap;
    protocol::Moment due;
  };

  Chunk& ChunkOf(const Asked& asked) { return asked.kept_back ? kept_back_ : chunk_; }
  // Adds all of an answer, or its last part.
  static void AddAnswer(Chunk& chunk, const Asked& asked, std::optional<std::uint8_t> status,
                        link::Bytes bytes);
  // What goes out next together with what was kept back for it.
  void Put(const Chunk& chunk, std::chrono::milliseconds gap, protocol::Moment now);

  bool beginning_ = false;
  Chunk chunk_;
  std::chrono::milliseconds gap_{0};
  std::deque<Later> later_;
  Chunk kept_back_;
  OutgoingLine outgoing_;
  std::optional<protocol::Moment> last_sent_;
  // Since the start: how many bytes the line took and gave, and where answers end in them.
  std::size_t put_ = 0;
  std::size_t taken_ = 0;
  std::deque<std::pair<std::size_t, Answered>> ends_;
};

}  // namespace vantrel::printer
