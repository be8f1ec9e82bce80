#include "printer/printer_model.h"

#include <algorithm>
#include <utility>

namespace vantrel {
namespace {

constexpr std::uint8_t kAccepted = 0x06;
constexpr std::uint8_t kRejected = 0x10;
constexpr std::uint8_t kSendAgain = 0x15;

bool IsRecordable(char character) {
  return character == 0x01 || (character >= 0x04 && character <= 0x7E);
}

Bytes FrameOf(std::uint8_t code, const Reply& reply) {
  std::string data = HexOf(reply.status);
  for (const char character : reply.data) data += HexOf(static_cast<std::uint8_t>(character));
  return BytesOf(ComposeFrame(HexOf(code), data));
}

// The reply as the fault leaves it.
Bytes FrameOf(std::uint8_t code, const Reply& reply, const Fault* fault) {
  if (fault == nullptr) return FrameOf(code, reply);
  if (fault->kind == Fault::Kind::kWrongEcho)
    return FrameOf(static_cast<std::uint8_t>(code ^ 0x80U), reply);
  Bytes frame = FrameOf(code, reply);
  if (fault->kind == Fault::Kind::kBadCheck) frame.back() ^= 0xFFU;
  if (fault->kind == Fault::Kind::kTruncate) frame.resize(frame.size() - 2);
  return frame;
}

void Append(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

std::chrono::milliseconds GapOf(const Fault* fault) {
  return std::chrono::milliseconds(
      fault != nullptr && fault->kind == Fault::Kind::kSplit ? fault->value : 0);
}

// Replies that may wait for their time, as many short ones with a fault make them; further ones are
// lost.
constexpr std::size_t kMostLaterReplies = 1000;

// Whether the command is served at any moment, whatever else is going on.
bool IsServedBeside(const CommandRow& row) {
  return row.need == Need::kNothing && row.duration == kNoTime;
}

}  // namespace

void PrinterModel::Receive(std::span<const std::uint8_t> bytes, Moment now) {
  LetTimePass(now);
  if (!state_.power) return;
  Bytes garbled;
  if (SpeedsDiffer()) {
    garbled = HeardAtAnotherSpeed({bytes.begin(), bytes.end()}, *console_speed_, speed_);
    bytes = garbled;
  }
  for (const Arrival& arrival : receiver_.Receive(bytes, now)) {
    if (arrival.check_is_good)
      Accept(arrival, now);
    else
      chunk_.push_back(kSendAgain);
  }
  Flush(now);
}

void PrinterModel::Advance(Moment now) {
  receiver_.Advance(now);
  LetTimePass(now);
  Flush(now);
}

std::optional<Moment> PrinterModel::NextAdvance() const {
  std::optional<Moment> next = receiver_.Deadline();
  const auto take = [&next](Moment moment) { next = next ? std::min(*next, moment) : moment; };
  if (work_) take(work_->done);
  if (const auto change = state_.indicators.NextChange(state_.now)) take(*change);
  if (const auto due = outgoing_.Deadline()) {
    take(*due);
  } else if (!later_replies_.empty()) {
    const Moment due_reply = later_replies_.front().due;
    take(last_sent_ ? std::max(due_reply, *last_sent_ + kReplyGap) : due_reply);
  }
  return next;
}

bool PrinterModel::InsertCard(Moment now) {
  LetTimePass(now);
  const bool possible = state_.place == CardPlace::kOutside;
  if (possible) state_.place = CardPlace::kFront;
  if (possible && waiting_) Begin(*std::exchange(waiting_, std::nullopt), now);
  Flush(now);
  return possible;
}

bool PrinterModel::PullOutCard(Moment now) {
  LetTimePass(now);
  const bool possible = state_.place != CardPlace::kOutside && !work_;
  if (possible) state_.place = CardPlace::kOutside;
  if (possible && waiting_) Begin(*std::exchange(waiting_, std::nullopt), now);
  Flush(now);
  return possible;
}

bool PrinterModel::SetCardKind(CardKind kind) {
  if (state_.place != CardPlace::kOutside) return false;
  state_.card.kind = kind;
  if (change_) change_();
  return true;
}

bool PrinterModel::ChangeCard(Card card) {
  if (state_.place != CardPlace::kOutside) return false;
  state_.card = std::move(card);
  if (change_) change_();
  return true;
}

void PrinterModel::SetTrack(std::size_t track, std::string_view contents) {
  std::string& recorded = state_.card.tracks.at(track);
  recorded.clear();
  for (const char character : contents) {
    if (IsRecordable(character) && recorded.size() < kTrackLength[track]) recorded += character;
  }
  if (change_) change_();
}

void PrinterModel::SetPower(bool on, Moment now) {
  LetTimePass(now);
  if (on == state_.power) return;
  EndEverything();
  receiver_ = {};
  state_.power = on;
  state_.StartAfresh();
  if (on) {
    state_.cleaning_button = state_.stored_cleaning_button;
    state_.setting = state_.stored_setting;
  }
  Flush(now);
}

void PrinterModel::SetFault(std::optional<Fault> fault) {
  fault_ = std::move(fault);
  resends_ = 0;
  if (change_) change_();
}

void PrinterModel::SetSpeed(int speed) {
  speed_ = speed;
  SetPacing(pacing_);
}

void PrinterModel::SetPacing(bool pacing) {
  pacing_ = pacing;
  outgoing_.SetSpeed(pacing ? speed_ : 0);
  if (change_) change_();
}

void PrinterModel::SetSeries(Series series) {
  state_.series = series;
  if (change_) change_();
}

void PrinterModel::SetCaseParts(bool fitted) {
  state_.case_parts = fitted;
  if (change_) change_();
}

std::string PrinterModel::ActivityInWords() const {
  if (!state_.power) return "Switched off";
  if (work_) return HexOf(work_->job.command.code) + "h is at work";
  if (!waiting_) return "Idle";
  const std::string code = HexOf(waiting_->command.code) + "h";
  if (state_.wait == CardWait::kRemoval) return code + " waits for the card to be pulled out";
  if (waiting_->row->need == Need::kCleaningCard) return code + " waits for a cleaning card";
  return code + " waits for a card";
}

void PrinterModel::LetTimePass(Moment now) {
  DoDueWork(now);
  state_.now = now;
  state_.indicators.Advance(now);
}

void PrinterModel::Accept(const Arrival& arrival, Moment now) {
  Job job;
  if (!arrival.content.empty()) {
    job.command.code = arrival.content.front();
    job.command.data.assign(arrival.content.begin() + 1, arrival.content.end());
    job.row = FindCommand(job.command.code);
  }
  if (IsStopped(job)) return;
  if (job.Has(Fault::Kind::kNoise)) Append(chunk_, job.fault->noise);
  if (job.Has(Fault::Kind::kSplit)) chunk_gap_ = GapOf(job.fault.get());
  if (job.row == nullptr || !IsTaken(*job.row, job.command)) {
    chunk_.push_back(kRejected);
    return;
  }
  if (job.command.code == kResetCode && !job.Has(Fault::Kind::kStatus)) EndEverything();
  const bool beside = IsServedBeside(*job.row);
  if (!beside && line_.size() >= kLongestLine) {
    chunk_.push_back(kRejected);
    return;
  }
  // What is kept back goes out with the next answer, so only one can be kept back at a time.
  if (job.Has(Fault::Kind::kJoin) && !kept_back_.empty()) job.fault.reset();
  (job.Has(Fault::Kind::kJoin) ? kept_back_ : chunk_).push_back(kAccepted);
  acknowledging_ = true;
  if (beside) {
    Finish(job);
    // 54h or 55h has ended the wait.
    if (waiting_ && state_.wait == CardWait::kNone) waiting_.reset();
  } else if (work_) {
    line_.push_back(std::move(job));
  } else {
    Begin(std::move(job), now);
  }
  acknowledging_ = false;
}

bool PrinterModel::IsTaken(const CommandRow& row, const Command& command) const {
  return row.takes(command.data) && (row.fits == nullptr || row.fits(state_, command));
}

bool PrinterModel::IsStopped(Job& job) {
  if (!fault_) return false;
  if (fault_->kind == Fault::Kind::kResend && resends_ < fault_->value) {
    ++resends_;
    chunk_.push_back(kSendAgain);
    return true;
  }
  resends_ = 0;
  job.fault = std::make_shared<const Fault>(*fault_);
  if (fault_->commands && --*fault_->commands == 0) fault_.reset();
  switch (job.fault->kind) {
    case Fault::Kind::kSilence:
      return true;
    case Fault::Kind::kReject:
      chunk_.push_back(kRejected);
      return true;
    case Fault::Kind::kUnknownControl:
      chunk_.push_back(static_cast<std::uint8_t>(job.fault->value));
      return true;
    case Fault::Kind::kVanish:
      vanishing_ = true;
      return true;
    default:
      return false;
  }
}

bool PrinterModel::SpeedsDiffer() const {
  return pacing_ && console_speed_ && *console_speed_ != speed_;
}

// What a person was to do for an earlier command has no meaning any more once this one begins.
void PrinterModel::Begin(Job job, Moment now) {
  waiting_.reset();
  state_.wait = CardWait::kNone;
  switch (NextStep(job)) {
    case Step::kWork:
      if (!instant_) {
        const Moment done = now + job.row->duration;
        work_ = Work{std::move(job), done};
        return;
      }
      [[fallthrough]];
    case Step::kInstantWork:
      Finish(job);
      return;
    case Step::kRefuse:
      Answer(job, {status::kNoTargetCard, {}});
      return;
    case Step::kAwaitInsertion:
      state_.wait = CardWait::kInsertion;
      break;
    case Step::kAwaitRemoval:
      state_.wait = CardWait::kRemoval;
      break;
  }
  waiting_ = std::move(job);
}

void PrinterModel::BeginNext(Moment now) {
  while (!work_ && !line_.empty()) {
    Job job = std::move(line_.front());
    line_.pop_front();
    Begin(std::move(job), now);
  }
}

// Work that is overdue ends, and the next in line begins, at the moment when it was due: a late
// call makes nothing slower.
void PrinterModel::DoDueWork(Moment now) {
  while (work_ && work_->done <= now) {
    const Work work = *std::exchange(work_, std::nullopt);
    state_.now = work.done;
    Finish(work.job);
    BeginNext(work.done);
  }
}

void PrinterModel::Finish(const Job& job) {
  if (job.Has(Fault::Kind::kStatus))
    Answer(job, {static_cast<std::uint8_t>(job.fault->value), {}});
  else
    Answer(job, job.row->work(state_, job.command));
}

void PrinterModel::Answer(const Job& job, const Reply& reply) {
  Bytes frame = FrameOf(job.command.code, reply, job.fault.get());
  const bool late = job.Has(Fault::Kind::kDelay);
  if (job.Has(Fault::Kind::kJoin)) {
    Append(kept_back_, frame);
  } else if (acknowledging_ && !late) {
    Append(chunk_, frame);
  } else if (later_replies_.size() < kMostLaterReplies) {
    const std::chrono::milliseconds delay{late ? job.fault->value : 0};
    later_replies_.push_back({std::move(frame), GapOf(job.fault.get()), state_.now + delay});
  }
}

void PrinterModel::EndEverything() {
  waiting_.reset();
  work_.reset();
  line_.clear();
  later_replies_.clear();
  kept_back_.clear();
  outgoing_.Clear();
  state_.wait = CardWait::kNone;
}

PrinterModel::Step PrinterModel::NextStep(const Job& job) {
  const Need need = job.row->need;
  if (need == Need::kNothing || job.Has(Fault::Kind::kStatus)) return Step::kWork;
  if (need == Need::kBufferOrCard && state_.buffers.at(TrackOf(job.command)))
    return Step::kInstantWork;
  const bool ordinary = state_.card.kind == CardKind::kOrdinary;
  if (need == Need::kCleaningCard && state_.HasTargetCard() && ordinary)
    state_.Transport(CardPlace::kExit);
  if (state_.HasTargetCard()) return Step::kWork;
  if (need == Need::kTargetCard) return Step::kRefuse;
  return state_.place == CardPlace::kExit ? Step::kAwaitRemoval : Step::kAwaitInsertion;
}

void PrinterModel::Flush(Moment now) {
  // An answer to what has just come in goes first; a later reply keeps its distance from it.
  if (!chunk_.empty()) {
    Put(std::exchange(chunk_, {}), chunk_gap_, now);
  } else if (!later_replies_.empty() && outgoing_.IsEmpty() && later_replies_.front().due <= now &&
             (!last_sent_ || *last_sent_ + kReplyGap <= now)) {
    const LaterReply reply = std::move(later_replies_.front());
    later_replies_.pop_front();
    Put(reply.frame, reply.gap, now);
  }
  chunk_gap_ = {};
  if (const auto due = outgoing_.Take(now)) {
    last_sent_ = now;
    const Bytes bytes = SpeedsDiffer() ? HeardAtAnotherSpeed(*due, speed_, *console_speed_) : *due;
    if (send_ && !bytes.empty()) send_(bytes);
  }
  if (change_) change_();
  if (std::exchange(vanishing_, false) && vanish_) vanish_();
}

void PrinterModel::Put(const Bytes& chunk, std::chrono::milliseconds gap, Moment now) {
  Bytes bytes = std::exchange(kept_back_, {});
  Append(bytes, chunk);
  outgoing_.Put(bytes, gap, now);
}

}  // namespace vantrel
