// SPDX-License-Identifier: MIT

#include "printer/model/answers.h"

#include "printer/model/console_limit.h"
#include "protocol/control.h"
#include "protocol/frame.h"

#include <algorithm>
#include <utility>

namespace vantrel::printer {
namespace {

using Kind = Fault::Kind;

// Replies that may wait for their time, as many short ones with a fault make them; further ones are
// lost.
constexpr std::size_t kMostLaterReplies = 1000;

std::uint8_t WrongCheck(std::uint8_t check, unsigned kind) {
  switch (kind) {
    case Fault::kZero:
      return check == 0 ? 0xFF : 0x00;
    case Fault::kOthers:
      return check ^ 0x02U ^ 0x03U;
    default:
      return check ^ 0xFFU;
  }
}

// The reply as the faults leave it.
link::Bytes FrameOf(const Asked& asked, const Reply& reply) {
  std::uint8_t code = asked.code.value_or(0);
  if (asked.strikes.Has(Kind::kWrongEcho)) code ^= 0x80U;
  link::Bytes content{code, reply.status};
  content.insert(content.end(), reply.data.begin(), reply.data.end());
  link::Bytes frame = protocol::FrameAround(content);
  if (const Fault* wrong = asked.strikes.Find(Kind::kBadCheck))
    frame.back() = WrongCheck(frame.back(), wrong->value);
  if (asked.strikes.Has(Kind::kTruncate)) frame.resize(frame.size() - 2);
  return frame;
}

// Counts what answers; one of its bytes may get lost.
link::Bytes WithoutDropped(Asked& asked, link::Bytes bytes) {
  const std::size_t before = std::exchange(asked.answered, asked.answered + bytes.size());
  const Fault* drop = asked.strikes.Find(Kind::kDrop);
  if (drop != nullptr && drop->value > before && drop->value <= asked.answered)
    bytes.erase(bytes.begin() + static_cast<std::ptrdiff_t>(drop->value - before - 1));
  return bytes;
}

std::chrono::milliseconds GapOf(const Asked& asked) {
  const Fault* split = asked.strikes.Find(Kind::kSplit);
  return std::chrono::milliseconds(split != nullptr ? split->value : 0);
}

// When a reply of this moment is due; nothing where it is not late.
std::optional<protocol::Moment> DueLate(const Asked& asked, protocol::Moment now) {
  std::optional<protocol::Moment> due;
  if (const Fault* delay = asked.strikes.Find(Kind::kDelay))
    due = now + std::chrono::milliseconds(delay->value);
  if (const Fault* late = asked.strikes.Find(Kind::kLate)) {
    const auto given_up = asked.when + ConsoleLimitOf(asked.code.value_or(0)) +
                          std::chrono::milliseconds(late->value);
    due = std::max({now, given_up, due.value_or(now)});
  }
  return due;
}

}  // namespace

void Answers::Chunk::Add(const Chunk& more) {
  for (const auto& [end, answer] : more.ends) ends.emplace_back(bytes.size() + end, answer);
  Add(more.bytes);
}

void Answers::Begin(const Asked& asked) {
  beginning_ = true;
  if (const Fault* noise = asked.strikes.Find(Kind::kNoise)) chunk_.Add(noise->bytes);
  if (asked.strikes.Has(Kind::kSplit)) gap_ = GapOf(asked);
}

void Answers::Accept(Asked& asked) {
  // What is kept back goes out with the next answer, so only one can be kept back at a time.
  asked.kept_back = asked.strikes.Has(Kind::kJoin) && kept_back_.bytes.empty();
  if (asked.strikes.Has(Kind::kMute)) return;
  ChunkOf(asked).Add(WithoutDropped(asked, {protocol::kAcknowledge}));
}

void Answers::AnswerWith(std::uint8_t control, Asked& asked) {
  if (asked.strikes.Has(Kind::kMute)) return;
  AddAnswer(chunk_, asked, std::nullopt, WithoutDropped(asked, {control}));
}

void Answers::ReplyWith(const Reply& reply, Asked& asked, protocol::Moment now) {
  if (asked.strikes.Has(Kind::kMute)) return;
  Chunk answer;
  AddAnswer(answer, asked, reply.status, WithoutDropped(asked, FrameOf(asked, reply)));
  const auto late = DueLate(asked, now);
  if (asked.kept_back || (beginning_ && !late))
    ChunkOf(asked).Add(answer);
  else if (later_.size() < kMostLaterReplies)
    later_.push_back({std::move(answer), GapOf(asked), late.value_or(now)});
}

void Answers::Clear() {
  later_.clear();
  kept_back_ = {};
  outgoing_.Clear();
  ends_.clear();
  taken_ = put_;
}

std::optional<protocol::Moment> Answers::Deadline() const {
  if (const auto due = outgoing_.Deadline()) return due;
  if (later_.empty()) return std::nullopt;
  const protocol::Moment due = later_.front().due;
  return last_sent_ ? std::max(due, *last_sent_ + kReplyGap) : due;
}

std::optional<Answers::Leaving> Answers::Take(protocol::Moment now) {
  // An answer to what has just come in goes first; a later reply keeps its distance from it.
  if (!chunk_.bytes.empty()) {
    Put(std::exchange(chunk_, {}), gap_, now);
  } else if (!later_.empty() && outgoing_.IsEmpty() && later_.front().due <= now &&
             (!last_sent_ || *last_sent_ + kReplyGap <= now)) {
    const Later later = std::move(later_.front());
    later_.pop_front();
    Put(later.chunk, later.gap, now);
  }
  gap_ = {};
  auto bytes = outgoing_.Take(now);
  if (!bytes) return std::nullopt;
  last_sent_ = now;
  taken_ += bytes->size();
  Leaving leaving{*std::move(bytes), {}};
  while (!ends_.empty() && ends_.front().first <= taken_) {
    leaving.answers.push_back(std::move(ends_.front().second));
    ends_.pop_front();
  }
  return leaving;
}

void Answers::AddAnswer(Chunk& chunk, const Asked& asked, std::optional<std::uint8_t> status,
                        link::Bytes bytes) {
  if (const Fault* extra = asked.strikes.Find(Kind::kExtra))
    bytes.insert(bytes.end(), extra->bytes.begin(), extra->bytes.end());
  if (bytes.empty()) return;
  chunk.Add(bytes);
  chunk.ends.emplace_back(chunk.bytes.size(),
                          Answered{asked.code, status, std::move(bytes), asked.number});
}

void Answers::Put(const Chunk& chunk, std::chrono::milliseconds gap, protocol::Moment now) {
  Chunk all = std::exchange(kept_back_, {});
  all.Add(chunk);
  const std::size_t room = outgoing_.Put(all.bytes, gap, now);
  for (auto& [end, answer] : all.ends) {
    if (end <= room) ends_.emplace_back(put_ + end, std::move(answer));
  }
  put_ += room;
}

}  // namespace vantrel::printer
