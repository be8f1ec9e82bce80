// SPDX-License-Identifier: MIT

#include "printer/model/printer_model.h"

#include "protocol/control.h"

#include <algorithm>
#include <utility>

namespace vantrel::printer {
namespace {

// A line on which this many bytes are on their way takes no more.
constexpr std::size_t kLongLine = 4096;
constexpr std::uint8_t kCancelInsertionWait = 0x54;

// Whether the command is served at any moment, whatever else is going on.
bool IsServedBeside(const PreparedCommand& command) {
  return command.Needs() == Need::kNothing && command.Duration() == kNoTime;
}

}  // namespace

void PrinterModel::Receive(std::span<const std::uint8_t> bytes, protocol::Moment now) {
  LetTimePass(now);
  if (!state_.power) return TellHeard(bytes, now);
  if (SpeedsDiffer()) {
    TellHeard(bytes, now);
    const link::Bytes heard =
        HeardAtAnotherSpeed({bytes.begin(), bytes.end()}, *console_speed_, speed_);
    incoming_.Put(heard, now, true);
  } else {
    incoming_.Put(bytes, now);
  }
  LetTimePass(now);
  Flush(now);
}

void PrinterModel::Advance(protocol::Moment now) {
  LetTimePass(now);
  Flush(now);
}

std::optional<protocol::Moment> PrinterModel::NextAdvance() const {
  std::optional<protocol::Moment> next = receiver_.Deadline();
  const auto take = [&next](protocol::Moment moment) {
    next = next ? std::min(*next, moment) : moment;
  };
  if (const auto due = incoming_.Deadline()) take(*due);
  if (work_) take(work_->done);
  if (const auto change = state_.indicators.NextChange(state_.now)) take(*change);
  if (const auto due = answers_.Deadline()) take(*due);
  return next;
}

bool PrinterModel::TakesMore() const { return incoming_.Waiting() < kLongLine; }

bool PrinterModel::InsertCard(protocol::Moment now) {
  LetTimePass(now);
  const bool possible = state_.place == CardPlace::kOutside;
  if (possible) state_.place = CardPlace::kFront;
  if (possible && waiting_) Begin(*std::exchange(waiting_, std::nullopt), now);
  Flush(now);
  return possible;
}

bool PrinterModel::PullOutCard(protocol::Moment now) {
  LetTimePass(now);
  const bool possible = state_.place != CardPlace::kOutside && !work_;
  if (possible) state_.place = CardPlace::kOutside;
  if (possible && waiting_) Begin(*std::exchange(waiting_, std::nullopt), now);
  Flush(now);
  return possible;
}

bool PrinterModel::PressCleaningButton(protocol::Moment now) {
  LetTimePass(now);
  const bool possible = state_.power && state_.cleaning_button && line_.size() < kLongestLine;
  if (possible) {
    constexpr std::array<std::uint8_t, 1> kCleaning{0x52};
    Asked asked;
    asked.code = kCleaning[0];
    asked.when = now;
    Fault no_answer;
    no_answer.kind = Fault::Kind::kMute;
    asked.strikes.Add(std::move(no_answer));
    Job job{*Prepare(state_, kCleaning), std::move(asked)};
    if (work_)
      line_.push_back(std::move(job));
    else
      Begin(std::move(job), now);
  }
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
    if (IsRecordable({&character, 1}) && recorded.size() < kTrackLength[track])
      recorded += character;
  }
  if (change_) change_();
}

void PrinterModel::SetPower(bool on, protocol::Moment now) {
  LetTimePass(now);
  if (on == state_.power) return;
  EndEverything();
  for (const IncomingLine::Part& part : incoming_.Take(protocol::Moment::max())) {
    if (!part.is_misheard) TellHeard(part.bytes, now);
  }
  incoming_.Clear();
  receiver_ = {};
  state_.power = on;
  state_.StartAfresh();
  if (on) {
    state_.cleaning_button = state_.stored_cleaning_button;
    state_.setting = state_.stored_setting;
  }
  Flush(now);
}

FaultPlan::Id PrinterModel::ReplaceFaults(Fault fault) {
  faults_.Clear();
  return AddFault(std::move(fault));
}

FaultPlan::Id PrinterModel::AddFault(Fault fault) {
  const FaultPlan::Id id = faults_.Add(std::move(fault));
  if (change_) change_();
  return id;
}

bool PrinterModel::ClearFault(FaultPlan::Id id) {
  const bool found = faults_.Clear(id);
  if (change_) change_();
  return found;
}

void PrinterModel::ClearFaults() {
  faults_.Clear();
  if (change_) change_();
}

