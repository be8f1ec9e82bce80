// SPDX-License-Identifier: MIT

#include "log/playback.h"

#include "protocol/control.h"
#include "protocol/frame.h"
#include "protocol/frame_words.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantrel::log {
namespace {

using std::chrono::microseconds;

std::span<const std::uint8_t> BytesIn(const LogEntry& row) {
  return {reinterpret_cast<const std::uint8_t*>(row.bytes.data()), row.bytes.size()};
}

std::string NameOf(std::span<const std::uint8_t> content) {
  return content.empty() ? "an empty frame" : link::HexOf(content.front()) + "h";
}

std::string DataOf(std::span<const std::uint8_t> content) {
  return protocol::DataInWords(std::string(content.begin() + 1, content.end()));
}

// How the data of one command differ: `41h: data "B" instead of "A"`.
std::string DifferenceOf(const link::Bytes& expected, std::span<const std::uint8_t> content) {
  const std::string name = NameOf(content) + ": ";
  const std::string came = DataOf(content);
  const std::string instead_of = DataOf(expected);
  if (came.empty()) return name + "no data instead of " + instead_of;
  if (instead_of.empty()) return name + "data " + came + " instead of none";
  if (came != instead_of) return name + "data " + came + " instead of " + instead_of;
  // Long data, of which the words tell only how they begin.
  const auto [there, here] =
      std::mismatch(expected.begin(), expected.end(), content.begin(), content.end());
  return name + "data differ from byte " + std::to_string(std::distance(content.begin(), here)) +
         " on";
}

}  // namespace

Playback::Playback(std::span<const LogEntry> rows, PlaybackSettings settings)
    : settings_(settings) {
  for (const LogEntry& row : rows) TakeRow(row);
  before_.clear();
  NoteResends();
}

void Playback::TakeRow(const LogEntry& row) {
  const auto time = std::chrono::duration_cast<microseconds>(row.time.time_since_epoch());
  const auto bytes = BytesIn(row);
  if (row.direction == protocol::Direction::kFromPrinter) {
    auto& answers = steps_.empty() ? before_ : steps_.back().answers;
    const microseconds gap = time - frame_time_;
    if (!answers.empty() && answers.back().gap == gap)
      answers.back().bytes.insert(answers.back().bytes.end(), bytes.begin(), bytes.end());
    else
      answers.push_back({gap, {bytes.begin(), bytes.end()}});
    return;
  }
  if (protocol::KindOf(row.direction, bytes) != protocol::GroupKind::kFrame) return;
  const protocol::FrameParts parts = protocol::PartsOf(bytes);
  if (!parts.check) return;
  Step step{{parts.content.begin(), parts.content.end()}, parts.CheckIsGood(), {}, {}};
  frame_time_ = time;
  // What came before the first frame goes with its answers. Its times lie before the frame, so it
  // is out when the frame is whole.
  for (Answer& early : before_) step.answers.push_back({early.gap - time, std::move(early.bytes)});
  before_.clear();
  steps_.push_back(std::move(step));
}

// Where a frame came with a bad block check and the printer had it sent again, what came next is
// what the console meant.
void Playback::NoteResends() {
  for (std::size_t i = 0; i + 1 < steps_.size(); ++i) {
    Step& step = steps_[i];
    const Step& next = steps_[i + 1];
    const bool asked = std::any_of(step.answers.begin(), step.answers.end(), [](const Answer& a) {
      return a.bytes == link::Bytes{protocol::kResend};
    });
    if (!step.check_was_good && next.check_was_good && asked) step.sent_again = next.content;
  }
}

void Playback::Receive(std::span<const std::uint8_t> bytes, protocol::Moment now) {
  reader_.Settle(now);
  for (const std::uint8_t byte : bytes) {
    const protocol::FrameReader::Step step = reader_.Take(byte, now);
    if (step.begins) {
      frame_.clear();
      frame_began_ = now;
    }
    if (step.kind != protocol::GroupKind::kFrame) continue;
    frame_.push_back(byte);
    if (step.whole) Accept(protocol::PartsOf(frame_), now);
  }
  Advance(now);
}

void Playback::Accept(const protocol::FrameParts& frame, protocol::Moment now) {
  // What was due before this frame goes before its answers.
  Advance(now);
  const bool is_good = frame.CheckIsGood();
  if (next_ < steps_.size() && Meets(steps_[next_], frame)) {
    AnswerAsThen(steps_[next_++], now);
    return;
  }
  ++unexpected_;
  std::string words;
  if (next_ == steps_.size())
    words = "expected no more frames, came " + NameOf(frame.content);
  else if (const link::Bytes& expected = steps_[next_].content;
           !is_good || expected.empty() || frame.content.empty() ||
           expected.front() != frame.content.front())
    words = "expected " + NameOf(expected) + ", came " + NameOf(frame.content);
  else
    words = DifferenceOf(expected, frame.content);
  if (!is_good) words += " with a bad block check";
  if (tell_) tell_(words);
  Send({is_good || next_ == steps_.size() ? protocol::kReject : protocol::kResend});
}

void Playback::AnswerAsThen(const Step& step, protocol::Moment now) {
  if (step.answers.empty()) {
    ++played_;
    return;
  }
  if (settings_.instant) {
    // All at one time, so one write.
    Pending all{{}, true};
    for (const Answer& answer : step.answers)
      all.bytes.insert(all.bytes.end(), answer.bytes.begin(), answer.bytes.end());
    pending_.insert({now, std::move(all)});
    return;
  }
  protocol::Moment due = now;
  for (const Answer& answer : step.answers) {
    due = std::max(due, frame_began_ + std::chrono::round<protocol::Moment>(answer.gap));
    pending_.insert({due, {answer.bytes, &answer == &step.answers.back()}});
  }
}

bool Playback::Meets(const Step& step, const protocol::FrameParts& frame) const {
  const bool is_good = frame.CheckIsGood();
  if (step.check_was_good && !is_good) return false;
  if (IsSame(step.content, frame.content)) return true;
  return is_good && !step.sent_again.empty() && IsSame(step.sent_again, frame.content);
}

bool Playback::IsSame(const link::Bytes& expected, std::span<const std::uint8_t> content) const {
  if (settings_.match_code && !expected.empty() && !content.empty())
    return expected.front() == content.front();
  return std::equal(expected.begin(), expected.end(), content.begin(), content.end());
}

void Playback::Advance(protocol::Moment now) {
  while (!pending_.empty() && pending_.begin()->first <= now) {
    const auto node = pending_.extract(pending_.begin());
    if (node.mapped().is_last) ++played_;
    Send(node.mapped().bytes);
  }
}

std::optional<protocol::Moment> Playback::NextAdvance() const {
  if (pending_.empty()) return std::nullopt;
  return pending_.begin()->first;
}

void Playback::Send(const link::Bytes& chunk) const {
  if (send_) send_(chunk);
}

std::string Playback::Summary() const {
  return "replayed " + std::to_string(Played()) + " of " + std::to_string(Frames()) + " frames, " +
         std::to_string(Unexpected()) + " unexpected";
}

}  // namespace vantrel::log
