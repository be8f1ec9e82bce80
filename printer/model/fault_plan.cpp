// SPDX-License-Identifier: MIT

#include "printer/model/fault_plan.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace vantrel::printer {
namespace {

using Kind = Fault::Kind;

// Whether there is no reply after a fault of this kind.
bool LeavesNoReply(Kind kind) {
  switch (kind) {
    case Kind::kSilence:
    case Kind::kReject:
    case Kind::kUnknownControl:
    case Kind::kVanish:
    case Kind::kResend:
    case Kind::kMute:
      return true;
    default:
      return false;
  }
}

}  // namespace

const Fault* Strikes::Find(Kind kind) const {
  const auto found = std::find_if(faults_.begin(), faults_.end(),
                                  [kind](const Fault& fault) { return fault.kind == kind; });
  return found == faults_.end() ? nullptr : &*found;
}

bool Strikes::Takes(Kind kind) const {
  return std::none_of(faults_.begin(), faults_.end(), [kind](const Fault& fault) {
    return fault.kind == kind || LeavesNoReply(fault.kind);
  });
}

FaultPlan::Id FaultPlan::Replace(Fault fault) {
  Clear();
  return Add(std::move(fault));
}

FaultPlan::Id FaultPlan::Add(Fault fault) {
  if (faults_.size() >= kMostFaults) {
    throw std::length_error("The plan holds no more than " + std::to_string(kMostFaults) +
                            " faults.");
  }
  Planned planned;
  planned.random.seed(fault.value);
  planned.entry = {++last_id_, std::move(fault), {}};
  planned.entry.left = planned.entry.fault.strikes;
  faults_.push_back(std::move(planned));
  return last_id_;
}

bool FaultPlan::Clear(Id id) {
  return std::erase_if(faults_, [id](const Planned& each) { return each.entry.id == id; }) > 0;
}

std::vector<FaultPlan::Entry> FaultPlan::List() const {
  std::vector<Entry> entries;
  entries.reserve(faults_.size());
  for (const Planned& each : faults_) entries.push_back(each.entry);
  return entries;
}

Strikes FaultPlan::Strike(std::optional<std::uint8_t> code) {
  Strikes strikes;
  for (Planned& each : faults_) {
    if (!Counts(each, code) || !AsksAgain(each)) continue;
    strikes.Add(*each.resent);
    Tidy();
    return strikes;
  }
  for (Planned& each : faults_) {
    if (Counts(each, code) && !each.counted) each.turn = Turn(each);
    if (Counts(each, code)) each.counted = false;
  }
  for (const bool leaves_no_reply : {true, false}) {
    for (Planned& each : faults_) {
      if (!each.turn || !Counts(each, code) || LeavesNoReply(each.turn->kind) != leaves_no_reply)
        continue;
      if (strikes.Takes(each.turn->kind)) {
        strikes.Add(*each.turn);
        Spend(each);
      } else {
        each.owed = each.entry.fault.kind != Kind::kRandom;
      }
      each.turn.reset();
    }
  }
  Tidy();
  return strikes;
}

bool FaultPlan::Counts(const Planned& planned, std::optional<std::uint8_t> code) {
  return !planned.entry.fault.code || planned.entry.fault.code == code;
}

std::optional<Fault> FaultPlan::Turn(Planned& planned) {
  const Fault& fault = planned.entry.fault;
  ++planned.seen;
  const bool due =
      planned.seen >= fault.after && (planned.seen - fault.after) % std::max(fault.every, 1U) == 0;
  if (!std::exchange(planned.owed, false) && !due) return std::nullopt;
  if (fault.kind != Kind::kRandom) return fault;
  // Both are drawn each time, so that the draws of later commands do not depend on earlier ones.
  const auto percent = planned.random() % 100U;
  const auto choice = planned.random();
  if (percent >= fault.percent || fault.choices.empty()) return std::nullopt;
  return fault.choices[choice % fault.choices.size()];
}

bool FaultPlan::AsksAgain(Planned& planned) {
  if (planned.resends > 0) {
    --planned.resends;
    return true;
  }
  if (planned.resent) {
    // This is the frame for the last time, which was counted when it came first.
    planned.resent.reset();
    planned.counted = true;
    Spend(planned);
    return false;
  }
  const Kind kind = planned.entry.fault.kind;
  if ((kind != Kind::kResend && kind != Kind::kRandom) || planned.counted) return false;
  planned.turn = Turn(planned);
  planned.counted = true;
  if (!planned.turn || planned.turn->kind != Kind::kResend) return false;
  planned.resent = std::exchange(planned.turn, std::nullopt);
  planned.resends = std::max(planned.resent->value, 1U) - 1;
  return true;
}

void FaultPlan::Spend(Planned& planned) {
  if (planned.entry.left && *planned.entry.left > 0) --*planned.entry.left;
}

void FaultPlan::Tidy() {
  std::erase_if(faults_, [](const Planned& each) { return each.entry.left == 0U; });
}

}  // namespace vantrel::printer
