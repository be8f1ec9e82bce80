// SPDX-License-Identifier: MIT

#include "send/run.h"

#include "link/frame.h"
#include "send/table.h"
#include "send/words.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>

namespace vantrel::send {
namespace {

using commandline::WrongUse;

constexpr int kSuccessStatus = 0;
constexpr int kFailureStatus = 1;
constexpr int kTimeUpStatus = 3;
constexpr int kRejectStatus = 4;
constexpr int kPortStatus = 5;
constexpr int kSignalStatus = 130;

constexpr std::size_t kMostListed = 100'000;
constexpr int kFreeLimit = 5000;  // milliseconds

// Commands during which the printer may wait for a person.
constexpr std::array<std::string_view, 13> kWaiting = {"21", "22", "23", "29", "2A", "2B", "31",
                                                       "46", "47", "48", "51", "52", "53"};

bool MayWait(std::string_view code) {
  return std::find(kWaiting.begin(), kWaiting.end(), code) != kWaiting.end();
}

std::string InWords(const Place& place) {
  std::string text;
  if (place.line) text = "line " + std::to_string(*place.line);
  if (place.round) text += (text.empty() ? "" : ", ") + ("round " + std::to_string(*place.round));
  return text;
}

}  // namespace

Run::Run(const Settings& settings, const Means& means, link::Port& port, Sender& sender,
         Interrupts& interrupts, StandardOutput& output, Report* report)
    : settings_(settings),
      means_(means),
      port_(port),
      sender_(sender),
      interrupts_(interrupts),
      output_(output),
      report_(report) {}

int Run::Do(const Job& job) {
  CheckWear(job, settings_);
  return settings_.HasRounds() ? DoRounds({{std::nullopt, job}}) : DoOnce(job);
}

int Run::DoOnce(const Job& job) {
  if (settings_.dry_run) {
    TellDry(job);
    return kSuccessStatus;
  }
  switch (Carry(job, {})) {
    case Step::kSuccess:
      return kSuccessStatus;
    case Step::kPortFailed:
      return kPortStatus;
    case Step::kInterrupted:
      return kSignalStatus;
    case Step::kFailure:
      break;
  }
  if (!job.expected.empty()) return kFailureStatus;
  if (last_outcome_ == Outcome::kTimeUp) return kTimeUpStatus;
  return last_outcome_ == Outcome::kReply ? kFailureStatus : kRejectStatus;
}

int Run::DoLines(LineInput& input) {
  if (!settings_.HasRounds()) return DoEachLine(input);
  const auto entries = ReadList(input);
  if (entries) return DoRounds(*entries);
  return interrupts_.Count() > 0 ? kSignalStatus : kFailureStatus;
}

int Run::DoEachLine(LineInput& input) {
  bool has_failed = false;
  while (const std::optional<std::string> line = input.Next()) {
    const Place place{input.Number(), std::nullopt};
    if (input.Number() < settings_.from) continue;
    Enter(place);
    if (interrupts_.Count() > 0) return Stop(Step::kInterrupted, place);
    bool is_refused = false;
    const std::optional<Job> job = Read(*line, place, is_refused);
    Step step = is_refused ? Step::kFailure : Step::kSuccess;
    if (job && settings_.dry_run)
      TellDry(*job);
    else if (job)
      step = Carry(*job, place);
    if (step == Step::kSuccess) continue;
    has_failed = true;
    if (step != Step::kFailure || !settings_.keep_going) return Stop(step, place);
  }
  if (interrupts_.Count() > 0) return Stop(Step::kInterrupted, {input.Number() + 1, std::nullopt});
  if (input.Number() < settings_.from && settings_.continues) {
    Say("Standard input has only " + std::to_string(input.Number()) + " lines.");
    return kFailureStatus;
  }
  return has_failed ? kFailureStatus : kSuccessStatus;
}

std::optional<std::vector<Run::Entry>> Run::ReadList(LineInput& input) {
  std::vector<Entry> entries;
  bool is_refused = false;
  while (const std::optional<std::string> line = input.Next()) {
    std::optional<Job> job = Read(*line, {input.Number(), std::nullopt}, is_refused);
    if (job) entries.push_back({input.Number(), std::move(*job)});
    if (entries.size() > kMostListed) {
      Say("A list for many rounds has at most " + std::to_string(kMostListed) + " commands.");
      return std::nullopt;
    }
  }
  if (is_refused || interrupts_.Count() > 0) return std::nullopt;
  if (entries.empty() || *entries.back().line < settings_.from) {
    Say(entries.empty()
            ? "Standard input has no command."
            : "Standard input has no command from line " + std::to_string(settings_.from) + " on.");
    return std::nullopt;
  }
  return entries;
}

void Run::Enter(const Place& place) {
  place_ = place;
  is_done_ = false;
}

bool Run::IsBefore(const Entry& entry) const { return entry.line && *entry.line < settings_.from; }

int Run::DoRounds(const std::vector<Entry>& entries) {
  std::optional<long> total;
  if (settings_.rounds) {
    long frames = 0;
    long skipped = 0;  // in the first round
    for (const Entry& entry : entries) {
      const auto count = static_cast<long>(entry.job.frames.size());
      frames += count;
      if (IsBefore(entry)) skipped += count;
    }
    total = frames * *settings_.rounds - skipped;
  }
  progress_.emplace(total);
  for (long round = 1; !settings_.rounds || round <= *settings_.rounds; ++round) {
    for (const Entry& entry : entries) {
      if (round == 1 && IsBefore(entry)) continue;
      const Place place{entry.line, round};
      Enter(place);
      const Step step = interrupts_.Count() > 0 ? Step::kInterrupted : Carry(entry.job, place);
      if (step == Step::kSuccess) continue;
      TellSummary();
      return Stop(step, place);
    }
  }
  TellSummary();
  return kSuccessStatus;
}

std::optional<Job> Run::Read(const std::string& line, const Place& place, bool& is_refused) {
  std::string code;
  try {
    const std::vector<std::string> words = WordsOf(line);
    if (words.empty()) return std::nullopt;
    if (const auto* command = commandline::FindCommand(LineTable(), words.front()))
      code = command->name;
    const commandline::Parsed parsed = commandline::Parse(LineTable(), words);
    if (parsed.Command() == nullptr) throw WrongUse("A line takes no --help and no --version.");
    code = parsed.Command()->name;
    Job job = Compose(parsed, means_);
    CheckWear(job, settings_);
    return job;
  } catch (const WrongUse& error) {
    Exchange refused;
    refused.place = place;
    refused.command = code;
    refused.outcome = Outcome::kRefused;
    refused.meaning = error.what();
    Tell(refused);
    is_refused = true;
    return std::nullopt;
  }
}

Run::Step Run::Carry(const Job& job, const Place& place) {
  if (!port_.IsOpen()) {
    try {
      port_.Open();
    } catch (const link::PortError& error) {
      if (interrupts_.Count() > 0) return Step::kInterrupted;
      Say(error.what());
      return Step::kPortFailed;
    }
  }
  for (const std::string& frame : job.frames) {
    if (interrupts_.Count() > 0) return Step::kInterrupted;
    Exchange exchange = sender_.Send(frame, job.time_limit);
    exchange.place = place;
    exchange.is_success = exchange.status && job.IsExpected(*exchange.status);
    last_outcome_ = exchange.outcome;
    if (exchange.outcome == Outcome::kCancelled) {
      if (!sender_.HasSent()) return Step::kInterrupted;
      if (MayWait(job.code)) FreePrinter();
    }
    is_done_ = exchange.is_success && &frame == &job.frames.back();
    Tell(exchange);
    if (exchange.outcome == Outcome::kCancelled) return Step::kInterrupted;
    if (exchange.outcome == Outcome::kFailed) {
      Say(exchange.meaning);
      return Step::kPortFailed;
    }
    if (!exchange.is_success) return Step::kFailure;
  }
  return Step::kSuccess;
}

void Run::FreePrinter() {
  for (const char* code : {"54", "55"})
    if (interrupts_.Count() == 1) sender_.Send(link::ComposeFrame(code), kFreeLimit);
}

void Run::TellDry(const Job& job) {
  for (const std::string& frame : job.frames)
    output_.Write(ToldDry(job.code, frame, settings_.format));
}

void Run::Tell(const Exchange& exchange) {
  tally_.Add(exchange);
  if (report_ != nullptr) report_->Add(exchange);
  const bool is_told =
      settings_.format != Format::kText || !settings_.HasRounds() || !exchange.is_success;
  if (is_told) {
    if (progress_) progress_->Clear();
    output_.Write(Told(exchange, settings_.format));
  }
  if (progress_) progress_->Show(tally_);
}

void Run::TellEnd(const std::string& sentence) {
  Say(sentence);
  // What is done is not done again because it could not be told.
  if (settings_.IsMany()) TellPlace(place_, is_done_ && !settings_.HasRounds());
}

void Run::TellPlace(const Place& place, bool is_done) {
  const std::string words = InWords(place);
  if (words.empty()) return;
  std::string sentence = "Stopped at " + words;
  if (place.line)
    sentence += "; go on with --from " + std::to_string(*place.line + (is_done ? 1 : 0));
  Say(sentence + ".");
}

int Run::Stop(Step step, const Place& place) {
  if (settings_.IsMany()) TellPlace(place, false);
  if (step == Step::kPortFailed) return kPortStatus;
  return step == Step::kInterrupted ? kSignalStatus : kFailureStatus;
}

void Run::TellSummary() {
  progress_.reset();
  if (settings_.format == Format::kJson)
    output_.Write(tally_.Summary().Text() + "\n");
  else
    Say(tally_.InWords());
}

void Run::Say(const std::string& sentence) {
  if (progress_) progress_->Clear();
  std::cerr << "vantrel-send: " << sentence << std::endl;
}

}  // namespace vantrel::send
