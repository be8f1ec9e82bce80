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

Bytes FrameOf(const Command& command, const Reply& reply) {
  std::string data = HexOf(reply.status);
  for (const char character : reply.data) data += HexOf(static_cast<std::uint8_t>(character));
  return BytesOf(ComposeFrame(HexOf(command.code), data));
}

// Whether the command is served at any moment, whatever else is going on.
bool IsServedBeside(const CommandRow& row) {
  return row.need == Need::kNothing && row.duration == kNoTime;
}

}  // namespace

void PrinterModel::Receive(std::span<const std::uint8_t> bytes, Moment now) {
  LetTimePass(now);
  if (!state_.power) return;
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
  if (!later_replies_.empty()) take(last_sent_ ? *last_sent_ + kReplyGap : Moment{0});
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
  if (job.row == nullptr || !IsTaken(*job.row, job.command)) {
    chunk_.push_back(kRejected);
    return;
  }
  if (job.command.code == kResetCode) EndEverything();
  const bool beside = IsServedBeside(*job.row);
  if (!beside && line_.size() >= kLongestLine) {
    chunk_.push_back(kRejected);
    return;
  }
  chunk_.push_back(kAccepted);
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
      Answer(job.command, {status::kNoTargetCard, {}});
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
  Answer(job.command, job.row->work(state_, job.command));
}

void PrinterModel::Answer(const Command& command, const Reply& reply) {
  Bytes frame = FrameOf(command, reply);
  if (acknowledging_)
    chunk_.insert(chunk_.end(), frame.begin(), frame.end());
  else
    later_replies_.push_back(std::move(frame));
}

void PrinterModel::EndEverything() {
  waiting_.reset();
  work_.reset();
  line_.clear();
  later_replies_.clear();
  state_.wait = CardWait::kNone;
}

PrinterModel::Step PrinterModel::NextStep(const Job& job) {
  const Need need = job.row->need;
  if (need == Need::kNothing) return Step::kWork;
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
  if (chunk_.empty() && !later_replies_.empty() &&
      (!last_sent_ || *last_sent_ + kReplyGap <= now)) {
    chunk_ = std::move(later_replies_.front());
    later_replies_.pop_front();
  }
  if (!chunk_.empty()) {
    last_sent_ = now;
    const Bytes chunk = std::exchange(chunk_, {});
    if (send_) send_(chunk);
  }
  if (change_) change_();
}

}  // namespace vantrel