void PrinterModel::SetSpeed(int speed) {
  speed_ = speed;
  SetPacing(pacing_);
}

void PrinterModel::SetPacing(bool pacing) {
  pacing_ = pacing;
  answers_.SetSpeed(pacing ? speed_ : 0);
  incoming_.SetSpeed(pacing ? speed_ : 0);
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

void PrinterModel::SetCodePage(link::CodePage code_page) {
  state_.code_page = code_page;
  if (change_) change_();
}

bool PrinterModel::IsBusy() const {
  return work_ || !line_.empty() || incoming_.Waiting() > 0 || answers_.Deadline();
}

Activity PrinterModel::CurrentActivity() const {
  if (!state_.power) return Activity::kOff;
  if (work_) return Activity::kWork;
  if (!waiting_) return Activity::kIdle;
  return state_.wait == CardWait::kRemoval ? Activity::kRemovalWait : Activity::kCardWait;
}

std::optional<std::uint8_t> PrinterModel::CommandUnderWay() const {
  if (work_) return work_->job.command.Code();
  if (waiting_) return waiting_->command.Code();
  return std::nullopt;
}

std::string PrinterModel::ActivityInWords() const {
  const std::string code = link::HexOf(CommandUnderWay().value_or(0)) + "h";
  switch (CurrentActivity()) {
    case Activity::kOff:
      return "Switched off";
    case Activity::kWork:
      return code + " is at work";
    case Activity::kRemovalWait:
      return code + " waits for the card to be pulled out";
    case Activity::kCardWait:
      return code + (waiting_->command.Needs() == Need::kCleaningCard ? " waits for a cleaning card"
                                                                      : " waits for a card");
    default:
      return "Idle";
  }
}

void PrinterModel::LetTimePass(protocol::Moment now) {
  for (const IncomingLine::Part& part : incoming_.Take(now)) {
    LetWorkPass(part.when);
    Hear(part);
  }
  receiver_.Advance(now);
  LetWorkPass(now);
}

void PrinterModel::LetWorkPass(protocol::Moment now) {
  DoDueWork(now);
  state_.now = now;
  state_.indicators.Advance(now);
}

void PrinterModel::Hear(const IncomingLine::Part& part) {
  std::span<const std::uint8_t> untold = part.bytes;
  std::size_t heard = 0;
  const auto tell = [&] {
    if (!part.is_misheard) TellHeard(untold.first(heard), part.when);
    untold = untold.subspan(std::exchange(heard, 0));
  };
  for (const std::uint8_t& byte : part.bytes) {
    ++heard;
    for (const protocol::Arrival& arrival : receiver_.Receive({&byte, 1}, part.when)) {
      tell();
      Accept(arrival, part.when);
    }
  }
  tell();
}

void PrinterModel::TellHeard(std::span<const std::uint8_t> bytes, protocol::Moment when) {
  if (hear_ && !bytes.empty()) hear_(bytes, when);
}

void PrinterModel::Accept(const protocol::Arrival& arrival, protocol::Moment now) {
  Asked asked;
  asked.when = now;
  asked.number = ++heard_;
  if (!arrival.content.empty()) {
    asked.code = arrival.content.front();
    last_heard_[*asked.code] = heard_;
  }
  if (!arrival.check_is_good) {
    answers_.AnswerWith(protocol::kResend, asked);
    return;
  }
  asked.strikes = StrikesOn(arrival);
  if (IsStopped(asked)) return;
  answers_.Begin(asked);
  Serve(arrival.content, std::move(asked), now);
  answers_.End();
}

void PrinterModel::Serve(std::span<const std::uint8_t> content, Asked asked, protocol::Moment now) {
  auto command = Prepare(state_, content);
  if (!command) {
    answers_.AnswerWith(protocol::kReject, asked);
    return;
  }
  Job job{std::move(*command), std::move(asked)};
  if (job.command.Code() == kResetCode && !job.Has(Fault::Kind::kStatus)) EndEverything();
  const bool beside = IsServedBeside(job.command);
  if (!beside && line_.size() >= kLongestLine) {
    answers_.AnswerWith(protocol::kReject, job.asked);
    return;
  }
  answers_.Accept(job.asked);
  if (beside) {
    if (job.command.Code() == kCancelInsertionWait && state_.wait == CardWait::kRemoval && remark_)
      remark_("54h does not end the wait of " + link::HexOf(waiting_->command.Code()) +
              "h for the card's removal; 55h does");
    Finish(job);
    // 54h or 55h has ended the wait.
    if (waiting_ && state_.wait == CardWait::kNone) waiting_.reset();
  } else if (work_) {
    line_.push_back(std::move(job));
  } else {
    Begin(std::move(job), now);
  }
}

Strikes PrinterModel::StrikesOn(const protocol::Arrival& arrival) {
  if (faults_.IsEmpty()) return {};
  const auto code = arrival.content.empty() ? std::nullopt : std::optional(arrival.content.front());
  Strikes strikes = faults_.Strike(code);
  for (const Fault& fault : strikes.All()) {
    if (strike_) strike_(StruckInWords(fault));
  }
  return strikes;
}

bool PrinterModel::IsStopped(Asked& asked) {
  const Strikes& strikes = asked.strikes;
  if (strikes.Has(Fault::Kind::kSilence)) return true;
  if (strikes.Has(Fault::Kind::kVanish)) return vanishing_ = true;
  std::optional<std::uint8_t> answer;
  if (strikes.Has(Fault::Kind::kResend)) answer = protocol::kResend;
  if (strikes.Has(Fault::Kind::kReject)) answer = protocol::kReject;
  if (const Fault* unknown = strikes.Find(Fault::Kind::kUnknownControl))
    answer = static_cast<std::uint8_t>(unknown->value);
  if (answer) answers_.AnswerWith(*answer, asked);
  return answer.has_value();
}

bool PrinterModel::SpeedsDiffer() const {
  return pacing_ && console_speed_ && *console_speed_ != speed_;
}

// What a person was to do for an earlier command has no meaning any more once this one begins.
void PrinterModel::Begin(Job job, protocol::Moment now) {
  waiting_.reset();
  state_.wait = CardWait::kNone;
  switch (NextStep(job)) {
    case Step::kWork:
      if (!instant_) {
        const protocol::Moment done = now + job.command.Duration();
        work_ = Work{std::move(job), done};
        return;
      }
      [[fallthrough]];
    case Step::kInstantWork:
      Finish(job);
      return;
    case Step::kRefuse:
      answers_.ReplyWith({status::kNoTargetCard, {}}, job.asked, state_.now);
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

void PrinterModel::BeginNext(protocol::Moment now) {
  while (!work_ && !line_.empty()) {
    Job job = std::move(line_.front());
    line_.pop_front();
    Begin(std::move(job), now);
  }
}

// Work that is overdue ends, and the next in line begins, at the moment when it was due: a late
// call makes nothing slower.
void PrinterModel::DoDueWork(protocol::Moment now) {
  while (work_ && work_->done <= now) {
    Work work = *std::exchange(work_, std::nullopt);
    state_.now = work.done;
    Finish(work.job);
    BeginNext(work.done);
  }
}

void PrinterModel::Finish(Job& job) {
  const Fault* status = job.asked.strikes.Find(Fault::Kind::kStatus);
  const Reply reply = status != nullptr ? Reply{static_cast<std::uint8_t>(status->value), {}}
                                        : job.command.Work(state_);
  answers_.ReplyWith(reply, job.asked, state_.now);
}

void PrinterModel::EndEverything() {
  waiting_.reset();
  work_.reset();
  line_.clear();
  answers_.Clear();
  state_.wait = CardWait::kNone;
}

PrinterModel::Step PrinterModel::NextStep(const Job& job) {
  const Need need = job.command.Needs();
  if (need == Need::kNothing || job.Has(Fault::Kind::kStatus)) return Step::kWork;
  if (job.command.IsBuffered(state_)) return Step::kInstantWork;
  const bool ordinary = state_.card.kind == CardKind::kOrdinary;
  if (need == Need::kCleaningCard && state_.HasTargetCard() && ordinary)
    state_.Transport(CardPlace::kExit);
  if (state_.HasTargetCard()) return Step::kWork;
  if (need == Need::kTargetCard) return Step::kRefuse;
  return state_.place == CardPlace::kExit ? Step::kAwaitRemoval : Step::kAwaitInsertion;
}

void PrinterModel::Flush(protocol::Moment now) {
  if (const auto leaving = answers_.Take(now)) {
    const link::Bytes bytes = SpeedsDiffer()
                                  ? HeardAtAnotherSpeed(leaving->bytes, speed_, *console_speed_)
                                  : leaving->bytes;
    if (send_ && !bytes.empty()) send_(bytes);
    for (const Answered& answer : leaving->answers) {
      if (answered_) answered_(answer);
    }
  }
  if (change_) change_();
  if (std::exchange(vanishing_, false) && vanish_) vanish_();
}

}  // namespace vantrel::printer
